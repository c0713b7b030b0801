#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zentab::mathparser::bench {

/// A formula in the three ways in which it is measured. The native function takes the variables in
/// the order in which they first appear in the text.
struct Formula {
  std::string_view text;
  std::string_view muParserText;
  std::vector<std::string_view> variables;
  double (*native)(const double* v);
  double lowest;  // of the random inputs
  double highest;
};

[[nodiscard]] std::span<const Formula> Formulas();

}  // namespace zentab::mathparser::bench
