#include "cli/input_file.h"

#include <array>
#include <cstdio>
#include <fstream>

#include "platform/paths.h"

namespace zentab::cli {
namespace {

namespace fs = std::filesystem;

std::error_code ErrorOfReading(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (error) return error;
  if (fs::is_directory(status)) return std::make_error_code(std::errc::is_a_directory);
  if (!fs::is_regular_file(status)) return std::make_error_code(std::errc::not_supported);
  if (std::ifstream(path, std::ios::binary).is_open()) return {};
  return std::make_error_code(std::errc::permission_denied);
}

}  // namespace

InputFile::InputFile(const std::string& name)
    : name_(name == "-" ? kStandardInput : name), path_(platform::ToPath(name)) {
  error_ = name == "-" ? Spool() : ErrorOfReading(path_);
}

std::error_code InputFile::Spool() {
  const std::optional<std::string> text = StandardInput();
  if (!text) return std::make_error_code(std::errc::io_error);
  const std::error_code error = platform::WritePrivateFile(*text, spooled_);
  if (!error) path_ = spooled_->Path();
  return error;
}

std::optional<std::string> StandardInput() {
  std::string text;
  std::array<char, 64u << 10> block;
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), stdin)) {
    text.append(block.data(), count);
  }
  // A folder or a closed stream is not an empty input.
  if (std::ferror(stdin) != 0) return std::nullopt;
  return text;
}

bool AreOneFile(const fs::path& one, const fs::path& other) {
  std::error_code missing;
  return fs::equivalent(one, other, missing);
}

}  // namespace zentab::cli
