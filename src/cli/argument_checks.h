#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace zentab::cli {

/// The name of a file to write: refuses "-", which stands for standard input alone.
extern const CLI::Validator kWrittenFile;
/// A decimal number with ".", in the range of a double: checks an option's text.
extern const CLI::Validator kNumber;
/// What keeps cells apart: one character, or "tab"; and the character of such a text.
extern const CLI::Validator kSeparator;
[[nodiscard]] char SeparatorOf(const std::string& text);
/// A whole number from 0.
extern const CLI::Validator kCount;
/// The number of a text that kNumber let through; 0 for an empty one.
[[nodiscard]] double NumberOf(const std::string& text);

}  // namespace zentab::cli
