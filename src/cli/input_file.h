#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "platform/private_file.h"

namespace zentab::cli {

/// A file that a command only reads: the named one or, for "-", what comes in on standard input,
/// kept in a private temporary file as long as this lives.
class InputFile {
 public:
  /// What standard input is called.
  static constexpr const char* kStandardInput = "standard input";

  explicit InputFile(const std::string& name);

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// What to call it in messages.
  [[nodiscard]] const std::string& Name() const { return name_; }
  /// Why it cannot be read; no error when it can.
  [[nodiscard]] std::error_code Error() const { return error_; }

 private:
  [[nodiscard]] std::error_code Spool();

  std::string name_;
  std::filesystem::path path_;
  std::error_code error_;
  std::unique_ptr<platform::PrivateFile> spooled_;
};

/// All of standard input; nothing when it cannot be read to its end.
[[nodiscard]] std::optional<std::string> StandardInput();

/// Whether both names lead to one file that exists, through links as well.
[[nodiscard]] bool AreOneFile(const std::filesystem::path& one, const std::filesystem::path& other);

}  // namespace zentab::cli
