#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zentab::interchange {

/// Stands for blanks and tabs, any number of them, between cells.
inline constexpr char kBlanks = ' ';

/// The rows of a text, as spreadsheets write them: cells with a separator between them, in quotes
/// where they hold separators, line ends or quotes, which are then doubled. Blanks around cells are
/// taken off. Takes time in proportion to the text.
class CellTable {
 public:
  /// Of UTF-8. At most `mostRows` rows are read.
  CellTable(std::string text, char separator, std::size_t mostRows = static_cast<std::size_t>(-1));
  CellTable(const CellTable&) = delete;  // the cells lie in the text
  CellTable& operator=(const CellTable&) = delete;
  ~CellTable() = default;

  [[nodiscard]] std::size_t RowCount() const { return rows_.size(); }
  [[nodiscard]] std::span<const std::string_view> Row(std::size_t row) const;
  /// The number, from 1, of the line in which a row begins.
  [[nodiscard]] std::size_t LineOf(std::size_t row) const { return rows_[row].line; }
  /// Whether all cells of a row are empty.
  [[nodiscard]] bool IsBlank(std::size_t row) const;

 private:
  struct RowPlace {
    std::size_t firstCell;
    std::size_t line;
  };

  void ReadRow(std::size_t& at, std::size_t& line);
  [[nodiscard]] std::string_view QuotedCell(std::size_t& at, std::size_t& line);
  [[nodiscard]] bool EndsCell(char c) const;

  std::string text_;
  char separator_;
  std::vector<std::string_view> cells_;
  std::vector<RowPlace> rows_;
};

/// Takes "sep=;" out of the first line, which spreadsheets write and read: the separator there.
[[nodiscard]] std::optional<char> TakeSeparatorLine(std::string& text);

/// The separator by which most of the first rows hold two numbers or more, and nothing else:
/// tab, ";", ",", "|" or blanks. `excluded` is the decimal sign where it is known, else 0.
[[nodiscard]] char GuessSeparator(std::string_view text, char excluded);

/// The decimal sign by which more cells of the first rows are numbers; "." where both do as well.
[[nodiscard]] char GuessDecimalSign(const CellTable& table);

}  // namespace zentab::interchange
