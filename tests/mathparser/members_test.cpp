#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "mathparser/function_entry.h"
#include "mathparser/math_parser.h"

namespace zentab::mathparser {
namespace {

template <class Evaluate>
std::string ErrorOf(Evaluate evaluate) {
  try {
    evaluate();
  } catch (const EvaluationError& error) {
    return std::to_string(error.Number()) + " " + error.Description();
  }
  return "";
}

std::string EvalError(MathParser& parser) {
  return ErrorOf([&] { (void)parser.Eval(); });
}

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
  for (const Case& tried : cases) {
    SCOPED_TRACE(tried.name);
    MathParser parser;
    parser.OpAssignExplicit(true);
    ASSERT_TRUE(parser.StoreExpression("x+y"));
    tried.assign(parser);
    EXPECT_EQ(EvalError(parser), tried.error);
    EXPECT_EQ(EvalError(parser), tried.error);
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
  ASSERT_TRUE(copy.StoreExpression("2*y"));
  copy.VarValue(1, 3.0);
  MathParser& same = copy;
  copy = same;
  EXPECT_EQ(copy.Eval(), 6.0);
  copy = parser;
  EXPECT_EQ(copy.Eval(), 0.0);
  EXPECT_EQ(copy.VarName(1), "x");

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

std::vector<std::string> ColumnOf(MathParser& parser, const std::string& title) {
  const std::vector<std::vector<std::string>> dump = parser.ET_Dump();
  std::vector<std::string> column;
  for (std::size_t i = 0; i < dump[0].size(); ++i) {
    if (dump[0][i] != title) continue;
    for (std::size_t row = 1; row < dump.size(); ++row) column.push_back(dump[row][i]);
  }
  return column;
}

TEST(Members, Dump) {
  using Column = std::vector<std::string>;
  MathParser parser;
  ASSERT_TRUE(parser.StoreExpression("-Max(x, 2*y)+clip(x,(1),|y|)!"));
  EXPECT_EQ(ColumnOf(parser, "Fun"), (Column{"Max", "*", "+", "clip", "@Right", "abs", "!"}));
  EXPECT_EQ(ColumnOf(parser, "Value"), Column(7, "0"));
  parser.VarValue(1, 3.0);
  parser.VarValue(2, 4.0);
  EXPECT_EQ(parser.Eval(), -2.0);
  EXPECT_EQ(ColumnOf(parser, "Value"), (Column{"-8", "8", "-2", "3", "4", "4", "6"}));
  EXPECT_EQ(ColumnOf(parser, "ArgTop"), (Column{"2", "2", "2", "3", "2", "1", "1"}));
  EXPECT_EQ(ColumnOf(parser, "ArgOf"), (Column{"3", "1", "0", "7", "4", "5", "3"}));
  EXPECT_EQ(ColumnOf(parser, "ArgIdx"), (Column{"1", "2", "0", "1", "3", "2", "2"}));
  EXPECT_EQ(ColumnOf(parser, "A1 Idx"), (Column{"1", "0", "0", "1", "0", "2", "0"}));
  EXPECT_EQ(ColumnOf(parser, "Arg2 Name"), (Column{"", "y", "", "", "", "", ""}));
  EXPECT_EQ(ColumnOf(parser, "Arg2 Value"), (Column{"8", "4", "6", "1", "4", "0", "0"}));
  EXPECT_EQ(ColumnOf(parser, "PosInExpr"), (Column{"5", "10", "13", "18", "18", "25", "29"}));
  EXPECT_EQ(ColumnOf(parser, "PriLvl"), (Column{"10", "13", "2", "10", "10", "20", "9"}));
  EXPECT_EQ(ColumnOf(parser, "PriIdx"), (Column{"6", "2", "1", "5", "4", "7", "3"}));

  ASSERT_TRUE(parser.StoreExpression("(x<0)*sqr(-x)+1/x"));
  EXPECT_EQ(parser.Eval1(2.0), 0.5);
  EXPECT_EQ(ColumnOf(parser, "Value"), (Column{"0", "0", "0", "0.5", "0.5"}));
  EXPECT_EQ(parser.Eval1(-4.0), 1.75);
  EXPECT_EQ(ColumnOf(parser, "Value"), (Column{"1", "2", "2", "1.75", "-0.25"}));
  EXPECT_EQ(ColumnOf(parser, "PriLvl"), (Column{"111", "3", "10", "2", "3"}));
  EXPECT_EQ(ColumnOf(parser, "PriIdx"), (Column{"1", "3", "2", "5", "4"}));
  EXPECT_EQ(ColumnOf(parser, "Cond"), (Column{"0", "0", "1", "0", "0"}));
  ASSERT_TRUE(parser.StoreExpression("(x<0)*sqr(-x) + (x>=0)*sqr(x)"));
  EXPECT_EQ(ColumnOf(parser, "PriIdx"), (Column{"1", "5", "3", "7", "2", "6", "4"}));
  ASSERT_TRUE(parser.StoreExpression("2*(x<0)*y*ln(-x)*sqr(-x)"));
  EXPECT_EQ(ColumnOf(parser, "Cond"), (Column{"0", "0", "0", "0", "2", "0", "2"}));
  EXPECT_EQ(ColumnOf(parser, "PriLvl"), (Column{"3", "111", "3", "3", "10", "3", "10"}));
  EXPECT_EQ(ColumnOf(parser, "PriIdx"), (Column{"2", "5", "7", "1", "3", "4", "6"}));

  ASSERT_TRUE(parser.StoreExpression("(x<0)*sqr(-x)+1/x"));
  EXPECT_EQ(parser.Eval1(-4.0), 1.75);
  // A failure keeps what was computed before it.
  EXPECT_NE(ErrorOf([&] { (void)parser.Eval1(0.0); }), "");
  EXPECT_EQ(ColumnOf(parser, "Value"), (Column{"0", "0", "0", "1.75", "0"}));
}

// Whatever is set after an evaluation, the dump shows what that was made with.
TEST(Members, DumpShowsTheLastEvaluation) {
  using Action = std::function<void(MathParser&)>;
  const std::vector<double> values = {5.0, 6.0, 7.0};
  const Action eval3 = [](MathParser& p) { p.VarValue(1, 3.0), (void)p.Eval(); };
  const Action fail = [](MathParser& p) { p.VarValue(1, 0.0), (void)EvalError(p); };
  const Action multi = [&](MathParser& p) { (void)p.EvalMulti(values); };
  const Action eachOfMulti = [](MathParser& p) {
    (void)ErrorOf([&] { (void)p.EvalMulti(std::vector<double>{5.0, 0.0, 7.0}); });
  };
  struct Case {
    const char* name;
    const char* expression;
    std::vector<Action> evaluate;
    std::vector<std::string> arguments, results;  // the first of each row, the value of each row
  };
  const Case cases[] = {
      {"nothing", "x*2+8/x", {}, {"0", "0", "8"}, {"0", "0", "0"}},
      {"Eval", "x*2", {eval3}, {"3"}, {"6"}},
      {"twice",
       "x*2",
       {eval3, [](MathParser& p) { p.VarSymb("x", 4.0), (void)p.Eval(); }},
       {"4"},
       {"8"}},
      {"an assignment missing",
       "x*2+0*y",
       {eval3,
        [](MathParser& p) { p.OpAssignExplicit(true), p.Variable(1, 4.0), (void)EvalError(p); }},
       {"3", "6", "0"},
       {"6", "6", "0"}},
      {"Eval1", "x*2", {eval3, [](MathParser& p) { (void)p.Eval1(4.0); }}, {"4"}, {"8"}},
      {"EvalMulti", "x*2", {eval3, multi}, {"7"}, {"14"}},
      {"EvalMulti by point", "(x<9)*(x-1)", {multi}, {"7", "1", "7"}, {"1", "6", "6"}},
      {"EvalMulti of none",
       "x*2",
       {eval3, [](MathParser& p) { (void)p.EvalMulti(std::vector<double>()); }},
       {"3"},
       {"6"}},
      // The rows behind a failure stay as the evaluation before left them.
      {"failure at once", "x*2+8/x", {fail}, {"0", "0", "8"}, {"0", "0", "0"}},
      {"failure after Eval", "x*2+6/x", {eval3, fail}, {"0", "0", "6"}, {"0", "8", "0"}},
      {"failure in EvalMulti",
       "x*2+20/x",
       {eval3, eachOfMulti},
       {"0", "0", "20"},
       {"0", "14", "0"}},
      {"Eval after a failure", "x*2", {fail, eval3}, {"3"}, {"6"}},
      {"ten variables",
       "x*2+(a+b+c+d+e+f+g+h+i)",
       {[](MathParser& p) {
         for (int i = 1; i <= 10; ++i) p.VarValue(i, i);
         (void)p.Eval();
       }},
       {"1", "2", "2", "5", "9", "14", "20", "27", "35", "44"},
       {"2", "56", "5", "9", "14", "20", "27", "35", "44", "54"}},
      {"the angle unit",
       "sin(x)",
       {[](MathParser& p) { p.AngleUnit("DEG"), p.VarValue(1, 90.0), (void)p.Eval(); }},
       {"90"},
       {"1"}},
  };
  for (const Case& tried : cases) {
    SCOPED_TRACE(tried.name);
    MathParser parser;
    ASSERT_TRUE(parser.StoreExpression(tried.expression));
    for (const Action& evaluate : tried.evaluate) evaluate(parser);
    for (int i = 1; i <= parser.VarTop(); ++i) parser.Variable(i, 99.0);
    parser.AngleUnit("GRAD");
    EXPECT_EQ(ColumnOf(parser, "Arg1 Value"), tried.arguments);
    EXPECT_EQ(ColumnOf(parser, "Value"), tried.results);
    // Asked again, and after a further evaluation.
    EXPECT_EQ(ColumnOf(parser, "Value"), tried.results);
    parser.OpAssignExplicit(false);
    (void)parser.Eval();
    EXPECT_EQ(ColumnOf(parser, "Arg1 Value")[0], "99");
  }
}

TEST(MathParserErrors, SayTheCharacter) {
  const struct {
    std::string_view text;
    int position;
  } cases[] = {
      {"1+1", 0},  {"(x", 3},     {"x)", 2},       {"2*", 3},       {"", 1},
      {"2**3", 3}, {"foo(1)", 1}, {"  foo(1)", 3}, {"1+foo(1)", 3}, {"max(1)+1", 6},
      {"1+2a", 3}, {"|x", 1},     {"zz#+1", 1},    {"1,2", 2},      {"α+(1", 1},
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
  const Action unassigned = [](MathParser& p) { p.OpAssignExplicit(true), (void)p.Eval(); };
  const struct {
    const char* text;
    const Action& evaluate;
    int number, position;
  } cases[] = {
      {"1+1/x", eval, 1001, 4},   {"  x/ln(x)", eval, 1001, 7}, {" 2+1/x", eval1, 1002, 5},
      {"1/x", multi, 1001, 2},    {"x+y", eval1, 1002, 0},      {"5", multi, 1001, 0},
      {"(x", eval, 1001, 3},      {"(x", eval1, 1002, 3},       {"x", unassigned, 1001, 0},
      {"zeta(1)", eval, 1001, 5},
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
