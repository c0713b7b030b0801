#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mathparser/function_entry.h"

namespace zentab::mathparser {

inline constexpr int kMaxRows = 200;
inline constexpr int kMaxVariables = 100;
inline constexpr int kMaxArguments = 6;

/// A piece of ExpressionTable::names.
struct NameRange {
  std::uint32_t begin = 0;
  std::uint32_t length = 0;
};

/// What stands in an argument slot of a row when no other row feeds it.
struct Operand {
  double value = 0.0;         // of a literal, its sign included
  std::int16_t variable = 0;  // 1-based, 0 for a literal
  std::int16_t sign = 1;      // of a variable
};

/// One operation. Row numbers are 1-based, 0 stands for none.
struct Row {
  const FunctionEntry* function = nullptr;
  NameRange written{};               // the name as the user wrote it; empty: the keyword
  std::array<Operand, 2> operand{};  // of slots 1 and 2
  std::array<std::int16_t, kMaxArguments> source{};  // rows that feed the slots
  int position = 0;                                  // 1-based character in the trimmed text
  int level = 0;  // priority: ten times the brackets plus the operator's own
  int key = 0;    // what the order is made by; see Compiler
  std::int16_t argumentOf = 0;
  std::int16_t argumentIndex = 0;
  std::int16_t alsoFeeds = 0;    // a comparison whose slot 1 this row feeds as well
  std::int16_t guard = 0;        // comparison row that must not be 0 for this one to run
  std::int16_t factorGuard = 0;  // of a product, the guard before one of its factors
  std::int16_t sign = 1;
  std::int16_t arguments = 2;
  bool isChain = false;  // the product that a<x<b puts between its comparisons
};

struct VariableName {
  NameRange name;
  bool assigned = false;
};

/// A compiled expression: its operations in the order of the text, its variables, the order of
/// evaluation.
struct ExpressionTable {
  std::string names;  // function and variable names, one after the other
  std::vector<Row> rows;
  std::vector<VariableName> variables;
  std::vector<std::int16_t> order;    // row numbers in the order of evaluation
  std::vector<std::int16_t> postfix;  // row numbers, each subtree contiguous, a parent last
  bool hasGuards = false;
  bool byRowsOnly = false;  // random numbers, or a function that always fails

  [[nodiscard]] std::string_view Name(NameRange range) const {
    return std::string_view(names).substr(range.begin, range.length);
  }
  [[nodiscard]] Row& At(int row) { return rows[static_cast<std::size_t>(row) - 1]; }
  [[nodiscard]] const Row& At(int row) const { return rows[static_cast<std::size_t>(row) - 1]; }
  [[nodiscard]] std::string_view FunctionText(const Row& row) const {
    return row.written.length > 0 ? Name(row.written) : row.function->keyword;
  }
  /// The 1-based number of a variable, 0 for an unknown name.
  [[nodiscard]] int FindVariable(std::string_view name) const {
    for (std::size_t i = 0; i < variables.size(); ++i) {
      if (Name(variables[i].name) == name) return static_cast<int>(i) + 1;
    }
    return 0;
  }
};

/// Sets guards and the order of evaluation of a table whose rows are linked.
void OrderRows(ExpressionTable& table);

}  // namespace zentab::mathparser
