#include "interchange/curve_csv.h"

#include <algorithm>
#include <array>

#include "texts/number_text.h"

namespace zentab::interchange {
namespace {

// What begins a formula in one spreadsheet or another, also behind blanks.
constexpr std::array<std::string_view, 11> kFormulaStarts = {
    "=", "+", "-", "@", "\t", "\r", "\n", "\uFF1D", "\uFF0B", "\uFF0D", "\uFF20"};

bool NeedsMark(std::string_view text) {
  if (text.starts_with('\'')) return true;
  const std::string_view trimmed = texts::TrimBlanks(text);
  return std::ranges::any_of(
      kFormulaStarts, [trimmed](std::string_view start) { return trimmed.starts_with(start); });
}

std::string NumberOrText(const std::string& cell, const CsvNotation& notation) {
  if (!texts::WholeNumber(cell)) return TextCell(cell, notation.separator);
  std::string number(texts::TrimBlanks(cell));
  std::ranges::replace(number, '.', notation.decimalSign);
  return number;
}

}  // namespace

std::string TextCell(std::string_view text, char separator) {
  std::string cell(NeedsMark(text) ? "'" : "");
  cell += text;
  const std::array special = {separator, '"', '\r', '\n', '\t'};
  if (cell.find_first_of(std::string_view(special.data(), special.size())) == std::string::npos) {
    return cell;
  }
  std::string quoted = "\"";
  for (const char c : cell) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string_view PlainText(std::string_view cell) {
  const bool isMarked = cell.starts_with('\'') && NeedsMark(cell.substr(1));
  return isMarked ? cell.substr(1) : cell;
}

std::string CsvOf(const tables::CurveTableEntry& entry, const CsvNotation& notation) {
  const bool isVoltage = entry.instrument == tables::Instrument::Voltage;
  const std::string_view load = !entry.absoluteValues ? "Load [multiple]"
                                : isVoltage           ? "Load [V]"
                                                      : "Load [A]";
  std::string rows(load);
  rows += notation.separator;
  rows += TextCell(entry.name + (entry.milliseconds ? " [ms]" : " [s]"), notation.separator) + '\n';
  for (const tables::CurvePoint& point : entry.points) {
    rows += NumberOrText(point.load, notation) + notation.separator;
    rows += NumberOrText(point.time, notation) + '\n';
  }
  return rows;
}

}  // namespace zentab::interchange
