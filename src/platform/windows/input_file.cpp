#include "platform/windows/input_file.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/file_errors.h"
#include "platform/windows/last_error.h"

namespace zentab::platform {
namespace {

std::uint64_t Joined(DWORD high, DWORD low) {
  return (static_cast<std::uint64_t>(high) << 32) | low;
}

// Virus scanners and backups keep everyone out for moments.
HANDLE OpenPatiently(const std::filesystem::path& path) {
  constexpr std::chrono::seconds kLongestWait(1);
  constexpr std::chrono::milliseconds kPause(20);
  const auto start = std::chrono::steady_clock::now();
  for (;;) {
    const HANDLE handle = OpenShared(path, GENERIC_READ);
    if (handle != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION ||
        std::chrono::steady_clock::now() - start > kLongestWait) {
      return handle;
    }
    std::this_thread::sleep_for(kPause);
  }
}

class WindowsInputFile final : public InputFile {
 public:
  explicit WindowsInputFile(HANDLE handle) : handle_(handle) {}
  ~WindowsInputFile() override { CloseHandle(handle_); }
  WindowsInputFile(const WindowsInputFile&) = delete;
  WindowsInputFile& operator=(const WindowsInputFile&) = delete;

  std::error_code ReadAt(std::uint64_t offset, char* to, std::size_t size,
                         std::size_t& count) override {
    constexpr std::size_t kLargestRead = 1u << 30;
    count = 0;
    while (count < size) {
      OVERLAPPED place{};
      place.Offset = static_cast<DWORD>(offset + count);
      place.OffsetHigh = static_cast<DWORD>((offset + count) >> 32);
      DWORD got = 0;
      const auto wanted = static_cast<DWORD>(std::min(size - count, kLargestRead));
      if (ReadFile(handle_, to + count, wanted, &got, &place) == 0) {
        if (GetLastError() == ERROR_HANDLE_EOF) break;
        return LastError();
      }
      if (got == 0) break;
      count += got;
    }
    return {};
  }

  std::error_code Stamp(FileStamp& stamp) override {
    BY_HANDLE_FILE_INFORMATION about{};
    if (GetFileInformationByHandle(handle_, &about) == 0) return LastError();
    stamp = StampFrom(about);
    return {};
  }

 private:
  HANDLE handle_;
};

}  // namespace

FileStamp StampFrom(const BY_HANDLE_FILE_INFORMATION& about) {
  return {about.dwVolumeSerialNumber, Joined(about.nFileIndexHigh, about.nFileIndexLow),
          Joined(about.nFileSizeHigh, about.nFileSizeLow),
          Joined(about.ftLastWriteTime.dwHighDateTime, about.ftLastWriteTime.dwLowDateTime)};
}

HANDLE OpenShared(const std::filesystem::path& path, DWORD access) {
  return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                     nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::error_code OpenInput(const std::filesystem::path& path, std::unique_ptr<InputFile>& file) {
  const HANDLE handle = OpenPatiently(path);
  if (handle == INVALID_HANDLE_VALUE) {
    const std::error_code error = LastError();
    if (error.value() == ERROR_SHARING_VIOLATION) return FileError::OpenElsewhere;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool isFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isFolder ? std::make_error_code(std::errc::is_a_directory) : error;
  }
  if (GetFileType(handle) != FILE_TYPE_DISK) {
    CloseHandle(handle);
    return FileError::NoRegularFile;
  }
  file = std::make_unique<WindowsInputFile>(handle);
  return {};
}

}  // namespace zentab::platform
