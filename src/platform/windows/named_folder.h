#pragma once

#include <cstdlib>
#include <filesystem>

namespace zentab::platform {

/// The folder that the environment variable names, as an absolute path; empty when it names none.
[[nodiscard]] inline std::filesystem::path NamedFolder(const wchar_t* variable) {
  const wchar_t* const named = _wgetenv(variable);
  if (named == nullptr || *named == L'\0') return {};
  std::error_code error;
  return std::filesystem::absolute(named, error);
}

}  // namespace zentab::platform
