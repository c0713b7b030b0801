#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

namespace zentab::test {

/// What a harness finds wrong.
class Verdict {
 public:
  /// Notes, and says the first few times, that something is not as it must be.
  void Check(bool isRight, const std::string& what) {
    constexpr int kMostTold = 20;
    if (!isRight && ++faults_ <= kMostTold) std::printf("FAULT: %s\n", what.c_str());
  }
  /// The program's exit code.
  [[nodiscard]] int Finish() const {
    std::printf("%s\n", faults_ == 0 ? "passed" : (std::to_string(faults_) + " faults").c_str());
    return faults_ == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
  }

 private:
  int faults_ = 0;
};

/// An empty folder, which goes when the harness ends.
class ScratchFolder {
 public:
  ScratchFolder() { std::filesystem::create_directory(path_); }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::current_path(path_.parent_path(), ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                ("zentab-faults-" + std::to_string(std::random_device()()));
};

/// Number `position` of the command line, from 1.
inline unsigned Argument(int count, char** arguments, int position, unsigned missing) {
  if (position >= count) return missing;
  return static_cast<unsigned>(std::strtoul(arguments[position], nullptr, 10));
}

/// Runs `work` in a child process of its own, which ends with its result, true for success.
template <class Work>
pid_t InChild(Work work) {
  std::fflush(nullptr);
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? EXIT_SUCCESS : EXIT_FAILURE);
  if (child < 0) {
    std::perror("fork");
    std::exit(EXIT_FAILURE);
  }
  return child;
}

/// Waits for a child's end; its status as of waitpid.
inline int StatusOf(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

}  // namespace zentab::test
