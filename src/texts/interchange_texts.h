#pragma once

#include <string>

namespace zentab::texts {

/// What is said of files of other programs: why one cannot be taken ("%1" is a number, a cell or a
/// name), and where ("%3" is why).
struct InterchangeTexts {
  std::string lineAndColumn = "line %1, column %2: %3";
  std::string line = "line %1: %3";
  std::string noText = "this is no text";
  std::string tooManyLines = "more than %1 lines";
  std::string oneColumn = "there is one column only; a load and a time are needed";
  std::string noNumbers = "no row of numbers";
  std::string badNumber = "'%1' is no number with this decimal sign";
  std::string missingNumber = "a load or a time is missing";
  std::string noColumn = "no column '%1'";
  std::string noCurve = "no curve %1";
  std::string noJson = "this is no JSON";
  std::string otherJson = "this is JSON, but no library of curve tables";
  std::string otherVersion = "version %1 of the format is not known here";
  std::string badField = "%1 is missing or not what it should be";
};

}  // namespace zentab::texts
