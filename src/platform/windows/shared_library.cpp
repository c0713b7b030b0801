#include "platform/shared_library.h"

#include <windows.h>

#include "platform/paths.h"
#include "platform/windows/wide_text.h"

namespace zentab::platform {
namespace {

class WindowsLibrary final : public SharedLibrary {
 public:
  explicit WindowsLibrary(HMODULE handle) : handle_(handle) {}
  ~WindowsLibrary() override { FreeLibrary(handle_); }
  WindowsLibrary(const WindowsLibrary&) = delete;
  WindowsLibrary& operator=(const WindowsLibrary&) = delete;

  FunctionAddress Find(const std::string& name) const override {
    return reinterpret_cast<FunctionAddress>(
        reinterpret_cast<void*>(GetProcAddress(handle_, name.c_str())));
  }

 private:
  HMODULE handle_;
};

std::string MessageOf(DWORD error) {
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::string message = ToUtf8(std::wstring_view(text == nullptr ? L"" : text, length));
  LocalFree(text);
  while (!message.empty() && static_cast<unsigned char>(message.back()) <= ' ') message.pop_back();
  return message.empty() ? std::to_string(error) : message;
}

}  // namespace

LoadedLibrary LoadSharedLibrary(const std::filesystem::path& path) {
  // Without this the system shows a message box of its own for a file that is no library.
  DWORD before = 0;
  SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before);
  // The libraries a module needs lie beside it.
  const DWORD search = path.is_absolute() ? LOAD_WITH_ALTERED_SEARCH_PATH : 0;
  HMODULE const handle = LoadLibraryExW(path.c_str(), nullptr, search);
  const DWORD error = GetLastError();
  SetThreadErrorMode(before, nullptr);
  if (handle != nullptr) return {std::make_unique<WindowsLibrary>(handle), {}};
  return {nullptr, ToText(path) + ": " + MessageOf(error)};
}

}  // namespace zentab::platform
