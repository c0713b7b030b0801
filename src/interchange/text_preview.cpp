#include "interchange/text_preview.h"

#include <algorithm>

#include "interchange/cell_table.h"

namespace zentab::interchange {
namespace {

constexpr std::size_t kBeginning = 256u << 10;
constexpr std::size_t kLongestCell = 200;

// The rest of a character that was cut may follow; it is shown as none.
std::string Shortened(std::string_view cell) { return std::string(cell.substr(0, kLongestCell)); }

std::string Beginning(std::string_view bytes, Encoding encoding) {
  return Decoded(std::string(bytes.substr(0, kBeginning)), encoding);
}

}  // namespace

std::vector<ShownRow> FirstRows(std::string_view bytes, Encoding encoding, char separator) {
  std::string text = Beginning(bytes, encoding);
  [[maybe_unused]] const std::optional<char> named = TakeSeparatorLine(text);
  const CellTable table(std::move(text), separator, kShownRows);
  std::vector<ShownRow> rows;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    ShownRow& shown = rows.emplace_back();
    shown.line = table.LineOf(row);
    for (const std::string_view cell : table.Row(row)) {
      if (shown.cells.size() < kShownCells) shown.cells.push_back(Shortened(cell));
    }
  }
  return rows;
}

std::vector<ShownRow> FirstLines(std::string_view bytes) {
  std::vector<ShownRow> rows;
  std::string_view rest = bytes.substr(0, kBeginning);
  while (!rest.empty() && rows.size() < kShownRows) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    rows.push_back({rows.size() + 1, {Shortened(line)}});
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return rows;
}

char SeparatorOf(std::string_view bytes, Encoding encoding, char decimalSign) {
  std::string text = Beginning(bytes, encoding);
  const std::optional<char> named = TakeSeparatorLine(text);
  return named ? *named : GuessSeparator(text, decimalSign);
}

}  // namespace zentab::interchange
