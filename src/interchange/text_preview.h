#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "interchange/text_encoding.h"

namespace zentab::interchange {

/// A row of a text of another program, at most kShownCells of its cells, each cut short.
struct ShownRow {
  std::size_t line = 1;  // in the text, from 1
  std::vector<std::string> cells;
};
inline constexpr std::size_t kShownRows = 300;
inline constexpr std::size_t kShownCells = 50;

/// The first rows of a text, at most kShownRows. Reads no more than the beginning of it.
[[nodiscard]] std::vector<ShownRow> FirstRows(std::string_view bytes, Encoding encoding,
                                              char separator);

/// The first lines of a text in UTF-8, each as one cell.
[[nodiscard]] std::vector<ShownRow> FirstLines(std::string_view bytes);

/// The separator that a text is taken to have: the one that "sep=" in its first line names, or the
/// guessed one. `decimalSign` where it is known, else 0.
[[nodiscard]] char SeparatorOf(std::string_view bytes, Encoding encoding, char decimalSign);

}  // namespace zentab::interchange
