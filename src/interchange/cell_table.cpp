#include "interchange/cell_table.h"

#include <algorithm>
#include <array>

#include "interchange/cell_number.h"
#include "texts/number_text.h"

namespace zentab::interchange {
namespace {

constexpr std::size_t kSeparatorRows = 1000;
constexpr std::size_t kSampleBytes = 64u << 10;

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

bool IsBlankChar(char c) { return c == ' ' || c == '\t'; }

// Rows of nothing but numbers; only where there are none, those that have other cells as well.
std::size_t ScoreOf(const CellTable& table) {
  std::size_t whole = 0;
  std::size_t parts = 0;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    const auto cells = table.Row(row);
    const auto numbers = std::ranges::count_if(cells, IsCellNumber);
    const auto empty =
        std::ranges::count_if(cells, [](std::string_view cell) { return cell.empty(); });
    if (numbers < 2) continue;
    ++(numbers + empty == std::ssize(cells) ? whole : parts);
  }
  return whole > 0 ? kSeparatorRows + whole : parts;
}

}  // namespace

CellTable::CellTable(std::string text, char separator, std::size_t mostRows)
    : text_(std::move(text)), separator_(separator) {
  std::size_t line = 1;
  for (std::size_t at = 0; at < text_.size() && rows_.size() < mostRows;) {
    ReadRow(at, line);
  }
}

bool CellTable::EndsCell(char c) const {
  return IsLineEnd(c) || c == separator_ || (separator_ == kBlanks && c == '\t');
}

std::span<const std::string_view> CellTable::Row(std::size_t row) const {
  const std::size_t end = row + 1 < rows_.size() ? rows_[row + 1].firstCell : cells_.size();
  return std::span(cells_).subspan(rows_[row].firstCell, end - rows_[row].firstCell);
}

bool CellTable::IsBlank(std::size_t row) const {
  return std::ranges::all_of(Row(row), [](std::string_view cell) { return cell.empty(); });
}

// Doubled quotes become one in the text itself.
std::string_view CellTable::QuotedCell(std::size_t& at, std::size_t& line) {
  const std::size_t begin = ++at;
  std::size_t end = begin;
  for (; at < text_.size(); ++at) {
    if (text_[at] == '"') {
      if (at + 1 >= text_.size() || text_[at + 1] != '"') break;
      ++at;
    }
    line += text_[at] == '\n' ? 1 : 0;
    text_[end++] = text_[at];
  }
  // What stands behind the closing quote is dropped.
  while (at < text_.size() && !EndsCell(text_[at])) ++at;
  return texts::TrimBlanks(std::string_view(text_).substr(begin, end - begin));
}

void CellTable::ReadRow(std::size_t& at, std::size_t& line) {
  rows_.push_back({cells_.size(), line});
  while (true) {
    while (at < text_.size() && text_[at] != separator_ && IsBlankChar(text_[at])) ++at;
    while (separator_ == kBlanks && at < text_.size() && IsBlankChar(text_[at])) ++at;
    const bool isAtEnd = at >= text_.size() || IsLineEnd(text_[at]);
    if (separator_ == kBlanks && isAtEnd) break;
    if (!isAtEnd && text_[at] == '"') {
      cells_.push_back(QuotedCell(at, line));
    } else {
      const std::size_t begin = at;
      while (at < text_.size() && !EndsCell(text_[at])) ++at;
      cells_.push_back(texts::TrimBlanks(std::string_view(text_).substr(begin, at - begin)));
    }
    if (at >= text_.size() || IsLineEnd(text_[at])) break;
    ++at;
  }
  if (at < text_.size() && text_[at] == '\r') ++at;
  if (at < text_.size() && text_[at] == '\n') ++at;
  ++line;
}

std::optional<char> TakeSeparatorLine(std::string& text) {
  constexpr std::string_view kMark = "sep=";
  if (!text.starts_with(kMark) || text.size() <= kMark.size() + 1) return std::nullopt;
  const char separator = text[kMark.size()];
  if (text.find_first_of("\r\n") != kMark.size() + 1) return std::nullopt;
  // The line stays, so that lines keep their numbers.
  text.erase(0, kMark.size() + 1);
  return separator;
}

char GuessSeparator(std::string_view text, char excluded) {
  const std::string_view sample = text.substr(0, kSampleBytes);
  char best = ',';
  std::size_t bestScore = 0;
  for (const char separator : {'\t', ';', ',', '|', kBlanks}) {
    if (separator == excluded) continue;
    const std::size_t score = ScoreOf(CellTable(std::string(sample), separator, kSeparatorRows));
    if (score > bestScore) {
      best = separator;
      bestScore = score;
    }
  }
  return best;
}

char GuessDecimalSign(const CellTable& table) {
  std::size_t points = 0;
  std::size_t commas = 0;
  for (std::size_t row = 0; row < std::min(table.RowCount(), kSeparatorRows); ++row) {
    for (const std::string_view cell : table.Row(row)) {
      points += CellNumber(cell, '.') ? 1 : 0;
      commas += CellNumber(cell, ',') ? 1 : 0;
    }
  }
  return commas > points ? ',' : '.';
}

}  // namespace zentab::interchange
