#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/file_layer.h"
#include "platform/file_thread.h"

namespace zentab::app {

/// The files under the window: every call that touches one is made on a thread of its own, on which
/// nothing else ever runs, one call after the other. What the user has commanded waits for them
/// with the window's events, his input coming afterwards; what nobody has commanded does not wait.
/// After half a second of waiting the user is told, and may give up: the command's file calls then
/// fail with FileError::GivenUp, and the call that hangs is left to itself.
class ResponsiveFiles final : public QObject, public platform::FileLayer {
  Q_OBJECT
  using Path = std::filesystem::path;

 public:
  enum class WaitsFor { File, Writer };

  explicit ResponsiveFiles(platform::FileLayer& files);
  ~ResponsiveFiles() override;

  /// A command that works on files, from start to end. What runs quietly is broken off.
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

  /// Runs `job`, which only reads files and touches nothing of the window, without anybody waiting;
  /// then `done` with its result, on the window's thread, between two commands. A command that
  /// begins before the end breaks the job off; it starts anew behind the command.
  template <class Job, class Done>
  void Quietly(Job job, Done done) {
    using Result = decltype(job(std::declval<platform::FileLayer&>()));
    AddQuietJob(
        [job](platform::FileLayer& files) -> std::shared_ptr<void> {
          return std::make_shared<Result>(job(files));
        },
        [done](void* result) { done(std::move(*static_cast<Result*>(result))); });
  }

  std::error_code Open(const Path& path, std::unique_ptr<platform::InputFile>& file) override;
  std::error_code StampOf(const Path& path, std::optional<platform::FileStamp>& stamp) override;
  std::error_code Create(const Path& path, const Path& like,
                         std::unique_ptr<platform::OutputFile>& file) override;
  std::error_code OpenForAppending(const Path& path,
                                   std::unique_ptr<platform::OutputFile>& file) override;
  std::error_code MoveOver(const Path& from, const Path& to) override;
  std::error_code Remove(const Path& path) override;
  std::error_code TryLock(const Path& path, std::unique_ptr<platform::FileLock>& lock) override;
  std::error_code Ask(const std::function<std::error_code()>& call) override;
  bool GoOnWaiting(std::chrono::steady_clock::duration waited) override;
  void KeepAlive() override;

  /// What a call says, made on the thread; it owns what it touches.
  [[nodiscard]] std::error_code Await(const std::function<std::error_code()>& call);
  /// Has a call made whose end nobody waits for.
  void Post(std::function<void()> call);

 public Q_SLOTS:
  /// The user no longer waits.
  void GiveUp();

 Q_SIGNALS:
  /// A command has been waiting for half a second, or for something else than before.
  void Waiting(zentab::app::ResponsiveFiles::WaitsFor reason);
  /// It has ended.
  void WaitEnded();
  /// A quiet job has something to say; emitted on the files' thread.
  void MessageArrived();

 private:
  class Mailbox;
  struct QuietJob;

  using QuietWork = std::function<std::shared_ptr<void>(platform::FileLayer&)>;
  void AddQuietJob(QuietWork work, std::function<void(void*)> done);
  void Start(const std::shared_ptr<QuietJob>& job);
  void BreakOffQuietJobs();
  void BeginWork();
  void EndWork();
  void Tell(WaitsFor reason);
  void RunEvents();

  platform::FileLayer& files_;
  platform::FileThread thread_;
  std::shared_ptr<Mailbox> mailbox_;
  std::vector<std::shared_ptr<QuietJob>> quiet_;
  int works_ = 0;
  bool givenUp_ = false;
  std::optional<WaitsFor> told_;  // what the user was told that a command waits for
  bool showsPointer_ = false;
  QElapsedTimer begun_;
  QElapsedTimer alive_;  // since events ran last
  std::unique_ptr<QObject> heldInput_;
};

}  // namespace zentab::app
