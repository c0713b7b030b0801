#include "editor/grid_tidy.h"

#include <optional>
#include <string>

#include "texts/characters.h"
#include "texts/number_text.h"

namespace zentab::editor {
namespace {

constexpr int kDecimals = 3;

std::string Rounded(const std::string& cell, std::string_view separator) {
  const std::optional<double> number = texts::WholeNumber(texts::FileNumber(cell, separator));
  if (!number) return cell;
  return texts::NumberText(texts::RoundHalfEven(*number, kDecimals), separator);
}

std::string WithoutForeignCharacters(const std::string& cell, std::string_view separator) {
  const std::u32string before = texts::ToCharacters(cell);
  const std::u32string own = texts::ToCharacters(separator);
  std::u32string kept;
  // What follows a removed character slides into its place, where the walk has already been.
  bool slidIn = false;
  for (const char32_t character : before) {
    const bool isForeign =
        (character < U'!' || character > U'9') && own.find(character) == std::u32string::npos;
    const bool removed = !slidIn && isForeign;
    slidIn = removed;
    if (!removed) kept.push_back(character);
  }
  return kept.size() == before.size() ? cell : texts::FromCharacters(kept);
}

}  // namespace

void TidyGrid(CurveGrid& grid, std::string_view localeDecimalSeparator) {
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    for (int column = kLoadColumn; column <= kTimeColumn; ++column) {
      const std::string rounded = Rounded(grid.Cell(row, column), localeDecimalSeparator);
      grid.SetCell(row, column, WithoutForeignCharacters(rounded, localeDecimalSeparator));
    }
  }
}

}  // namespace zentab::editor
