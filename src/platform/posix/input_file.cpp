#include "platform/posix/input_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_errors.h"
#include "platform/posix/last_error.h"

namespace zentab::platform {
namespace {

class PosixInputFile final : public InputFile {
 public:
  explicit PosixInputFile(int descriptor) : descriptor_(descriptor) {}
  ~PosixInputFile() override { ::close(descriptor_); }
  PosixInputFile(const PosixInputFile&) = delete;
  PosixInputFile& operator=(const PosixInputFile&) = delete;

  std::error_code ReadAt(std::uint64_t offset, char* to, std::size_t size,
                         std::size_t& count) override {
    count = 0;
    while (count < size) {
      const ssize_t got =
          ::pread(descriptor_, to + count, size - count, static_cast<off_t>(offset + count));
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) return LastError();
      if (got == 0) break;
      count += static_cast<std::size_t>(got);
    }
    return {};
  }

  std::error_code Stamp(FileStamp& stamp) override {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) return LastError();
    stamp = StampFrom(status);
    return {};
  }

 private:
  int descriptor_;
};

}  // namespace

FileStamp StampFrom(const struct stat& status) {
  constexpr std::uint64_t kNanoseconds = 1'000'000'000;
  return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino),
          static_cast<std::uint64_t>(status.st_size),
          static_cast<std::uint64_t>(status.st_mtim.tv_sec) * kNanoseconds +
              static_cast<std::uint64_t>(status.st_mtim.tv_nsec)};
}

std::error_code OpenInput(const std::filesystem::path& path, std::unique_ptr<InputFile>& file) {
  // A pipe without a writer would let nobody go on.
  int descriptor = -1;
  do {
    descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) return LastError();
  file = std::make_unique<PosixInputFile>(descriptor);
  struct stat status {};
  std::error_code error;
  if (::fstat(descriptor, &status) != 0) {
    error = LastError();
  } else if (S_ISDIR(status.st_mode)) {
    error = std::make_error_code(std::errc::is_a_directory);
  } else if (!S_ISREG(status.st_mode)) {
    error = FileError::NoRegularFile;
  }
  if (error) file.reset();
  return error;
}

}  // namespace zentab::platform
