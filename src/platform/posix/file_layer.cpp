#include "platform/file_layer.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/input_file.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

std::error_code LastError() { return {errno, std::generic_category()}; }

class PosixOutputFile final : public OutputFile {
 public:
  explicit PosixOutputFile(int descriptor) : descriptor_(descriptor) {}
  ~PosixOutputFile() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  PosixOutputFile(const PosixOutputFile&) = delete;
  PosixOutputFile& operator=(const PosixOutputFile&) = delete;

  std::error_code Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return LastError();
      if (written == 0) return std::make_error_code(std::errc::no_space_on_device);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
  }

  std::error_code Flush() override {
    return ::fsync(descriptor_) == 0 ? std::error_code() : LastError();
  }

  std::error_code Stamp(FileStamp& stamp) override {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) return LastError();
    stamp = StampFrom(status);
    return {};
  }

  std::error_code Close() override {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    return ::close(descriptor) == 0 ? std::error_code() : LastError();
  }

 private:
  int descriptor_;
};

std::error_code SyncFolder(const fs::path& folder) {
  const fs::path named = folder.empty() ? fs::path(".") : folder;
  const int descriptor = ::open(named.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return LastError();
  const std::error_code error = ::fsync(descriptor) == 0 ? std::error_code() : LastError();
  ::close(descriptor);
  return error;
}

// The lock belongs to the open file; the name beside it only leads there.
class PosixFileLock final : public FileLock {
 public:
  PosixFileLock(fs::path path, int descriptor) : path_(std::move(path)), descriptor_(descriptor) {}
  ~PosixFileLock() override {
    // Removed while it is held: who waits for it finds another file, or none, under the name.
    ::unlink(path_.c_str());
    ::close(descriptor_);
  }
  PosixFileLock(const PosixFileLock&) = delete;
  PosixFileLock& operator=(const PosixFileLock&) = delete;

 private:
  fs::path path_;
  int descriptor_;
};

int OpenLockFile(const fs::path& path, mode_t mode) {
  const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, mode);
  if (descriptor >= 0 || errno != EACCES) return descriptor;
  // Left behind by someone else: locking takes no right to write.
  const int readable = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (readable < 0) errno = EACCES;
  return readable;
}

std::error_code LockDescriptor(int descriptor) {
  if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return {};
  switch (errno) {
    case EWOULDBLOCK:
      return std::make_error_code(std::errc::device_or_resource_busy);
    case ENOLCK:
    case ENOSYS:
    case EOPNOTSUPP:
      return {};
    default:
      return LastError();
  }
}

bool IsStillNamed(int descriptor, const fs::path& path) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(descriptor, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

class PosixFileLayer final : public FileLayer {
 public:
  std::error_code Open(const fs::path& path, std::unique_ptr<InputFile>& file) override {
    return OpenInput(path, file);
  }

  std::error_code StampOf(const fs::path& path, std::optional<FileStamp>& stamp) override {
    stamp.reset();
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
      return errno == ENOENT || errno == ENOTDIR ? std::error_code() : LastError();
    }
    if (S_ISREG(status.st_mode)) stamp = StampFrom(status);
    return {};
  }

  std::error_code Create(const fs::path& path, const fs::path& like,
                         std::unique_ptr<OutputFile>& file) override {
    struct stat model {};
    const bool copied = ::stat(like.c_str(), &model) == 0;
    const mode_t mode = copied ? (model.st_mode & 07777u) : 0666u;
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0) return LastError();
    file = std::make_unique<PosixOutputFile>(descriptor);
    if (copied) {
      // Only root may give a file away; for everyone else it is their own file as before. The
      // rights come after the owner, whose change clears some of them.
      if (::fchown(descriptor, model.st_uid, model.st_gid) != 0 && errno != EPERM) {
        return LastError();
      }
      if (::fchmod(descriptor, mode) != 0 && errno != EPERM) return LastError();
    }
    return {};
  }

  std::error_code OpenForAppending(const fs::path& path,
                                   std::unique_ptr<OutputFile>& file) override {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (descriptor < 0) return LastError();
    file = std::make_unique<PosixOutputFile>(descriptor);
    return {};
  }

  std::error_code MoveOver(const fs::path& from, const fs::path& to) override {
    if (::rename(from.c_str(), to.c_str()) != 0) return LastError();
    // The new file is in place: a folder that cannot be flushed (some network shares) is no
    // reason to report the write as failed.
    [[maybe_unused]] const std::error_code dropped = SyncFolder(to.parent_path());
    return {};
  }

  std::error_code Remove(const fs::path& path) override {
    return ::unlink(path.c_str()) == 0 || errno == ENOENT ? std::error_code() : LastError();
  }

  std::error_code TryLock(const fs::path& path, std::unique_ptr<FileLock>& lock) override {
    fs::path name = path;
    name += ".lock";
    struct stat model {};
    const mode_t mode = ::stat(path.c_str(), &model) == 0 ? (model.st_mode & 0777u) : 0666u;
    const int descriptor = OpenLockFile(name, mode);
    if (descriptor < 0) return LastError();
    std::error_code error = LockDescriptor(descriptor);
    if (!error && !IsStillNamed(descriptor, name)) {
      error = std::make_error_code(std::errc::device_or_resource_busy);
    }
    if (error) {
      ::close(descriptor);
      return error;
    }
    lock = std::make_unique<PosixFileLock>(std::move(name), descriptor);
    return {};
  }
};

}  // namespace

FileLayer& SystemFiles() {
  static PosixFileLayer files;
  return files;
}

bool IsReadOnly(const fs::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return false;
  return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || ::access(path.c_str(), W_OK) != 0;
}

}  // namespace zentab::platform
