#include "curves/fault.h"

#include <array>

#include "texts/number_text.h"
#include "texts/template_text.h"

namespace zentab::curves {
namespace {

using T = texts::CurveTexts;

// In the order of FaultKind.
constexpr std::array kTexts = {&T::tooFewPoints,    &T::badLoad,         &T::badTime,
                               &T::equalLoads,      &T::logarithmOfLoad, &T::atOrBelowPickup,
                               &T::atOrAbovePickup, &T::noFiniteTime,    &T::badSetting,
                               &T::badEquation,     &T::unknownName,     &T::badRange,
                               &T::badPointCount,   &T::outsideTable,    &T::noCommonRange,
                               &T::cannotBeFitted,  &T::differentLoads,  &T::pickupNeeded};
static_assert(kTexts.size() == static_cast<std::size_t>(FaultKind::PickupNeeded) + 1);

}  // namespace

std::string FaultText(const Fault& fault, const texts::CurveTexts& texts,
                      std::string_view decimalSeparator) {
  const bool isNone = fault.kind == FaultKind::TooFewPoints && fault.value == 1.0;
  std::string message =
      isNone ? texts.noPoint : texts.*kTexts[static_cast<std::size_t>(fault.kind)];
  const std::size_t field = message.find("%1");
  if (field == std::string::npos) return message;
  return message.replace(
      field, 2, fault.text.empty() ? texts::NumberText(fault.value, decimalSeparator) : fault.text);
}

}  // namespace zentab::curves
