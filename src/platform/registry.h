#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zentab::platform {

enum class RootKey { LocalMachine, CurrentUser };

/// The registry in which the test-set suite leaves its installation folder.
class Registry {
 public:
  virtual ~Registry() = default;

  /// The text of a value, or nothing when the key or the value is missing, unreadable or longer
  /// than 1023 characters. A string ends at its first NUL; a 32-bit number comes as its unsigned
  /// decimal text. A 64-bit program on Windows finds what 32-bit ones wrote, too.
  [[nodiscard]] virtual std::optional<std::string> ReadRegistryValue(
      RootKey root, std::string_view keyPath, std::string_view valueName) const = 0;
};

/// The system's registry, unless the environment variable ZENTAB_REGISTRY_DIR names a folder: then,
/// and where the platform has no registry, the INI file "registry.ini" in that folder, else in the
/// user's configuration folder. A section is a key path with its root
/// (HKEY_LOCAL_MACHINE\SOFTWARE\...), a number is written as in exported registry files,
/// dword:0000001f. A relative name is that of a folder in what is the working folder now.
[[nodiscard]] std::unique_ptr<Registry> SystemRegistry();

}  // namespace zentab::platform
