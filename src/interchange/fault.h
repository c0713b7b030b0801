#pragma once

#include <cstddef>
#include <string>
#include <variant>

#include "texts/interchange_texts.h"

namespace zentab::interchange {

/// Why a file of another program cannot be taken. What `text` of a Fault holds stands behind each.
enum class FaultKind {
  NoText,         // bytes that no text has
  TooManyLines,   // text: the most there may be
  OneColumn,      // no load and time side by side
  NoNumbers,      // no row of numbers
  BadNumber,      // text: the cell
  MissingNumber,  // a load without a time, or a time without a load
  NoColumn,       // text: the column that was asked for
  NoCurve,        // text: the curve that was asked for
  NoJson,         // not the syntax of JSON
  OtherJson,      // JSON, but no library
  OtherVersion,   // text: the version
  BadField,       // text: the field that is missing or of another kind
};

struct Fault {
  FaultKind kind;
  std::string text = {};
  std::size_t line = 0;    // from 1; 0: of the file as a whole
  std::size_t column = 0;  // in characters from 1; 0: of the line as a whole

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

/// What to tell the user, the place in front.
[[nodiscard]] std::string FaultText(const Fault& fault, const texts::InterchangeTexts& texts);

}  // namespace zentab::interchange
