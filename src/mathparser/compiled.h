#pragma once

#include <string>
#include <vector>

#include "mathparser/expression_table.h"
#include "mathparser/function_catalogue.h"
#include "mathparser/instruction.h"
#include "mathparser/math_parser.h"
#include "mathparser/table_evaluator.h"

namespace zentab::mathparser {

/// What a parser holds beside the values that it evaluates with.
struct MathParser::Compiled {
  explicit Compiled(const FunctionCatalogue& vocabulary) : catalogue(&vocabulary) {}

  const FunctionCatalogue* catalogue;
  std::string expression;
  int leadingBlanks = 0;  // of the text before they were cut off
  int errorNumber = 0;
  int errorPosition = 0;
  std::string error;
  std::string decimalSeparator = ".";
  ExpressionTable table;
  std::vector<Instruction> code;  // empty when the expression cannot be lowered (random numbers)
  TableEvaluator rows;
  RandomSource random;
  int assignments = 0;
  int angleUnit = 0;
  bool isCompiled = false;
  bool isExplicit = false;
  bool rowsAreShown = true;  // the rows hold the last evaluation; else the program made it
};

}  // namespace zentab::mathparser
