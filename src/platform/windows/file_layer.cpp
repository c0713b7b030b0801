#include "platform/file_layer.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/input_file.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

std::error_code LastError() { return {static_cast<int>(GetLastError()), std::system_category()}; }

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

std::error_code OpenFile(const fs::path& path, DWORD disposition, DWORD startAt,
                         std::unique_ptr<OutputFile>& file) {
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return LastError();
  file = std::make_unique<WindowsOutputFile>(handle);
  const LARGE_INTEGER none{};
  return SetFilePointerEx(handle, none, nullptr, startAt) != 0 ? std::error_code() : LastError();
}

bool IsFolder(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Whether something stands under the name. What is about to be removed lets nobody ask for its
// attributes, but its folder still lists it.
bool IsNamed(const fs::path& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
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

  // Access rights come from the folder, as for every new file on Windows.
  std::error_code Create(const fs::path& path, const fs::path&,
                         std::unique_ptr<OutputFile>& file) override {
    return OpenFile(path, CREATE_NEW, FILE_BEGIN, file);
  }

  std::error_code OpenForAppending(const fs::path& path,
                                   std::unique_ptr<OutputFile>& file) override {
    return OpenFile(path, OPEN_ALWAYS, FILE_END, file);
  }

  // Who just reads the file's former content keeps it from being replaced for a moment.
  std::error_code MoveOver(const fs::path& from, const fs::path& to) override {
    constexpr int kTries = 10;
    constexpr DWORD kPause = 20;  // milliseconds
    for (int left = kTries;; --left) {
      if (MoveFileExW(from.c_str(), to.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
        return {};
      }
      const std::error_code error = LastError();
      const bool mayPass =
          error.value() == ERROR_SHARING_VIOLATION || error.value() == ERROR_ACCESS_DENIED;
      if (!mayPass || left == 0) return error;
      Sleep(kPause);
    }
  }

  std::error_code Remove(const fs::path& path) override {
    if (DeleteFileW(path.c_str()) != 0) return {};
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return {};
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
    // Between its last handle and its end the file is there, but closed to everyone.
    const bool isEnding = error.value() == ERROR_ACCESS_DENIED && IsNamed(name);
    return error.value() == ERROR_SHARING_VIOLATION || isEnding
               ? std::make_error_code(std::errc::device_or_resource_busy)
               : error;
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

}  // namespace zentab::platform
