#include "mathparser/table_evaluator.h"

#include <algorithm>
#include <cmath>

#include "mathparser/function_catalogue.h"
#include "mathparser/instruction.h"
#include "mathparser/number_text.h"

namespace zentab::mathparser {
namespace {

// Operators are written between their arguments; "!" and "%" have only one and are shown like a
// function.
bool IsInfix(const Row& row) {
  const char first = row.function->keyword.front();
  return row.arguments == 2 && !(first >= 'a' && first <= 'z') && first != '@';
}

std::string RowText(const ExpressionTable& table, const Row& row,
                    const TableEvaluator::RowValues& values, std::string_view decimalSeparator) {
  const auto number = [&](std::size_t slot) {
    return NumberText(values.arguments[slot], decimalSeparator);
  };
  const std::string name(table.FunctionText(row));
  if (IsInfix(row)) return number(0) + " " + name + " " + number(1);
  std::string text = name + "(";
  for (std::size_t slot = 0; slot < static_cast<std::size_t>(row.arguments); ++slot) {
    if (slot > 0) text += ';';
    text += number(slot);
  }
  return text + ")";
}

// "@Right" looks at its second argument only; the first slot holds a copy that is nobody's.
bool AllFinite(const Row& row, const TableEvaluator::RowValues& values) {
  const std::size_t first = row.function == &operators::kRight ? 1 : 0;
  return std::all_of(values.arguments.begin() + static_cast<std::ptrdiff_t>(first),
                     values.arguments.begin() + row.arguments,
                     [](double value) { return std::isfinite(value); });
}

}  // namespace

void TableEvaluator::Reset(const ExpressionTable& table) {
  rows_.assign(table.rows.size(), {});
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    for (std::size_t slot = 0; slot < 2; ++slot) {
      rows_[i].arguments[slot] = table.rows[i].operand[slot].value;
    }
  }
  result_ = 0.0;
}

void TableEvaluator::CopyVariables(const ExpressionTable& table, const double* values) {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    for (std::size_t slot = 0; slot < 2; ++slot) {
      const Operand& operand = table.rows[i].operand[slot];
      if (operand.variable != 0) {
        rows_[i].arguments[slot] = operand.sign * values[operand.variable];
      }
    }
  }
}

bool TableEvaluator::Evaluate(const ExpressionTable& table, const double* values,
                              RandomSource& random, std::string_view decimalSeparator) {
  if (rows_.size() != table.rows.size()) Reset(table);
  CopyVariables(table, values);
  result_ = 0.0;
  for (const std::int16_t number : table.order) {
    const Row& row = table.At(number);
    RowValues& at = rows_[static_cast<std::size_t>(number) - 1];
    at.result = 0.0;
    if (row.guard == 0 || rows_[static_cast<std::size_t>(row.guard) - 1].result != 0.0) {
      CallContext context{values[kAngleFactorPlace], &random, {}};
      if (row.function->kernel == nullptr) {
        error_ = "Function <" + std::to_string(row.function->code) + "> missing?";
        return false;
      }
      const bool goesIn = AllFinite(row, at);
      if (goesIn) at.result = row.function->kernel(at.arguments.data(), context);
      if (!goesIn || !std::isfinite(at.result)) {
        at.result = 0.0;
        error_ = context.message;
        if (error_.empty()) {
          error_ = "Evaluation error < " + RowText(table, row, at, decimalSeparator) +
                   " > at pos: " + std::to_string(row.position);
        }
        return false;
      }
      if (row.sign < 0) at.result = -at.result;
    }
    result_ = at.result;
    if (row.argumentOf == 0) break;
    const auto slot = static_cast<std::size_t>(row.argumentIndex) - 1;
    rows_[static_cast<std::size_t>(row.argumentOf) - 1].arguments[slot] = at.result;
    if (row.alsoFeeds != 0) {
      rows_[static_cast<std::size_t>(row.alsoFeeds) - 1].arguments[0] = at.result;
    }
  }
  return true;
}

}  // namespace zentab::mathparser
