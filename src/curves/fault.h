#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "texts/catalogue_texts.h"

namespace zentab::curves {

/// Why there is no result. What `value` and `text` of a Fault hold stands behind each.
enum class FaultKind {
  TooFewPoints,     // value: how many are needed
  BadLoad,          // value: the point's number from 1; its load is negative or no number
  BadTime,          // value: the point's number; its time is zero, negative or no number
  EqualLoads,       // value: the load
  LogarithmOfLoad,  // value: the load, which logarithmic axes cannot show
  AtOrBelowPickup,  // value: the load
  AtOrAbovePickup,  // value: the load, of an undervoltage characteristic
  NoFiniteTime,     // value: the load
  BadSetting,       // text: which
  BadEquation,      // text: the evaluator's own words, with the position
  UnknownName,      // text: a name in the equation
  BadRange,         // the range of loads is empty
  BadPointCount,    // value: the most there may be
  OutsideTable,     // value: the load
  NoCommonRange,    //
  CannotBeFitted,   // text: the family's identifier
  DifferentLoads,   // one table has absolute loads, the other multiples of the pickup value
  PickupNeeded,     //
};

struct Fault {
  FaultKind kind;
  double value = 0.0;
  std::string text = {};

  friend bool operator==(const Fault&, const Fault&) = default;
};

/// A result, or why there is none.
template <class T>
using Outcome = std::variant<T, Fault>;

/// The fault of an outcome, null when there is a result.
template <class T>
[[nodiscard]] const Fault* FaultOf(const Outcome<T>& outcome) {
  return std::get_if<Fault>(&outcome);
}

/// What to tell the user; `decimalSeparator` is that of numbers in it.
[[nodiscard]] std::string FaultText(const Fault& fault, const texts::CurveTexts& texts,
                                    std::string_view decimalSeparator);

}  // namespace zentab::curves
