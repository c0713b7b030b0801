#pragma once

#include <cstdlib>
#include <filesystem>

namespace zentab::test {

/// Gives this process an environment variable that names a folder.
inline void SetFolderVariable(const char* name, const std::filesystem::path& folder) {
#ifdef _WIN32
  _putenv_s(name, folder.string().c_str());
#else
  ::setenv(name, folder.c_str(), 1);
#endif
}

}  // namespace zentab::test
