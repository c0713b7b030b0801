#include "platform/windows/file_replacement.h"

#include <windows.h>
// A macro, which would rename this program's own function of that name.
#undef ReplaceFile

#include <string>
#include <vector>

#include "platform/file_errors.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

std::error_code ErrorOf(DWORD error) { return {static_cast<int>(error), std::system_category()}; }

bool IsMissing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

// Whether the list has entries of its own, or keeps out what the folder hands down.
bool IsExplicit(PSECURITY_DESCRIPTOR access, bool isProtected) {
  BOOL isPresent = FALSE, isDefault = FALSE;
  PACL list = nullptr;
  if (GetSecurityDescriptorDacl(access, &isPresent, &list, &isDefault) == 0) return true;
  if (isProtected || isPresent == FALSE || list == nullptr) return true;
  for (DWORD index = 0; index < list->AceCount; ++index) {
    void* entry = nullptr;
    if (GetAce(list, index, &entry) == 0) return true;
    if ((static_cast<const ACE_HEADER*>(entry)->AceFlags & INHERITED_ACE) == 0) return true;
  }
  return false;
}

bool IsOpenElsewhere(const fs::path& path) {
  const HANDLE handle =
      CreateFileW(path.c_str(), GENERIC_READ | DELETE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
  CloseHandle(handle);
  return false;
}

// Some calls deny access to what others have open.
std::error_code Explained(DWORD error, const fs::path& from, const fs::path& to) {
  switch (error) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return FileError::OpenElsewhere;
    case ERROR_ACCESS_DENIED:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT_2:
      if (IsOpenElsewhere(to) || IsOpenElsewhere(from)) return FileError::OpenElsewhere;
      return ErrorOf(error);
    default:
      return ErrorOf(error);
  }
}

std::error_code Move(const fs::path& from, const fs::path& to) {
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (MoveFileExW(from.c_str(), to.c_str(), kHow) != 0) return {};
  return Explained(GetLastError(), from, to);
}

// For the former file. One that somebody still reads keeps its name on some systems until he is
// done, though it is removed; empty when all names are kept like that.
fs::path FreeNameBeside(const fs::path& path) {
  constexpr int kMostNames = 10;
  for (int number = 1; number <= kMostNames; ++number) {
    fs::path name = path;
    name += number == 1 ? std::wstring(L".replaced") : L".replaced" + std::to_wstring(number);
    DeleteFileW(name.c_str());
    if (!IsNamed(name)) return name;
  }
  return {};
}

// The new file has its access list already: nothing is lost by going without the system's help.
bool IsUnknownHere(DWORD error) {
  return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ||
         error == ERROR_CALL_NOT_IMPLEMENTED || error == ERROR_INVALID_PARAMETER;
}

}  // namespace

bool IsNamed(const fs::path& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return true;
}

std::error_code CopyAccessList(const fs::path& model, const fs::path& file) {
  DWORD size = 0;
  if (GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size) == 0) {
    const DWORD error = GetLastError();
    if (IsMissing(error)) return {};
    if (error != ERROR_INSUFFICIENT_BUFFER) return FileError::AccessListNotKept;
  }
  std::vector<std::byte> bytes(size);
  PSECURITY_DESCRIPTOR const access = bytes.data();
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  if (GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, access, size, &size) == 0 ||
      GetSecurityDescriptorControl(access, &control, &revision) == 0) {
    return FileError::AccessListNotKept;
  }
  const bool isProtected = (control & SE_DACL_PROTECTED) != 0;
  if (!IsExplicit(access, isProtected)) return {};
  const SECURITY_INFORMATION what =
      DACL_SECURITY_INFORMATION | (isProtected ? PROTECTED_DACL_SECURITY_INFORMATION : 0u);
  return SetFileSecurityW(file.c_str(), what, access) != 0 ? std::error_code()
                                                           : FileError::AccessListNotKept;
}

std::error_code TakeName(const fs::path& from, const fs::path& to) {
  if (!IsNamed(to)) return Move(from, to);
  const fs::path former = FreeNameBeside(to);
  if (former.empty()) return FileError::OpenElsewhere;
  if (ReplaceFileW(to.c_str(), from.c_str(), former.c_str(), 0, nullptr, nullptr) == 0) {
    const DWORD error = GetLastError();
    if (IsNamed(to)) return IsUnknownHere(error) ? Move(from, to) : Explained(error, from, to);
    // Done by half: the one file has left the name, and the other has not got it.
    if (const std::error_code failure = Move(from, to)) {
      [[maybe_unused]] const std::error_code dropped = Move(former, to);
      return failure;
    }
  }
  // A leftover is removed by the next replacement.
  DeleteFileW(former.c_str());
  return {};
}

}  // namespace zentab::platform
