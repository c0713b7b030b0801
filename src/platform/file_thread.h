#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace zentab::platform {

/// A thread that makes calls into the file system, one after the other, for one that must not be
/// kept waiting by a slow device. A call that never returns is left to itself: what it touches it
/// must own.
class FileThread {
 public:
  /// A call that was handed over.
  class Call {
   public:
    virtual ~Call() = default;
    /// Waits for the call's end, at most so long; whether it has ended.
    [[nodiscard]] virtual bool WaitFor(std::chrono::milliseconds time) = 0;
  };

  /// At its end it gives what is under way so long to end, and leaves it then.
  explicit FileThread(std::chrono::milliseconds lastWait = std::chrono::seconds(2));
  ~FileThread();
  FileThread(const FileThread&) = delete;
  FileThread& operator=(const FileThread&) = delete;

  /// Hands over a call, which is made when all before it have ended. Where the system has no thread
  /// left it is made at once.
  std::shared_ptr<Call> Start(std::function<void()> call);

  /// Leaves what is under way, if anything is, and what waits behind it to itself: later calls are
  /// made on a new thread.
  void Leave();

  /// Whether calls were left that may not have ended: the program must not destroy what they may
  /// use, and ends by std::_Exit.
  [[nodiscard]] static bool HasLeftCalls();

 private:
  class Lane;
  std::chrono::milliseconds lastWait_;
  std::shared_ptr<Lane> lane_;
};

}  // namespace zentab::platform
