#include "interchange/cell_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "texts/characters.h"

namespace zentab::interchange {
namespace {

constexpr std::size_t kLongestNumber = 400;

std::optional<double> PlainNumber(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  // No "inf" and no "nan".
  if (text.size() <= first || (!texts::IsDigit(text[first]) && text[first] != '.'))
    return std::nullopt;
  double number = 0.0;
  const char* const end = text.data() + text.size();
  const auto [at, error] = std::from_chars(text.data(), end, number);
  if (at != end || error != std::errc() || !std::isfinite(number)) return std::nullopt;
  return number;
}

// With "," as the decimal sign and no groups.
std::optional<double> CommaNumber(std::string_view cell) {
  std::array<char, kLongestNumber> buffer;
  const auto end = std::ranges::copy(cell, buffer.begin()).out;
  if (const auto sign = std::find(buffer.begin(), end, ','); sign != end) *sign = '.';
  return PlainNumber({buffer.data(), cell.size()});
}

// Takes the groups' signs out; false where they do not stand before three digits each.
bool TakeGroupsOut(std::string& text, char decimalSign, char groupSign) {
  const std::size_t end = std::min(text.find(decimalSign), text.size());
  std::size_t groups = 0;
  for (std::size_t at = end; at-- > 0;) {
    if (text[at] != groupSign) continue;
    ++groups;
    const std::size_t fromEnd = end - at - groups;
    if (fromEnd != 3 * groups || at == 0 || !texts::IsDigit(text[at - 1])) return false;
  }
  if (text.find(groupSign, end) != std::string::npos) return false;
  std::erase(text, groupSign);
  // One group without decimals may as well be decimals.
  return groups != 1 || end < text.size() + groups;
}

std::string WithoutBlankGroups(std::string_view cell) {
  std::string text(cell);
  for (const std::string_view blank : {"\u00A0", "\u202F"}) {
    for (std::size_t at = text.find(blank); at != std::string::npos; at = text.find(blank, at)) {
      text.erase(at, blank.size());
    }
  }
  return text;
}

}  // namespace

std::optional<double> CellNumber(std::string_view cell, char decimalSign) {
  const char groupSign = decimalSign == '.' ? ',' : '.';
  const bool isPlain = cell.find(groupSign) == std::string_view::npos &&
                       cell.find_first_of("\xC2\xE2") == std::string_view::npos;
  if (isPlain && decimalSign == '.') return PlainNumber(cell);
  if (cell.size() > kLongestNumber) return std::nullopt;
  if (isPlain) return CommaNumber(cell);
  std::string text = WithoutBlankGroups(cell);
  if (text.find(groupSign) != std::string::npos && !TakeGroupsOut(text, decimalSign, groupSign)) {
    return std::nullopt;
  }
  const std::size_t sign = text.find(decimalSign);
  if (sign != std::string::npos) text[sign] = '.';
  return PlainNumber(text);
}

bool IsCellNumber(std::string_view cell) {
  return CellNumber(cell, '.').has_value() || CellNumber(cell, ',').has_value();
}

}  // namespace zentab::interchange
