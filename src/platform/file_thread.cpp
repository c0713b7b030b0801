#include "platform/file_thread.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace zentab::platform {
namespace {

std::atomic<int> leftLanes = 0;

class WaitedCall final : public FileThread::Call {
 public:
  bool WaitFor(std::chrono::milliseconds time) override {
    std::unique_lock guard(mutex_);
    return ended_.wait_for(guard, time, [this] { return isDone_; });
  }
  void End() {
    const std::scoped_lock guard(mutex_);
    isDone_ = true;
    ended_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable ended_;
  bool isDone_ = false;
};

}  // namespace

// A thread and the calls that wait for it. The thread shares it: it may outlive its FileThread.
class FileThread::Lane {
 public:
  // False when the system has no thread left.
  static bool Begin(const std::shared_ptr<Lane>& lane) {
    try {
      std::thread([lane] { lane->Run(); }).detach();
    } catch (const std::system_error&) {
      return false;
    }
    return true;
  }

  void Add(std::function<void()> call) {
    const std::scoped_lock guard(mutex_);
    calls_.push_back(std::move(call));
    changed_.notify_all();
  }

  // Whether nothing is under way, after at most so long.
  bool IsIdle(std::chrono::milliseconds time) {
    std::unique_lock guard(mutex_);
    return changed_.wait_for(guard, time, [this] { return calls_.empty() && !busy_; });
  }

  // The thread ends once it has nothing to do.
  void End() {
    const std::scoped_lock guard(mutex_);
    ending_ = true;
    if (busy_ || !calls_.empty()) {
      left_ = true;
      ++leftLanes;
    }
    changed_.notify_all();
  }

 private:
  void Run() {
    std::unique_lock guard(mutex_);
    for (;;) {
      changed_.wait(guard, [this] { return ending_ || !calls_.empty(); });
      if (calls_.empty()) break;
      std::function<void()> call = std::move(calls_.front());
      calls_.pop_front();
      busy_ = true;
      guard.unlock();
      call();
      // What the call owns ends here as well.
      call = nullptr;
      guard.lock();
      busy_ = false;
      changed_.notify_all();
    }
    if (left_) --leftLanes;
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> calls_;
  bool busy_ = false;
  bool ending_ = false;
  bool left_ = false;
};

FileThread::FileThread(std::chrono::milliseconds lastWait) : lastWait_(lastWait) {}

FileThread::~FileThread() {
  if (!lane_) return;
  [[maybe_unused]] const bool dropped = lane_->IsIdle(lastWait_);
  lane_->End();
}

std::shared_ptr<FileThread::Call> FileThread::Start(std::function<void()> call) {
  auto waited = std::make_shared<WaitedCall>();
  if (!lane_) {
    lane_ = std::make_shared<Lane>();
    if (!Lane::Begin(lane_)) lane_.reset();
  }
  if (!lane_) {
    call();
    waited->End();
    return waited;
  }
  lane_->Add([waited, call = std::move(call)] {
    call();
    waited->End();
  });
  return waited;
}

void FileThread::Leave() {
  if (!lane_ || lane_->IsIdle(std::chrono::milliseconds(0))) return;
  lane_->End();
  lane_.reset();
}

bool FileThread::HasLeftCalls() { return leftLanes > 0; }

}  // namespace zentab::platform
