#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "mathparser/function_catalogue.h"
#include "mathparser/math_parser.h"

namespace zentab::mathparser {
namespace {

double Sum4(const double* a, CallContext&) { return a[0] + 10 * a[1] + 100 * a[2] + 1000 * a[3]; }

double Sum6(const double* a, CallContext&) {
  double sum = 0.0;
  for (int i = 0; i < 6; ++i) sum = sum * 10.0 + a[i];
  return sum;
}

double Refuse(const double* a, CallContext& context) {
  if (a[0] > 700.0) context.message = "a and/or x too large";
  return a[0] < 1.0 ? a[0] : std::numeric_limits<double>::quiet_NaN();
}

double Turn(const double* a, CallContext& context) { return a[0] * context.angleFactor; }

constexpr std::array kSpecials = {
    FunctionEntry{"sum4", 301, 4, Sum4},
    FunctionEntry{"sum6", 302, 6, Sum6},
    FunctionEntry{"refuse", 303, 1, Refuse},
    FunctionEntry{"turn", 304, 1, Turn},
    FunctionEntry{.keyword = "missing", .code = 305, .arguments = 2},
};

// A family like those that live in files of their own, used by no more than its table.
TEST(Catalogue, TakesFurtherFamilies) {
  const FunctionCatalogue catalogue{ElementaryFunctions(), FunctionFamily(kSpecials)};
  struct Case {
    const char* text;
    double x;
    const char* expected;
  };
  const Case cases[] = {
      {"Sum4(x,2,3+1,max(1,2))", 1.0, "Function < max > unknown at pos: 14"},
      {"Sum4(x,2,3+1,abs(-5))", 1.0, "5421"},
      {"-SUM4(x,sum4(1,0,0,0),|x-2|,1)+1", 3.0, "-1112"},
      {"sum6(1,x,3,4,5,2*3)", 2.0, "123456"},
      {"sum6(1,2,3,4,sum6(0,0,0,0,0,x),6)", 5.0, "123456"},
      {"(x>0)*sum4(x,ln(x),1,1/x)", -1.0, "0"},
      {"sum4(1,2,1/x,sqr(x))", -4.0, "1001 Evaluation error < sqr(-4) > at pos: 17"},
      {"sum6(1E308*x,2,3,4,5,6)", 1.0,
       "1001 Evaluation error < sum6(1E+308;2;3;4;5;6) > at pos: 5"},
      {"sum4(1,2)", 0.0, "missing argument"},
      {"refuse(x)*2", 0.25, "0.5"},
      {"refuse(x)", 5.0, "1001 Evaluation error < refuse(5) > at pos: 7"},
      {"1+refuse(x)", 701.0, "1001 a and/or x too large"},
      {"turn(x)", 180.0, "3.14159265358979"},
      {"missing(x,1)", 0.0, "1001 Function <305> missing?"},
  };
  for (const Case& tried : cases) {
    SCOPED_TRACE(tried.text);
    MathParser parser(catalogue);
    parser.AngleUnit("DEG");
    std::string result = parser.StoreExpression(tried.text) ? "" : parser.ErrorDescription();
    if (result.empty()) {
      parser.VarValue(1, tried.x);
      try {
        const double value = parser.Eval();
        EXPECT_EQ(parser.EvalMulti(std::vector<double>(2, tried.x)), std::vector<double>(2, value));
        (void)parser.ET_Dump();
        EXPECT_NEAR(value, std::stod(tried.expected), 1e-14 * std::abs(value));
        continue;
      } catch (const EvaluationError& error) {
        result = std::to_string(error.Number()) + " " + error.what();
      }
    }
    EXPECT_EQ(result, tried.expected);
  }
}

// Keyword, number of arguments and code of the functions that are there so far.
TEST(Catalogue, Codes) {
  struct Known {
    const char* keyword;
    int arguments;
    int code;
  };
  const Known known[] = {
      {"Abs", 1, 7},    {"Atn", 1, 8},    {"Atan", 1, 8},   {"Cos", 1, 9},   {"Sin", 1, 11},
      {"Exp", 1, 12},   {"Fix", 1, 13},   {"Int", 1, 14},   {"Ln", 1, 15},   {"Log", 1, 16},
      {"Rnd", 1, 17},   {"Sgn", 1, 18},   {"Sqr", 1, 19},   {"Tan", 1, 20},  {"Acos", 1, 21},
      {"Asin", 1, 22},  {"Cosh", 1, 23},  {"Sinh", 1, 24},  {"Tanh", 1, 25}, {"Acosh", 1, 26},
      {"Asinh", 1, 27}, {"Atanh", 1, 28}, {"Mod", 2, 29},   {"Fact", 1, 30}, {"Comb", 2, 31},
      {"Min", 2, 32},   {"Max", 2, 33},   {"Mcd", 2, 34},   {"Gcd", 2, 34},  {"Mcm", 2, 35},
      {"Lcm", 2, 35},   {"And", 2, 42},   {"Or", 2, 43},    {"Not", 1, 44},  {"Xor", 2, 45},
      {"csc", 1, 53},   {"sec", 1, 54},   {"cot", 1, 55},   {"acsc", 1, 56}, {"asec", 1, 57},
      {"acot", 1, 58},  {"csch", 1, 59},  {"sech", 1, 60},  {"coth", 1, 61}, {"acsch", 1, 62},
      {"asech", 1, 63}, {"acoth", 1, 64}, {"Cbr", 1, 65},   {"Root", 2, 66}, {"dec", 1, 67},
      {"rad", 1, 68},   {"deg", 1, 69},   {"Round", 2, 70}, {"grad", 1, 71}, {"Nand", 2, 72},
      {"Nor", 2, 73},   {"NXor", 2, 74},  {"neg", 1, 75},   {"Perm", 2, 76}, {"LogN", 2, 77},
      {"Clip", 3, 207},
  };
  for (const Known& function : known) {
    const FunctionEntry* entry = StandardCatalogue().Find(function.keyword);
    ASSERT_NE(entry, nullptr) << function.keyword;
    EXPECT_EQ(entry->arguments, function.arguments) << function.keyword;
    EXPECT_EQ(entry->code, function.code) << function.keyword;
  }
}

}  // namespace
}  // namespace zentab::mathparser
