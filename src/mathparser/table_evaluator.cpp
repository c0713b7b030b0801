#include "mathparser/table_evaluator.h"

#include <algorithm>
#include <cmath>

#include "mathparser/function_catalogue.h"
#include "mathparser/instruction.h"
#include "mathparser/number_text.h"

namespace zentab::mathparser {
namespace {

// Operators are written between their arguments; "!" and "%", which have only one, before the 0 of
// the slot that nothing goes into.
bool IsInfix(const Row& row) {
  const char first = row.function->keyword.front();
  return !(first >= 'a' && first <= 'z');
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

bool AllFinite(const Row& row, const TableEvaluator::RowValues& values) {
  return std::all_of(values.arguments.begin(), values.arguments.begin() + row.arguments,
                     [](double value) { return std::isfinite(value); });
}

// Computes what a row gives. On false it has no value, and the context perhaps a message.
bool Run(const Row& row, TableEvaluator::RowValues& at, CallContext& context) {
  if (!AllFinite(row, at)) return false;
  const double value = row.function->kernel(at.arguments.data(), context);
  if (!std::isfinite(value)) return false;
  at.result = row.sign < 0 ? -value : value;
  return true;
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
                              RandomSource& random, std::string_view decimalSeparator,
                              bool explains) {
  if (rows_.size() != table.rows.size()) Reset(table);
  CopyVariables(table, values);
  result_ = 0.0;
  for (const std::int16_t number : table.order) {
    const Row& row = table.At(number);
    RowValues& at = rows_[static_cast<std::size_t>(number) - 1];
    at.result = 0.0;
    const bool runs =
        row.guard == 0 || rows_[static_cast<std::size_t>(row.guard) - 1].result != 0.0;
    if (runs && row.function == &operators::kRight) {
      // Whatever it is: the function that it is for can tell what is wrong with it.
      at.result = at.arguments[1];
    } else if (runs) {
      if (row.function->kernel == nullptr) {
        errorPosition_ = row.position;
        error_ = "Function <" + std::to_string(row.function->code) + "> missing?";
        return false;
      }
      CallContext context{values[kAngleFactorPlace], &random, {}};
      if (!Run(row, at, context)) {
        if (!explains) return false;
        errorPosition_ = row.position;
        error_ = context.message;
        if (error_.empty()) {
          error_ = "Evaluation error < " + RowText(table, row, at, decimalSeparator) +
                   " > at pos: " + std::to_string(row.position);
        }
        return false;
      }
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
