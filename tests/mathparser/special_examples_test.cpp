#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>

#include "mathparser/math_parser.h"

namespace zentab::mathparser {
namespace {

// The examples of the function reference: each stands there as `expression = value`.
TEST(SpecialFunctions, DoWhatTheirReferenceShows) {
  std::ifstream file(SPECIAL_FUNCTIONS_REFERENCE);
  int examples = 0;
  for (std::string line; std::getline(file, line);) {
    const std::size_t end = line.rfind('`');
    const std::size_t start = end == std::string::npos || end == 0 ? end : line.rfind('`', end - 1);
    const std::size_t equals = line.rfind(" = ");
    if (start == std::string::npos || equals == std::string::npos || equals < start) continue;
    const std::string expression = line.substr(start + 1, equals - start - 1);
    const double expected = std::stod(line.substr(equals + 3));
    SCOPED_TRACE(line);
    MathParser parser;
    ASSERT_TRUE(parser.StoreExpression(expression)) << parser.ErrorDescription();
    EXPECT_NEAR(parser.Eval(), expected, 1e-12 * std::abs(expected) + 1e-14);
    ++examples;
  }
  EXPECT_EQ(examples, 57);
}

}  // namespace
}  // namespace zentab::mathparser
