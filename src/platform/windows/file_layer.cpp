#include "platform/file_layer.h"

#include <windows.h>

#include <algorithm>

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

  std::error_code Size(std::uint64_t& size) override {
    LARGE_INTEGER value{};
    if (GetFileSizeEx(handle_, &value) == 0) return LastError();
    size = static_cast<std::uint64_t>(value.QuadPart);
    return {};
  }

  std::error_code Truncate(std::uint64_t size) override {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(size);
    if (SetFilePointerEx(handle_, place, nullptr, FILE_BEGIN) == 0) return LastError();
    return SetEndOfFile(handle_) != 0 ? std::error_code() : LastError();
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

class WindowsFileLayer final : public FileLayer {
 public:
  // Access rights come from the folder, as for every new file on Windows.
  std::error_code Create(const fs::path& path, const fs::path&,
                         std::unique_ptr<OutputFile>& file) override {
    return OpenFile(path, CREATE_NEW, FILE_BEGIN, file);
  }

  std::error_code OpenForAppending(const fs::path& path,
                                   std::unique_ptr<OutputFile>& file) override {
    return OpenFile(path, OPEN_ALWAYS, FILE_END, file);
  }

  std::error_code MoveOver(const fs::path& from, const fs::path& to) override {
    return MoveFileExW(from.c_str(), to.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0
               ? std::error_code()
               : LastError();
  }

  std::error_code Remove(const fs::path& path) override {
    if (DeleteFileW(path.c_str()) != 0) return {};
    const DWORD error = GetLastError();
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return {};
    return {static_cast<int>(error), std::system_category()};
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
