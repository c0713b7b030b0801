#include "interchange/fault.h"

#include <array>
#include <string_view>

namespace zentab::interchange {
namespace {

using T = texts::InterchangeTexts;

// In the order of FaultKind.
constexpr std::array kTexts = {&T::noText,    &T::tooManyLines,  &T::oneColumn,    &T::noNumbers,
                               &T::badNumber, &T::missingNumber, &T::noColumn,     &T::noCurve,
                               &T::noJson,    &T::otherJson,     &T::otherVersion, &T::badField};
static_assert(kTexts.size() == static_cast<std::size_t>(FaultKind::BadField) + 1);

std::string Filled(std::string text, std::string_view field, std::string_view value) {
  const std::size_t at = text.find(field);
  return at == std::string::npos ? text : text.replace(at, field.size(), value);
}

}  // namespace

std::string FaultText(const Fault& fault, const texts::InterchangeTexts& texts) {
  std::string why = Filled(texts.*kTexts[static_cast<std::size_t>(fault.kind)], "%1", fault.text);
  if (fault.line == 0) return why;
  std::string text = fault.column > 0 ? texts.lineAndColumn : texts.line;
  text = Filled(std::move(text), "%1", std::to_string(fault.line));
  text = Filled(std::move(text), "%2", std::to_string(fault.column));
  return Filled(std::move(text), "%3", why);
}

}  // namespace zentab::interchange
