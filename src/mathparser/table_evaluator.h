#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "mathparser/expression_table.h"

namespace zentab::mathparser {

/// Evaluates an expression table row by row and keeps what every row got and gave: slower than
/// the lowered program, but it can tell which row has failed.
class TableEvaluator {
 public:
  /// What stands in a row's slots and what came out of it.
  struct RowValues {
    std::array<double, kMaxArguments> arguments{};
    double result = 0.0;
  };

  /// The values of a table that has not been evaluated yet: literals in their slots, else 0.
  void Reset(const ExpressionTable& table);

  /// Forgets all values; the next evaluation begins with those of Reset.
  void Clear() { rows_.clear(); }

  /// Evaluates with the angle factor and the variables as a program takes them. On false Error()
  /// and ErrorPosition()
  /// name the row, unless nobody asks; the rows before it keep their values.
  [[nodiscard]] bool Evaluate(const ExpressionTable& table, const double* values,
                              RandomSource& random, std::string_view decimalSeparator,
                              bool explains = true);

  [[nodiscard]] double Result() const { return result_; }
  [[nodiscard]] const std::string& Error() const { return error_; }
  /// The row's character in the trimmed text, from 1.
  [[nodiscard]] int ErrorPosition() const { return errorPosition_; }
  [[nodiscard]] const std::vector<RowValues>& Rows() const { return rows_; }

 private:
  void CopyVariables(const ExpressionTable& table, const double* values);

  std::vector<RowValues> rows_;
  double result_ = 0.0;
  std::string error_;
  int errorPosition_ = 0;
};

}  // namespace zentab::mathparser
