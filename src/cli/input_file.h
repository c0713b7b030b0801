#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace zentab::cli {

/// A file that a command only reads: the named one or, for "-", what comes in on standard input,
/// kept in a temporary file as long as this lives.
class InputFile {
 public:
  explicit InputFile(const std::string& name);
  ~InputFile();
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

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
  bool temporary_ = false;
};

/// All of standard input.
[[nodiscard]] std::string StandardInput();

}  // namespace zentab::cli
