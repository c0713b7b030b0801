#pragma once

#include <QElapsedTimer>
#include <functional>
#include <memory>

#include "platform/file_layer.h"

namespace zentab::app {

/// The files under the window's commands: while one of them works for long, pending window events
/// run again and again, but none of the user's input, and the busy pointer shows. A single call
/// into the system that may last, because it waits for the device, is made on a thread of its own,
/// on which nothing else ever runs: this one waits for it, events included.
class ResponsiveFiles final : public platform::FileLayer {
  using Path = std::filesystem::path;

 public:
  explicit ResponsiveFiles(platform::FileLayer& files) : files_(files) {}

  /// A command that works on files, from start to end.
  class Work {
   public:
    explicit Work(ResponsiveFiles& files);
    ~Work();
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

   private:
    ResponsiveFiles& files_;
  };

  /// Whether such a command is under way: what an event handler must not disturb.
  [[nodiscard]] bool IsAtWork() const { return works_ > 0; }

  std::error_code Create(const Path& path, const Path& like,
                         std::unique_ptr<platform::OutputFile>& file) override;
  std::error_code OpenForAppending(const Path& path,
                                   std::unique_ptr<platform::OutputFile>& file) override {
    return files_.OpenForAppending(path, file);
  }
  std::error_code MoveOver(const Path& from, const Path& to) override {
    return Await([&] { return files_.MoveOver(from, to); });
  }
  std::error_code Remove(const Path& path) override { return files_.Remove(path); }
  std::error_code TryLock(const Path& path, std::unique_ptr<platform::FileLock>& lock) override {
    return files_.TryLock(path, lock);
  }
  void KeepAlive() override;

  /// What such a call says.
  [[nodiscard]] std::error_code Await(const std::function<std::error_code()>& call);

 private:
  void RunEvents();

  platform::FileLayer& files_;
  int works_ = 0;
  bool showsPointer_ = false;
  QElapsedTimer begun_;
  QElapsedTimer alive_;  // since events ran last
};

}  // namespace zentab::app
