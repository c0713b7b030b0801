#pragma once

#include <string_view>

#include "platform/file_layer.h"

namespace zentab::test {

/// The system's files, each step of which can be watched or made to fail: lock, unlock, remove,
/// create, open, write, flush, stamp, close and move, of the layer and of all its files; and apart
/// from them whatever reads.
class SteppedFileLayer : public platform::FileLayer {
 protected:
  using Path = std::filesystem::path;
  using FilePointer = std::unique_ptr<platform::OutputFile>;
  using InputPointer = std::unique_ptr<platform::InputFile>;
  using LockPointer = std::unique_ptr<platform::FileLock>;

  /// Called before a step, which is not made when this returns an error.
  virtual std::error_code Before(const char* step) = 0;
  /// Called after a step that succeeded.
  virtual void After(const char*) {}
  /// Called before a file is opened for reading, read, or asked for its stamp.
  virtual std::error_code BeforeReading(const char*) { return {}; }
  /// The step "write".
  virtual std::error_code WriteTo(platform::OutputFile& file, std::string_view bytes) {
    return file.Write(bytes);
  }

 public:
  std::error_code Open(const Path& path, InputPointer& file) override {
    std::error_code error = BeforeReading("open");
    if (!error) error = platform::SystemFiles().Open(path, file);
    if (!error) file = std::make_unique<Input>(*this, std::move(file));
    return error;
  }
  std::error_code StampOf(const Path& path, std::optional<platform::FileStamp>& stamp) override {
    const std::error_code error = BeforeReading("stamp");
    return error ? error : platform::SystemFiles().StampOf(path, stamp);
  }
  std::error_code Create(const Path& path, const Path& like, FilePointer& file) override {
    return Opened("create", file, [&] { return platform::SystemFiles().Create(path, like, file); });
  }
  std::error_code OpenForAppending(const Path& path, FilePointer& file) override {
    return Opened("open", file,
                  [&] { return platform::SystemFiles().OpenForAppending(path, file); });
  }
  std::error_code MoveOver(const Path& from, const Path& to) override {
    return Step("move", [&] { return platform::SystemFiles().MoveOver(from, to); });
  }
  std::error_code Remove(const Path& path) override {
    return Step("remove", [&] { return platform::SystemFiles().Remove(path); });
  }
  std::error_code TryLock(const Path& path, LockPointer& lock) override {
    const auto take = [&] { return platform::SystemFiles().TryLock(path, lock); };
    const std::error_code error = Step("lock", take);
    if (!error) lock = std::make_unique<Lock>(*this, std::move(lock));
    return error;
  }

 private:
  class Input final : public platform::InputFile {
   public:
    Input(SteppedFileLayer& layer, InputPointer file) : layer_(layer), file_(std::move(file)) {}
    std::error_code ReadAt(std::uint64_t offset, char* to, std::size_t size,
                           std::size_t& count) override {
      const std::error_code error = layer_.BeforeReading("read");
      return error ? error : file_->ReadAt(offset, to, size, count);
    }
    std::error_code Stamp(platform::FileStamp& stamp) override {
      const std::error_code error = layer_.BeforeReading("stamp");
      return error ? error : file_->Stamp(stamp);
    }

   private:
    SteppedFileLayer& layer_;
    InputPointer file_;
  };

  class File final : public platform::OutputFile {
   public:
    File(SteppedFileLayer& layer, FilePointer file) : layer_(layer), file_(std::move(file)) {}
    std::error_code Write(std::string_view bytes) override {
      return layer_.Step("write", [&] { return layer_.WriteTo(*file_, bytes); });
    }
    std::error_code Flush() override {
      return layer_.Step("flush", [&] { return file_->Flush(); });
    }
    std::error_code Stamp(platform::FileStamp& stamp) override {
      return layer_.Step("stamp", [&] { return file_->Stamp(stamp); });
    }
    std::error_code Close() override {
      return layer_.Step("close", [&] { return file_->Close(); });
    }

   private:
    SteppedFileLayer& layer_;
    FilePointer file_;
  };

  class Lock final : public platform::FileLock {
   public:
    Lock(SteppedFileLayer& layer, LockPointer lock) : layer_(layer), lock_(std::move(lock)) {}
    ~Lock() override {
      lock_.reset();
      layer_.After("unlock");
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    SteppedFileLayer& layer_;
    LockPointer lock_;
  };

  template <class Work>
  std::error_code Step(const char* name, Work work) {
    std::error_code error = Before(name);
    if (!error) error = work();
    if (!error) After(name);
    return error;
  }
  template <class Work>
  std::error_code Opened(const char* name, FilePointer& file, Work work) {
    const std::error_code error = Step(name, work);
    if (!error) file = std::make_unique<File>(*this, std::move(file));
    return error;
  }
};

}  // namespace zentab::test
