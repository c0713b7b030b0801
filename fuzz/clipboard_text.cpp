// Block text that is pasted, tidied and copied again. The first line of the input has the selected
// area as four letters (top, left, bottom, right) and the decimal separator; the text follows.

#include <algorithm>
#include <bit>
#include <cmath>

#include "editor/clipboard_text.h"
#include "editor/grid_tidy.h"
#include "fuzz/fuzzing.h"
#include "texts/number_text.h"

namespace zentab::fuzz {
namespace {

using editor::CellArea;
using editor::CurveGrid;
using editor::kFirstRow;
using editor::kLastRow;
using editor::kLoadColumn;
using editor::kTimeColumn;

constexpr CellArea kWholeGrid = {kFirstRow, kLoadColumn, kLastRow, kTimeColumn};

CellArea AreaOf(std::string_view letters) {
  const auto place = [letters](std::size_t at, int count) {
    return at < letters.size() ? 1 + static_cast<unsigned char>(letters[at]) % count : 1;
  };
  const auto [top, bottom] = std::minmax({place(0, kLastRow), place(2, kLastRow)});
  const auto [left, right] = std::minmax({place(1, kTimeColumn), place(3, kTimeColumn)});
  return {top, left, bottom, right};
}

std::optional<double> NumberOf(std::string_view cell) {
  return texts::WholeNumber(texts::SetDecimalSeparator(cell, "."));
}

void CheckNumbers(const std::string& cell) {
  const std::optional<double> whole = texts::WholeNumber(cell);
  if (!whole) return;
  Require(texts::LeadingNumber(cell) == whole, "a whole number leads its text");
  const std::string text = texts::NumberText(*whole, ".");
  const std::optional<double> again = texts::WholeNumber(text);
  // The largest numbers round to what no double holds.
  if (std::abs(*whole) > 1.7976931348623e308) return;
  Require(again && texts::NumberText(*again, ".") == text, "15 digits come back");
  Require(texts::WholeNumber(texts::FixedText(*whole, 6)).has_value(), "decimals are a number");
}

// A number that stays one is tidied once for all.
void CheckTidied(const CurveGrid& before, const CurveGrid& after, std::string_view separator) {
  // From here on 15 digits need an exponent, the letter of which tidying takes.
  constexpr double kFirstWithExponent = 999999999999999.0;
  CurveGrid again = after;
  editor::TidyGrid(again, separator);
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    for (int column = kLoadColumn; column <= kTimeColumn; ++column) {
      const std::optional<double> number = NumberOf(before.Cell(row, column));
      CheckNumbers(before.Cell(row, column));
      if (!number || std::abs(*number) >= kFirstWithExponent) continue;
      Require(NumberOf(after.Cell(row, column)).has_value(), "a number stays a number");
      Require(again.Cell(row, column) == after.Cell(row, column), "tidying twice changes nothing");
    }
  }
}

void CheckPaste(const CellArea& area, std::string_view separator, std::string_view text) {
  const std::string_view first = editor::FirstRow(text);
  Require(text.starts_with(first) && first.find_first_of("\r\n") == std::string_view::npos,
          "a row ends at its line end");
  editor::WorkingTable table;
  editor::PasteText(table, area, text, separator);
  Require(!table.tableModified, "a paste does not count as an edit");

  CurveGrid raw;
  std::string_view rest = text;
  for (int row = kFirstRow; row <= kLastRow && !rest.empty(); ++row) {
    std::string_view cells = TakeLine(rest);
    raw.SetCell(row, kLoadColumn, Take(cells, '\t'));
    raw.SetCell(row, kTimeColumn, Take(cells, '\t'));
  }
  CurveGrid tidied = raw;
  editor::TidyGrid(tidied, separator);
  CheckTidied(raw, tidied, separator);

  CurveGrid expected = table.grid;
  editor::TidyGrid(expected, separator);
  editor::WorkingTable copy;
  editor::PasteText(copy, kWholeGrid, editor::BlockText(table.grid, kWholeGrid), separator);
  Require(editor::BlockText(copy.grid, kWholeGrid) == editor::BlockText(expected, kWholeGrid),
          "a copied grid is pasted as it was");
  editor::ClearArea(table, area, separator);
  const std::string cleared = editor::BlockText(table.grid, area);
  Require(cleared.find_first_not_of("\t\r") == std::string::npos, "an area is cleared");
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = zentab::fuzz::InputOf(data, size);
  const std::string_view setting = zentab::fuzz::TakeLine(text);
  const std::string_view separator = setting.ends_with('.') ? "." : ",";
  zentab::fuzz::CheckPaste(zentab::fuzz::AreaOf(setting), separator, text);
  return 0;
}
