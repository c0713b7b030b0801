#pragma once

#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

namespace zentab::platform {

/// A temporary file, gone when this is destroyed; where the system allows it also when the process
/// is ended in any other way.
class PrivateFile {
 public:
  virtual ~PrivateFile() = default;

  /// The name under which this process can read it.
  [[nodiscard]] virtual const std::filesystem::path& Path() const = 0;
};

/// Puts bytes into a new file that only its user may read, in the folder for temporary files and
/// under a name that nobody can guess or have taken before. After an error there is none.
[[nodiscard]] std::error_code WritePrivateFile(std::string_view bytes,
                                               std::unique_ptr<PrivateFile>& file);

}  // namespace zentab::platform
