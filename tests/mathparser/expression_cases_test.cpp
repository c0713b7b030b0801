#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "evaluation_errors.h"

namespace zentab::mathparser {
namespace {

double NumberOf(const std::string& text) {
  if (text == "inf") return std::numeric_limits<double>::infinity();
  if (text == "nan") return std::numeric_limits<double>::quiet_NaN();
  return std::stod(text);
}

// "x=1;y=2" or the name of an angle unit.
void Prepare(MathParser& parser, const std::string& settings) {
  std::istringstream in(settings);
  for (std::string setting; std::getline(in, setting, ';');) {
    const std::size_t sign = setting.find('=');
    if (sign == std::string::npos) {
      parser.AngleUnit(setting);
    } else {
      parser.VarSymb(setting.substr(0, sign), NumberOf(setting.substr(sign + 1)));
    }
  }
}

// All the ways to evaluate, which must not differ in a single bit.
void ExpectValue(MathParser& parser, double expected) {
  const double value = parser.Eval();
  EXPECT_NEAR(value, expected, 1e-14 * std::abs(expected));
  EXPECT_EQ(parser.Eval(), value);
  EXPECT_EQ(parser.TryEval(), value);
  for (int variable = 1; variable <= parser.VarTop(); ++variable) {
    const std::vector<double> values(3, parser.VarValue(variable));
    EXPECT_EQ(parser.EvalMulti(values, variable), std::vector<double>(3, value));
  }
  if (parser.VarTop() == 1) {
    const double x = parser.VarValue(1);
    parser.VarValue(1, 12345.0);
    EXPECT_EQ(parser.Eval1(x), value);
    EXPECT_EQ(parser.VarValue(1), 12345.0);
    EXPECT_EQ(parser.ErrorNumber(), 0);
  }
}

void ExpectError(MathParser& parser, const std::string& expected) {
  EXPECT_EQ(ErrorOf([&] { (void)parser.Eval(); }), expected);
  EXPECT_EQ("1001 " + parser.ErrorDescription(), expected);
  EXPECT_EQ(parser.TryEval(), std::nullopt);
  for (int variable = 1; variable <= parser.VarTop(); ++variable) {
    const std::vector<double> values(3, parser.VarValue(variable));
    EXPECT_EQ(ErrorOf([&] { (void)parser.EvalMulti(values, variable); }), expected);
  }
}

class ExpressionCases : public testing::TestWithParam<const char*> {};

TEST_P(ExpressionCases, GiveTheirValueOrError) {
  std::ifstream file(std::string(MATHPARSER_DATA) + GetParam());
  int cases = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.starts_with("# ")) continue;
    ++cases;
    SCOPED_TRACE(line);
    const std::size_t first = line.find('\t');
    const std::size_t second = line.find('\t', first + 1);
    ASSERT_NE(second, std::string::npos);
    std::string expected = line.substr(second + 1);
    const bool fails = expected.starts_with('"');
    if (fails) expected = expected.substr(1, expected.size() - 2);

    MathParser parser;
    parser.DecimalSeparator(",");
    const bool compiles = parser.StoreExpression(line.substr(0, first));
    if (!compiles) {
      EXPECT_EQ(parser.ErrorDescription(), expected);
      EXPECT_EQ(ErrorOf([&] { (void)parser.Eval(); }), "1001 " + expected);
      EXPECT_EQ(ErrorOf([&] { (void)parser.Eval1(1.0); }), "1002 " + expected);
      EXPECT_EQ(ErrorOf([&] { parser.EvalMulti({}, {}, 1); }), "1001 " + expected);
      EXPECT_EQ(parser.TryEval(), std::nullopt);
      continue;
    }
    EXPECT_EQ(parser.ErrorDescription(), "");
    Prepare(parser, line.substr(first + 1, second - first - 1));
    fails ? ExpectError(parser, expected) : ExpectValue(parser, NumberOf(expected));
  }
  EXPECT_GT(cases, 100);
}

INSTANTIATE_TEST_SUITE_P(Files, ExpressionCases, testing::Values("values.txt", "errors.txt"));

}  // namespace
}  // namespace zentab::mathparser
