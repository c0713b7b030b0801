#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "evaluation_errors.h"

namespace zentab::mathparser {
namespace {

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
  ASSERT_TRUE(parser.StoreExpression("(x>0)*((sqr(x)>1)*x)"));
  EXPECT_EQ(ColumnOf(parser, "PriIdx"), (Column{"1", "3", "4", "5", "2"}));
  ASSERT_TRUE(parser.StoreExpression("(1<(y>0)*sqr(y)<3)*x!"));
  EXPECT_EQ(ColumnOf(parser, "PriLvl"), (Column{"11", "121", "13", "20", "103", "11", "3", "9"}));

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
  const Action try0 = [](MathParser& p) { p.VarValue(1, 0.0), (void)p.TryEval(); };
  const Action oneOfMulti = [](MathParser& p) {
    p.VarValue(2, 1.0), (void)p.EvalMulti(std::vector{7.0});
  };
  const Action multi = [&](MathParser& p) { (void)p.EvalMulti(values); };
  const Action eachOfMulti = [](MathParser& p) {
    (void)ErrorOf([&] { (void)p.EvalMulti(std::vector<double>{5.0, 0.0, 7.0}); });
  };
  const Action assigned = [](MathParser& p) {
    MathParser copy;
    copy = p;
    p.VarValue(1, 8.0), (void)p.Eval(), p = copy;
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
      {"by one point", "(x<9)*(x-y)", {eval3, oneOfMulti}, {"7", "1", "7"}, {"1", "6", "6"}},
      {"an assignment", "x*2", {eval3, assigned}, {"3"}, {"6"}},
      {"TryEval", "x+1", {try0}, {"0"}, {"1"}},
      {"failure of TryEval", "ln(x)", {eval3, try0}, {"0"}, {"0"}},
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
       {eval3, [](MathParser& p) { p.AngleUnit("DEG"), p.VarValue(1, 90.0), (void)p.Eval(); }},
       {"90"},
       {"1"}},
  };
  MathParser parser;
  for (const Case& tried : cases) {
    SCOPED_TRACE(tried.name);
    parser.OpAssignExplicit(false);
    ASSERT_TRUE(parser.StoreExpression(tried.expression));
    for (const Action& evaluate : tried.evaluate) evaluate(parser);
    for (int i = 1; i <= parser.VarTop(); ++i) parser.Variable(i, 99.0);
    parser.AngleUnit("GRAD");
    EXPECT_EQ(ColumnOf(parser, "Arg1 Value"), tried.arguments);
    EXPECT_EQ(ColumnOf(parser, "Value"), tried.results);
    // Asked again, and after a further evaluation.
    EXPECT_EQ(ColumnOf(parser, "Value"), tried.results);
    (void)parser.Eval();
    EXPECT_EQ(ColumnOf(parser, "Arg1 Value")[0], "99");
    (void)parser.Eval();
  }
}

}  // namespace
}  // namespace zentab::mathparser
