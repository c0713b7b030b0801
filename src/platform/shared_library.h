#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace zentab::platform {

/// The address of a function whose type only the caller knows.
using FunctionAddress = void (*)();

/// A shared library that is loaded as long as this lives.
class SharedLibrary {
 public:
  virtual ~SharedLibrary() = default;

  /// The function exported under exactly this name; null when there is none.
  [[nodiscard]] virtual FunctionAddress Find(const std::string& name) const = 0;
};

/// A library, or what the system said when it could not be loaded (UTF-8, its language).
struct LoadedLibrary {
  std::unique_ptr<SharedLibrary> library;
  std::string failure;
};

/// Loads a library and runs its start-up code. A name without a folder is searched for by the
/// system's own rules. A file that is no library, or one for another processor, is a failure.
[[nodiscard]] LoadedLibrary LoadSharedLibrary(const std::filesystem::path& path);

}  // namespace zentab::platform
