#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "interchange/name_index.h"
#include "platform/file_layer.h"

namespace zentab::interchange {

/// A table file in memory, every byte of it.
class LibraryText {
 public:
  /// Reads a table file. Fails with what the system says, also when there is none.
  [[nodiscard]] static std::error_code Read(platform::FileLayer& files,
                                            const std::filesystem::path& file, LibraryText& result);

  /// Whether a byte-order mark stands in front of the lines.
  [[nodiscard]] bool HasByteOrderMark() const { return hasMark_; }
  [[nodiscard]] std::size_t LineCount() const { return lines_.size(); }
  /// A line's bytes without its line end, and the line end: CR LF, LF, CR, or nothing at the end
  /// of the file.
  [[nodiscard]] std::string_view Line(std::size_t line) const;
  [[nodiscard]] std::string_view Ending(std::size_t line) const;
  /// The entries' names, and the lines that they stand in.
  [[nodiscard]] NamedLines Names() const;

 private:
  struct Place {
    std::size_t begin;
    std::size_t length;
    std::size_t ending;
  };

  void Split(std::size_t begin);

  std::string bytes_;
  std::vector<Place> lines_;
  bool hasMark_ = false;
};

}  // namespace zentab::interchange
