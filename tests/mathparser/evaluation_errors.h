#pragma once

#include <gtest/gtest.h>

#include <string>

#include "mathparser/math_parser.h"

namespace zentab::mathparser {

/// "NUMBER TEXT" of what an evaluation throws; empty when it has a value.
template <class Evaluate>
std::string ErrorOf(Evaluate evaluate) {
  try {
    evaluate();
  } catch (const EvaluationError& error) {
    EXPECT_EQ(error.Source(), "MathParser");
    return std::to_string(error.Number()) + " " + error.Description();
  }
  return "";
}

inline std::string EvalError(MathParser& parser) {
  return ErrorOf([&] { (void)parser.Eval(); });
}

}  // namespace zentab::mathparser
