#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "mathparser/math_parser.h"

namespace zentab::mathparser {
namespace {

constexpr std::size_t kLong = 1000000;  // bytes; hostile_bench has ten times as many

std::string Repeated(const std::string& part, std::size_t length) {
  std::string text;
  while (text.size() < length) text += part;
  return text;
}

// Compiles and, if that works, evaluates in every way. Returns the error or "".
std::string StoringErrorOf(const std::string& text) {
  MathParser parser;
  if (!parser.StoreExpression(text)) return parser.ErrorDescription();
  try {
    for (int i = 1; i <= parser.VarTop(); ++i) parser.VarValue(i, 0.5 + i);
    EXPECT_TRUE(std::isfinite(parser.Eval()));
    (void)parser.ET_Dump();
    if (parser.VarTop() > 0) (void)parser.EvalMulti(std::vector<double>(130, 2.0), 1);
  } catch (const EvaluationError& error) {
    return error.Description();
  }
  return "";
}

std::string Sum(int terms, const std::string& name) {
  std::string text;
  for (int i = 1; i <= terms; ++i) text += "+" + name + (name == "1" ? "" : std::to_string(i));
  return text.substr(1);
}

TEST(HostileInput, LongAndDeepTexts) {
  const std::size_t m = kLong;
  struct Case {
    const char* what;
    std::string text;
    std::string error;  // its beginning
  };
  const Case cases[] = {
      {"blanks", Repeated(" ", m), "missing argument"},
      {"open brackets", Repeated("(", m), "Not enough closing brackets"},
      {"nested brackets", Repeated("(", 100000) + "1" + Repeated(")", 100000), ""},
      {"nested bars", Repeated("|", m), "too many rows"},
      {"nested signs", Repeated("-(", m), "too many rows"},
      {"nested functions", Repeated("sin(", m), "too many rows"},
      {"calls without a comma", Repeated("max(", m), "Not enough closing brackets"},
      {"chains", Repeated("1<", m), "too many rows"},
      {"postfixes", "1" + Repeated("!", m), "too many rows"},
      {"guards", Repeated("(x>0)*(1+", m), "too many rows"},
      {"digits", Repeated("7", m), "Syntax error: 777"},
      {"zeros", "0." + Repeated("0", m) + "1", ""},
      {"an exponent", "1E" + Repeated("9", m), "Syntax error: 1E999"},
      {"degrees", Repeated("7", m) + "d", "Wrong DMS format"},
      {"a small exponent", "1E-" + Repeated("9", m), ""},
      {"almost a number", "1" + Repeated("1", m / 2) + "e" + Repeated("x", m / 2), "Syntax error"},
      {"a name", Repeated("abc", m), ""},
      {"a function's name", Repeated("abc", m) + "(1)", "Function < abc"},
      {"continuation bytes", Repeated("\x80", m), "Syntax error: \x80"},
      {"a stray continuation byte", "3!\x80", "Syntax error at pos: 3"},
      {"zero bytes", std::string(m, '\0'), "Syntax error: "},
      {"200 rows", Sum(201, "1"), ""},
      {"201 rows", Sum(202, "1"), "too many rows"},
      {"100 variables", Sum(100, "v"), ""},
      {"101 variables", Sum(101, "v"), "too many variables"},
      {"a large factorial", "fact(1E9)!", "Evaluation error < fact(1000000000) > at pos: 5"},
      {"a large order", "polyle(0.5,1E9)", "Evaluation error < polyle(0.5;1000000000) > at pos: 7"},
      {"large orders in many rows", Repeated("polyla(1.5,50000)+", 1700) + "1", ""},
      {"large shapes", "betai(0.5,1E300,1E300)+betai(0.5,1E5,1E5)", ""},
      {"large choices", "comb(1E300,1E299)", "Evaluation error"},
      {"many choices", "comb(1029,514)+perm(170,169)+comb(1E300,1)+gcd(1E308,3)", ""},
  };
  for (const Case& tried : cases) {
    const std::string error = StoringErrorOf(tried.text);
    EXPECT_EQ(error.substr(0, tried.error.size()), tried.error) << tried.what;
    EXPECT_EQ(error.empty(), tried.error.empty()) << tried.what;
  }
}

TEST(HostileInput, RandomTexts) {
  const std::string pieces[] = {
      "(",  ")",    "[",    "}",     "|",   "+",      "-", "*",    "/",   "\\", "^",   "!",
      "%",  ",",    "<",    "=",     ">",   " ",      "x", "y",    "abc", "1",  "2.5", "1E",
      ".",  "sin(", "max(", "clip(", "ln(", "(x>0)*", "#", "pi",   "30d", "5m", "°",   "'",
      "\"", "\xC2", "\t",   "rnd(",  "-|",  "x<y<3",  "!", "and(", "\xFF"};
  std::mt19937 random(20240229);
  int compiled = 0;
  for (int made = 0; made < 60000; ++made) {
    std::string text;
    for (auto length = random() % 24; length > 0; --length) {
      text += random() % 20 == 0 ? std::string(1, static_cast<char>(random() % 256))
                                 : pieces[random() % std::size(pieces)];
    }
    SCOPED_TRACE(text);
    compiled += StoringErrorOf(text).empty() ? 1 : 0;
    if (HasFailure()) return;
  }
  EXPECT_GT(compiled, 50);
}

}  // namespace
}  // namespace zentab::mathparser
