#include "platform/file_layer.h"

#include <windows.h>

#include <algorithm>
#include <string>

#include "platform/file_errors.h"
#include "platform/windows/file_replacement.h"
#include "platform/windows/input_file.h"
#include "platform/windows/last_error.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

class WindowsOutputFile final : public OutputFile {
 public:
  explicit WindowsOutputFile(HANDLE handle) : handle_(handle) {}
  ~WindowsOutputFile() override {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }
  WindowsOutputFile(const WindowsOutputFile&) = delete;
  WindowsOutputFile& operator=(const WindowsOutputFile&) = delete;

  std::error_code Write(std::string_view bytes) override {
    constexpr std::size_t kLargestWrite = 1u << 30;
    while (!bytes.empty()) {
      const auto length = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
      DWORD written = 0;
      if (WriteFile(handle_, bytes.data(), length, &written, nullptr) == 0) return LastError();
      if (written == 0) return std::make_error_code(std::errc::no_space_on_device);
      bytes.remove_prefix(written);
    }
    return {};
  }

  std::error_code Flush() override {
    return FlushFileBuffers(handle_) != 0 ? std::error_code() : LastError();
  }

  std::error_code Stamp(FileStamp& stamp) override {
    BY_HANDLE_FILE_INFORMATION about{};
    if (GetFileInformationByHandle(handle_, &about) == 0) return LastError();
    stamp = StampFrom(about);
    return {};
  }

  std::error_code Close() override {
    const HANDLE handle = handle_;
    handle_ = INVALID_HANDLE_VALUE;
    return CloseHandle(handle) != 0 ? std::error_code() : LastError();
  }

 private:
  HANDLE handle_;
};

bool IsFolder(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// By a file of this thread's own that goes at once.
bool MayCreateBeside(fs::path path) {
  path +=
      L'-' + std::to_wstring(GetCurrentProcessId()) + L'-' + std::to_wstring(GetCurrentThreadId());
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  CloseHandle(handle);
  return true;
}

// A file that nobody else can open meanwhile, and that the system removes with its last handle.
class WindowsFileLock final : public FileLock {
 public:
  explicit WindowsFileLock(HANDLE handle) : handle_(handle) {}
  ~WindowsFileLock() override { CloseHandle(handle_); }
  WindowsFileLock(const WindowsFileLock&) = delete;
  WindowsFileLock& operator=(const WindowsFileLock&) = delete;

 private:
  HANDLE handle_;
};

class WindowsFileLayer final : public FileLayer {
 public:
  std::error_code Open(const fs::path& path, std::unique_ptr<InputFile>& file) override {
    return OpenInput(path, file);
  }

  std::error_code StampOf(const fs::path& path, std::optional<FileStamp>& stamp) override {
    stamp.reset();
    const HANDLE handle = OpenShared(path, FILE_READ_ATTRIBUTES);
    if (handle == INVALID_HANDLE_VALUE) {
      const std::error_code error = LastError();
      const bool isMissing = error == std::errc::no_such_file_or_directory;
      // A folder is no regular file either.
      return isMissing || IsFolder(path) ? std::error_code() : error;
    }
    BY_HANDLE_FILE_INFORMATION about{};
    const bool isKnown = GetFileInformationByHandle(handle, &about) != 0;
    const std::error_code error = isKnown ? std::error_code() : LastError();
    CloseHandle(handle);
    if (isKnown) stamp = StampFrom(about);
    return error;
  }

  std::error_code Create(const fs::path& path, const fs::path& like,
                         std::unique_ptr<OutputFile>& file) override {
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return LastError();
    file = std::make_unique<WindowsOutputFile>(handle);
    return like.empty() ? std::error_code() : CopyAccessList(like, path);
  }

  // Every write goes to the end as it is then, whoever else adds to the file.
  std::error_code OpenForAppending(const fs::path& path,
                                   std::unique_ptr<OutputFile>& file) override {
    const HANDLE handle =
        CreateFileW(path.c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return LastError();
    auto opened = std::make_unique<WindowsOutputFile>(handle);
    if (GetFileType(handle) != FILE_TYPE_DISK) return FileError::NoRegularFile;
    file = std::move(opened);
    return {};
  }

  std::error_code MoveOver(const fs::path& from, const fs::path& to) override {
    return TakeName(from, to);
  }

  std::error_code Remove(const fs::path& path) override {
    if (DeleteFileW(path.c_str()) != 0) return {};
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return {};
    if (error == ERROR_SHARING_VIOLATION) return FileError::OpenElsewhere;
    return {static_cast<int>(error), std::system_category()};
  }

  std::error_code TryLock(const fs::path& path, std::unique_ptr<FileLock>& lock) override {
    fs::path name = path;
    name += ".lock";
    const HANDLE handle =
        CreateFileW(name.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
      lock = std::make_unique<WindowsFileLock>(handle);
      return {};
    }
    const std::error_code error = LastError();
    // Between its last handle and its end the file is there, but closed to everyone. It may end
    // before it is looked for: what tells it from a closed folder is another file there.
    const bool isEnding =
        error.value() == ERROR_ACCESS_DENIED && (IsNamed(name) || MayCreateBeside(name));
    return isEnding || error.value() == ERROR_SHARING_VIOLATION ? FileError::LockedByOther : error;
  }
};

}  // namespace

FileLayer& SystemFiles() {
  static WindowsFileLayer files;
  return files;
}

bool IsReadOnly(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool HasOtherNames(const fs::path& path) {
  const HANDLE handle = OpenShared(path, FILE_READ_ATTRIBUTES);
  if (handle == INVALID_HANDLE_VALUE) return false;
  BY_HANDLE_FILE_INFORMATION about{};
  const bool isKnown = GetFileInformationByHandle(handle, &about) != 0;
  CloseHandle(handle);
  return isKnown && about.nNumberOfLinks > 1;
}

}  // namespace zentab::platform
