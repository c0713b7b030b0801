#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "evaluation_errors.h"
#include "mathparser/function_entry.h"
#include "mathparser/math_parser.h"

namespace zentab::mathparser {
namespace {

TEST(Members, ExpressionAndVariables) {
  MathParser parser;
  EXPECT_EQ(EvalError(parser), "1001 ");
  ASSERT_TRUE(parser.StoreExpression("  T0 + t0*alpha + T0  "));
  EXPECT_EQ(parser.Expression(), "T0 + t0*alpha + T0");
  ASSERT_EQ(parser.VarTop(), 3);
  EXPECT_EQ(MathParser().VarTop(), 0);
  EXPECT_EQ(parser.VarName(1), "T0");
  EXPECT_EQ(parser.VarName(3), "alpha");
  EXPECT_EQ(parser.VarSymb("t0"), 2.0);
  parser.VarValue(1, 1.0);
  parser.VarSymb("t0", 2.0);
  parser.Variable("alpha", 3.0);
  EXPECT_EQ(parser.Eval(), 8.0);
  parser.Variable(3, 4.0);
  EXPECT_EQ(parser.Variable("alpha"), 4.0);
  EXPECT_EQ(parser.Variable(2), 2.0);
  EXPECT_EQ(parser.Eval(), 10.0);

  // Numbers and names that are none.
  for (const int none : {-1, 0, 4, 1000000}) {
    parser.VarValue(none, 9.0);
    parser.Variable(none, 9.0);
    EXPECT_EQ(parser.VarValue(none), 0.0);
    EXPECT_EQ(parser.Variable(none), 0.0);
    EXPECT_EQ(parser.VarName(none), "");
  }
  parser.VarSymb("nobody", 9.0);
  parser.Variable("1", 9.0);
  EXPECT_EQ(parser.VarSymb("nobody"), 0.0);
  EXPECT_EQ(parser.Variable("1"), 0.0);
  EXPECT_EQ(parser.Eval(), 10.0);
}

// What counts as an assignment: every set by VarValue and VarSymb, but of Variable only the first
// while explicit assignment is asked for.
TEST(Members, ExplicitAssignment) {
  const std::string noX = "1001 Variable < x > not assigned";
  const std::string noY = "1001 Variable < y > not assigned";
  struct Case {
    const char* name;
    std::function<void(MathParser&)> assign;
    std::string error;
  };
  const Case cases[] = {
      {"none", [](MathParser&) {}, noX},
      {"first", [](MathParser& p) { p.VarValue(1, 1.0); }, noY},
      {"second", [](MathParser& p) { p.VarSymb("y", 1.0); }, noX},
      {"both", [](MathParser& p) { p.VarValue(1, 1.0), p.VarSymb("y", 1.0); }, ""},
      {"one twice", [](MathParser& p) { p.VarValue(1, 1.0), p.VarValue(1, 1.0); }, ""},
      {"one thrice",
       [](MathParser& p) { p.VarSymb("y", 1.0), p.VarSymb("y", 1.0), p.VarSymb("y", 1.0); }, noX},
      {"thrice, then the other",
       [](MathParser& p) {
         for (int i = 0; i < 3; ++i) p.VarValue(1, 1.0);
         p.VarValue(2, 1.0);
       },
       ""},
      {"Variable twice", [](MathParser& p) { p.Variable(1, 1.0), p.Variable("x", 1.0); }, noY},
      {"Variable both", [](MathParser& p) { p.Variable(1, 1.0), p.Variable("y", 1.0); }, ""},
      {"Variable while off",
       [](MathParser& p) {
         p.OpAssignExplicit(false);
         p.Variable(1, 1.0), p.Variable(2, 1.0);
         p.OpAssignExplicit(true);
       },
       noX},
      {"nobody", [](MathParser& p) { p.VarSymb("z", 1.0), p.VarValue(3, 1.0); }, noX},
      {"EvalMulti",
       [](MathParser& p) {
         (void)p.EvalMulti(std::vector<double>{1.0, 2.0}, "x");
         (void)p.EvalMulti(std::vector<double>{1.0, 2.0}, "y");
       },
       noX},
  };
  MathParser settled;  // of which no assignment counts any more
  ASSERT_TRUE(settled.StoreExpression("x+y"));
  cases[6].assign(settled);
  for (const Case& tried : cases) {
    SCOPED_TRACE(tried.name);
    MathParser stored = settled;
    stored.OpAssignExplicit(true);
    ASSERT_TRUE(stored.StoreExpression("x+y"));
    MathParser parser = settled;
    parser = stored;
    tried.assign(parser);
    EXPECT_EQ(EvalError(parser), tried.error);
    EXPECT_EQ(parser.TryEval().has_value(), tried.error.empty());
    parser.OpAssignExplicit(false);
    EXPECT_EQ(EvalError(parser), "");
  }
}

TEST(Members, WhatSurvivesARecompile) {
  MathParser parser;
  EXPECT_EQ(parser.AngleUnit(), "RAD");
  parser.AngleUnit("deg");
  parser.AngleUnit("degrees");
  EXPECT_EQ(parser.AngleUnit(), "DEG");
  parser.OpAssignExplicit(true);
  ASSERT_TRUE(parser.StoreExpression("sin(x)"));
  parser.VarValue(1, 90.0);
  EXPECT_EQ(parser.Eval(), 1.0);
  parser.AngleUnit("GRAD");
  parser.VarValue(1, 100.0);
  EXPECT_EQ(parser.Eval(), 1.0);

  ASSERT_TRUE(parser.StoreExpression("cos(x)"));
  EXPECT_EQ(parser.AngleUnit(), "GRAD");
  EXPECT_TRUE(parser.OpAssignExplicit());
  EXPECT_EQ(parser.VarValue(1), 0.0);
  EXPECT_EQ(EvalError(parser), "1001 Variable < x > not assigned");
  EXPECT_EQ(parser.TryEval(), std::nullopt);
  EXPECT_EQ(parser.ErrorDescription(), "Variable < x > not assigned");

  EXPECT_FALSE(parser.StoreExpression("cos(x"));
  EXPECT_EQ(EvalError(parser), "1001 Not enough closing brackets");
  ASSERT_TRUE(parser.StoreExpression("cos(0)"));
  EXPECT_EQ(parser.ErrorDescription(), "");
  EXPECT_EQ(parser.Eval(), 1.0);
}

TEST(Members, AFailureLeavesTheExpressionAsItIs) {
  MathParser parser;
  ASSERT_TRUE(parser.StoreExpression("ln(x)*1.5"));
  parser.VarValue(1, -0.5);
  EXPECT_EQ(EvalError(parser), "1001 Evaluation error < ln(-0.5) > at pos: 3");
  EXPECT_EQ(parser.VarValue(1), -0.5);
  parser.DecimalSeparator("\u066B");
  EXPECT_EQ(EvalError(parser), "1001 Evaluation error < ln(-0\u066B5) > at pos: 3");
  parser.VarValue(1, 1.0);
  EXPECT_EQ(parser.Eval(), 0.0);

  // Copies have variables of their own.
  MathParser copy = parser;
  copy.VarValue(1, -1.0);
  EXPECT_EQ(parser.Eval(), 0.0);
  EXPECT_NE(EvalError(copy), "");
  ASSERT_TRUE(copy.StoreExpression("2*y+z"));
  copy.VarValue(1, 3.0);
  MathParser& same = copy;
  copy = same;
  EXPECT_EQ(copy.Eval(), 6.0);
  copy = parser;
  EXPECT_EQ(copy.Eval(), 0.0);
  EXPECT_EQ(copy.VarName(1), "x");
  EXPECT_EQ(copy.VarTop(), 1);

  // What a move leaves behind is still a parser.
  const MathParser moved = std::move(parser);  // NOLINT(performance-move-const-arg)
  EXPECT_EQ(parser.Eval(), 0.0);               // NOLINT(bugprone-use-after-move)
}

TEST(Members, Eval1) {
  MathParser parser;
  ASSERT_TRUE(parser.StoreExpression("2*x-x^2"));
  parser.OpAssignExplicit(true);
  EXPECT_EQ(parser.Eval1(3.0), -3.0);
  EXPECT_EQ(parser.VarValue(1), 0.0);
  ASSERT_TRUE(parser.StoreExpression("5"));
  EXPECT_EQ(parser.Eval1(3.0), 5.0);
  ASSERT_TRUE(parser.StoreExpression("1/-x"));
  EXPECT_EQ(ErrorOf([&] { (void)parser.Eval1(0.0); }), "1002 Evaluation error < 1 / 0 > at pos: 2");
  ASSERT_TRUE(parser.StoreExpression("x*y"));
  EXPECT_EQ(ErrorOf([&] { (void)parser.Eval1(1.0); }), "1002 too many variables");
  EXPECT_EQ(parser.ErrorDescription(), "too many variables");
}

TEST(Members, EvalMulti) {
  const std::vector<double> values = {1.0, 2.0, 3.0};
  MathParser parser;
  ASSERT_TRUE(parser.StoreExpression("2*x+y/(x-4)"));
  EXPECT_EQ(parser.EvalMulti(values), (std::vector<double>{2.0, 4.0, 6.0}));
  EXPECT_EQ(parser.VarValue(1), 3.0);
  parser.VarSymb("y", 3.0);
  EXPECT_EQ(parser.EvalMulti(values, "x"), (std::vector<double>{1.0, 2.5, 3.0}));
  EXPECT_EQ(parser.EvalMulti(values, 2), (std::vector<double>{5.0, 4.0, 3.0}));
  EXPECT_EQ(parser.EvalMulti({}, "y"), std::vector<double>());
  EXPECT_EQ(parser.VarValue(2), 3.0);

  const auto error = [&](const std::vector<double>& at, auto variable) {
    return ErrorOf([&] { (void)parser.EvalMulti(at, variable); });
  };
  EXPECT_EQ(error({1.0, 4.0, 5.0}, 1), "1001 Evaluation error < 3 / 0 > at pos: 6");
  EXPECT_EQ(parser.VarValue(1), 4.0);
  EXPECT_EQ(error({4.0, 1.0}, 1), "1001 Evaluation error < 3 / 0 > at pos: 6");
  EXPECT_EQ(error(values, "q"), "1001 Variable not found");
  EXPECT_EQ(error(values, 3), "1001 Variable not found");
  EXPECT_EQ(error(values, 0), "1001 Variable not found");
  ASSERT_TRUE(parser.StoreExpression("2"));
  EXPECT_EQ(error(values, 1), "1001 No variables");
}

TEST(Members, RandomNumbers) {
  MathParser parser;
  ASSERT_TRUE(parser.StoreExpression("rnd(x)"));
  const std::vector<double> draws = parser.EvalMulti(std::vector<double>(4000, 2.0));
  double sum = 0.0;
  for (const double draw : draws) {
    ASSERT_TRUE(draw >= 0.0 && draw < 2.0);
    sum += draw;
  }
  EXPECT_NEAR(sum / 4000.0, 1.0, 0.1);
  EXPECT_NE(draws[0], draws[1]);
  EXPECT_NE(parser.Eval(), parser.Eval());
  // A copy goes its own way.
  MathParser copy = parser;
  EXPECT_NE(copy.Eval(), parser.Eval());
  copy = parser;
  EXPECT_NE(copy.Eval(), parser.Eval());
  // The published first numbers of SplitMix64 for this seed.
  RandomSource known(1'234'567);
  for (const std::uint64_t bits : {6'457'827'717'110'365'317U, 3'203'168'211'198'807'973U}) {
    EXPECT_EQ(known.Next(), std::ldexp(static_cast<double>(bits >> 11U), -53));
  }
}

TEST(MathParserErrors, SayTheCharacter) {
  const struct {
    std::string_view text;
    int position;
  } cases[] = {
      {"1+1", 0},    {"(x", 3},       {"x)", 2},       {"2*", 3},       {"", 1},     {"2**3", 3},
      {"foo(1)", 1}, {"  foo(1)", 3}, {"1+foo(1)", 3}, {"max(1)+1", 6}, {"1+2a", 3}, {"|x", 1},
      {"zz#+1", 1},  {"1,2", 2},      {"α+(1", 1},     {"2|", 2},
  };
  MathParser parser;
  for (const auto& row : cases) {
    EXPECT_EQ(parser.StoreExpression(row.text), row.position == 0);
    EXPECT_EQ(parser.ErrorPosition(), row.position)
        << row.text << ": " << parser.ErrorDescription();
    EXPECT_EQ(parser.ErrorNumber(), row.position == 0 ? 0 : 1001);
  }
}

// Of an evaluation: number, character and text, in what is thrown and in the parser.
TEST(MathParserErrors, OfAnEvaluationSayTheOperation) {
  using Action = std::function<void(MathParser&)>;
  const Action eval = [](MathParser& p) { (void)p.Eval(); };
  const Action eval1 = [](MathParser& p) { (void)p.Eval1(0.0); };
  const Action multi = [](MathParser& p) { (void)p.EvalMulti(std::vector<double>{1.0, 0.0}); };
  const Action unassigned = [](MathParser& p) {
    (void)p.Eval(), p.OpAssignExplicit(true), (void)p.Eval();
  };
  const Action another = [](MathParser& p) { (void)p.EvalMulti(std::vector<double>{1.0}, 2); };
  const struct {
    const char* text;
    const Action& evaluate;
    int number, position;
  } cases[] = {
      {"1+1/x", eval, 1001, 4},   {"  x/ln(x)", eval, 1001, 7}, {" 2+1/x", eval1, 1002, 5},
      {"1/x", multi, 1001, 2},    {"x+y", eval1, 1002, 0},      {"5", multi, 1001, 0},
      {"(x", eval, 1001, 3},      {"(x", eval1, 1002, 3},       {"x", unassigned, 1001, 0},
      {"zeta(1)", eval, 1001, 5}, {"x", another, 1001, 0},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.text);
    MathParser parser;
    (void)parser.StoreExpression(row.text);
    try {
      row.evaluate(parser);
      ADD_FAILURE() << "has a value";
    } catch (const EvaluationError& error) {
      EXPECT_EQ(error.Number(), row.number);
      EXPECT_EQ(error.Position(), row.position) << error.what();
      EXPECT_EQ(parser.ErrorNumber(), row.number);
      EXPECT_EQ(parser.ErrorPosition(), row.position);
      EXPECT_EQ(parser.ErrorDescription(), error.Description());
    }
  }
}

}  // namespace
}  // namespace zentab::mathparser
