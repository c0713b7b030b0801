#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zentab::platform {

/// In bytes; a larger one is not read.
inline constexpr std::size_t kLargestIniFile = 16u << 20;

/// The text of an INI file that is changed value by value: lines that mean nothing here, comments
/// and the order of all lines stay as they are. Section and key names match without regard to
/// case; blanks around names are dropped, a value is everything after its "=".
class IniText {
 public:
  explicit IniText(std::string text) : text_(std::move(text)) {}

  [[nodiscard]] std::optional<std::string> Find(std::string_view section,
                                                std::string_view key) const;

  /// Replaces the value, or adds key or section where they are missing. False, and nothing
  /// changed, when a name or the value holds a line break.
  [[nodiscard]] bool Set(std::string_view section, std::string_view key, std::string_view value);

  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  struct Place {
    std::size_t lastKeyEnd = std::string::npos;  // behind the section's last key, when it exists
    std::size_t valueBegin = std::string::npos;  // when the key exists
    std::size_t valueEnd = std::string::npos;
  };
  [[nodiscard]] Place Locate(std::string_view section, std::string_view key) const;

  std::string text_;
};

}  // namespace zentab::platform
