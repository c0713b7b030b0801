#include "platform/file_layer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_errors.h"
#include "platform/posix/file_access.h"
#include "platform/posix/file_lock.h"
#include "platform/posix/input_file.h"
#include "platform/posix/last_error.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

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
    if (!copied && errno != ENOENT && errno != ENOTDIR) return LastError();
    // Nobody else opens the file before it has the rights that it is to have.
    const mode_t mode = copied ? S_IRUSR | S_IWUSR : 0666u;
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0) return LastError();
    file = std::make_unique<PosixOutputFile>(descriptor);
    return copied ? CopyAccess(like, model, descriptor) : std::error_code();
  }

  std::error_code OpenForAppending(const fs::path& path,
                                   std::unique_ptr<OutputFile>& file) override {
    struct stat status {};
    // Opening alone may do something to a device.
    if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
      return FileError::NoRegularFile;
    }
    constexpr int kFlags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const int descriptor = ::open(path.c_str(), kFlags, 0666);
    // A pipe, in place since the look at it, that nobody reads.
    if (descriptor < 0)
      return errno == ENXIO ? make_error_code(FileError::NoRegularFile) : LastError();
    auto opened = std::make_unique<PosixOutputFile>(descriptor);
    if (::fstat(descriptor, &status) != 0) return LastError();
    if (!S_ISREG(status.st_mode)) return FileError::NoRegularFile;
    file = std::move(opened);
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
    return TryLockFile(name, lock);
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

bool HasOtherNames(const fs::path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink > 1;
}

}  // namespace zentab::platform
