#include "platform/posix/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <fstream>
#include <string>

#include "platform/file_errors.h"
#include "platform/posix/file_access.h"
#include "platform/posix/last_error.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kEveryone = 0666;
constexpr int kFlags = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;

// What this program makes for a lock is empty and has one name; it does as it likes with nothing
// else.
bool IsOurs(const struct stat& file) {
  return S_ISREG(file.st_mode) && file.st_size == 0 && file.st_nlink == 1;
}

bool IsStillNamed(const struct stat& opened, const fs::path& name) {
  struct stat named {};
  return ::lstat(name.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
         opened.st_ino == named.st_ino;
}

// The lock belongs to the open file; the name only leads there.
class PosixFileLock final : public FileLock {
 public:
  PosixFileLock(fs::path path, int descriptor) : path_(std::move(path)), descriptor_(descriptor) {}
  ~PosixFileLock() override {
    struct stat held {};
    // Removed while it is held: who waits for it finds another file, or none, under the name.
    if (::fstat(descriptor_, &held) == 0 && IsOurs(held) && IsStillNamed(held, path_)) {
      ::unlink(path_.c_str());
    }
    ::close(descriptor_);
  }
  PosixFileLock(const PosixFileLock&) = delete;
  PosixFileLock& operator=(const PosixFileLock&) = delete;

 private:
  fs::path path_;
  int descriptor_;
};

std::error_code LockDescriptor(int descriptor) {
  while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    switch (errno) {
      case EINTR:
        continue;
      case EWOULDBLOCK:
        return FileError::LockedByOther;
      case ENOLCK:
      case ENOSYS:
      case EOPNOTSUPP:
        return {};
      default:
        return LastError();
    }
  }
  return {};
}

// Whether the system's list of locks has one on a file of that number, on whatever device. A
// system without such a list cannot deny it.
bool MayBeLocked(ino_t number) {
  std::ifstream locks("/proc/locks");
  if (!locks) return true;
  const std::string name = ":" + std::to_string(number) + " ";
  for (std::string line; std::getline(locks, line);) {
    if (line.find(name) != std::string::npos) return true;
  }
  return false;
}

// Whoever takes such a lock anew changes its time, by the rights that he gives it.
std::error_code RemoveAbandoned(const fs::path& name) {
  constexpr std::time_t kMinute = 60;
  struct stat left {};
  if (::lstat(name.c_str(), &left) != 0) {
    return errno == ENOENT ? make_error_code(FileError::LockedByOther) : LastError();
  }
  const bool isAbandoned = IsOurs(left) && left.st_ctim.tv_sec < std::time(nullptr) - kMinute &&
                           !MayBeLocked(left.st_ino);
  if (isAbandoned && ::unlink(name.c_str()) != 0 && errno != ENOENT) return LastError();
  return FileError::LockedByOther;
}

std::error_code CreateLockFile(const fs::path& name, int& descriptor) {
  descriptor = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | kFlags, kEveryone);
  if (descriptor < 0) {
    return errno == EEXIST ? make_error_code(FileError::LockedByOther) : LastError();
  }
  // Where rights cannot be given, the file system has its own idea of them.
  [[maybe_unused]] const std::error_code dropped = GiveToEveryone(descriptor);
  return {};
}

// Writing is asked for first: a file of a network share cannot be locked without. What is there is
// opened without the wish to create it, which a system may refuse for the file of someone else.
std::error_code OpenLockFile(const fs::path& name, int& descriptor) {
  descriptor = ::open(name.c_str(), O_RDWR | kFlags);
  if (descriptor >= 0) return {};
  if (errno == ENOENT) return CreateLockFile(name, descriptor);
  if (errno != EACCES) return LastError();
  descriptor = ::open(name.c_str(), O_RDONLY | kFlags);
  if (descriptor >= 0) return {};
  return errno == EACCES || errno == ENOENT ? RemoveAbandoned(name) : LastError();
}

std::error_code TakeLock(const fs::path& name, int descriptor) {
  struct stat opened {};
  if (::fstat(descriptor, &opened) != 0) return LastError();
  if (!S_ISREG(opened.st_mode)) return FileError::NoRegularFile;
  if (IsOurs(opened) && (opened.st_mode & kEveryone) != kEveryone) {
    // Left by an older program; whose file it is not cannot, and has opened it nevertheless.
    [[maybe_unused]] const std::error_code dropped = GiveToEveryone(descriptor);
  }
  const std::error_code error = LockDescriptor(descriptor);
  if (error == std::errc::bad_file_descriptor) return RemoveAbandoned(name);
  if (error) return error;
  return IsStillNamed(opened, name) ? std::error_code() : FileError::LockedByOther;
}

}  // namespace

std::error_code TryLockFile(const fs::path& name, std::unique_ptr<FileLock>& lock) {
  int descriptor = -1;
  if (const std::error_code error = OpenLockFile(name, descriptor)) return error;
  if (const std::error_code error = TakeLock(name, descriptor)) {
    ::close(descriptor);
    return error;
  }
  lock = std::make_unique<PosixFileLock>(name, descriptor);
  return {};
}

}  // namespace zentab::platform
