#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/session.h"

namespace zentab::app {

/// A name that an equation may have, and what the user is told of it.
struct EquationWord {
  std::string text;     // as it is written; a function with its opening bracket
  std::string meaning;  // in one line or two
};

/// The variables of the equations for the import of a time test, and of that of a characteristic.
[[nodiscard]] std::vector<EquationWord> TimeTestVariables(const Session& session);
[[nodiscard]] std::vector<EquationWord> CharacteristicVariables(const Session& session);

/// What an equation may have: its variables, then functions and constants. Meanings of the latter
/// are English.
[[nodiscard]] std::vector<EquationWord> WordsFor(const Session& session,
                                                 const std::vector<EquationWord>& variables);
/// What may follow a number: the units, alone and with each prefix.
[[nodiscard]] std::vector<EquationWord> UnitWords();

/// The part of an equation that is being typed: the beginning of a name, or of a unit behind a
/// number. Places are bytes of the text.
struct WordAtCursor {
  std::size_t begin = 0;
  std::size_t end = 0;  // behind the cursor, where the name goes on
  bool isUnit = false;
};
/// Nothing where no name has begun.
[[nodiscard]] std::optional<WordAtCursor> WordAt(std::string_view equation, std::size_t cursor);

/// What is said of an equation as it is typed.
struct EquationRemark {
  std::string text;      // empty: nothing
  int character = -1;    // at fault, from 0; the length of the text where something is missing
  int length = 0;        // in characters
  bool isFault = false;  // it is no equation; else a name is not known, which counts as 0
};

/// An empty text is none, and nothing is said of it. Names count as known by `variables`.
[[nodiscard]] EquationRemark CheckEquation(const Session& session, std::string_view equation,
                                           const std::vector<EquationWord>& variables);

}  // namespace zentab::app
