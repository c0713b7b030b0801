#pragma once

#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <new>

#include "support/stepped_file_layer.h"

namespace zentab::test {

/// What a process tells of its work to the one that watches it, through memory they share.
struct Progress {
  std::atomic<const char*> step = nullptr;  // the last one begun or done
  std::atomic<bool> isDone = false;         // that step
  std::atomic<int> moments = 0;  // that have passed: before, inside, and behind each step
  // On the steady clock, in its own unit; 0 while that has not come.
  std::atomic<std::chrono::steady_clock::rep> start = 0, firstStep = 0, end = 0;
};

inline std::chrono::steady_clock::rep Now() {
  return std::chrono::steady_clock::now().time_since_epoch().count();
}

/// Something that a process and its children share.
template <class Content>
class SharedMemory {
 public:
  SharedMemory()
      : content_(new (::mmap(nullptr, sizeof(Content), PROT_READ | PROT_WRITE,
                             MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Content) {}
  ~SharedMemory() { ::munmap(content_, sizeof(Content)); }
  SharedMemory(const SharedMemory&) = delete;
  SharedMemory& operator=(const SharedMemory&) = delete;

  Content& operator*() const { return *content_; }
  Content* operator->() const { return content_; }

 private:
  Content* content_;
};

/// The system's files, telling of each step; at one moment the process kills itself.
class WatchedFileLayer final : public SteppedFileLayer {
 public:
  static constexpr int kNever = 0;

  explicit WatchedFileLayer(Progress& progress, int killAt = kNever)
      : progress_(progress), killAt_(killAt) {}

 private:
  std::error_code Before(const char* step) override {
    Tell(step, false);
    return {};
  }
  void After(const char* step) override { Tell(step, true); }

  std::error_code WriteTo(platform::OutputFile& file, std::string_view bytes) override {
    const std::size_t half = bytes.size() / 2;
    if (const std::error_code error = file.Write(bytes.substr(0, half))) return error;
    Tell("write", false);
    return file.Write(bytes.substr(half));
  }

  void Tell(const char* step, bool isDone) {
    progress_.step = step;
    progress_.isDone = isDone;
    if (progress_.moments == 0) progress_.firstStep = Now();
    if (++progress_.moments == killAt_) ::kill(::getpid(), SIGKILL);
  }

  Progress& progress_;
  int killAt_;
};

}  // namespace zentab::test
