// An expression in every way it can be evaluated. The first line of the input is the expression;
// the values of its variables follow, one a line, and may be followed by the angle unit.

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>

#include "fuzz/fuzzing.h"
#include "mathparser/expression_table.h"
#include "mathparser/math_parser.h"

namespace zentab::fuzz {
namespace {

using mathparser::EvaluationError;
using mathparser::MathParser;

struct Outcome {
  std::optional<double> value;
  std::string error;

  friend bool operator==(const Outcome& a, const Outcome& b) {
    return a.error == b.error && a.value.has_value() == b.value.has_value() &&
           (!a.value ||
            std::bit_cast<std::uint64_t>(*a.value) == std::bit_cast<std::uint64_t>(*b.value));
  }
};

template <class Evaluate>
Outcome OutcomeOf(Evaluate evaluate) {
  try {
    return {evaluate(), ""};
  } catch (const EvaluationError& error) {
    Require(!error.Description().empty(), "a failure has a text");
    return {std::nullopt, error.Description()};
  }
}

bool IsRandom(std::string_view text) {
  constexpr std::string_view kRandom = "rnd";
  return std::search(text.begin(), text.end(), kRandom.begin(), kRandom.end(),
                     [](char a, char b) { return (a | 0x20) == b; }) != text.end();
}

void CheckDump(MathParser& parser) {
  const auto rows = parser.ET_Dump();
  for (const auto& row : rows) Require(row.size() == rows[0].size(), "the dump is a table");
}

// EvalMulti, also over more than the block it works by, against Eval one after the other.
void CheckMulti(const MathParser& parser, int variable, const std::vector<double>& values) {
  MathParser single = parser;
  std::vector<double> expected;
  Outcome last;
  for (const double value : values) {
    single.VarValue(variable, value);
    last = OutcomeOf([&] { return single.Eval(); });
    if (!last.value) break;
    expected.push_back(*last.value);
  }
  MathParser multi = parser;
  std::vector<double> results(values.size());
  const Outcome outcome = OutcomeOf([&] {
    multi.EvalMulti(values, results, variable);
    return results.back();
  });
  Require(outcome == last, "EvalMulti ends as Eval does");
  for (std::size_t at = 0; at < expected.size(); ++at) {
    Require(Outcome{expected[at], ""} == Outcome{results[at], ""},
            "EvalMulti gives what Eval does");
  }
  CheckDump(multi);
}

void CheckValues(MathParser& parser, std::string_view numbers) {
  std::vector<double> values;
  while (!numbers.empty() && values.size() < 300) {
    const std::string line(TakeLine(numbers));
    parser.AngleUnit(line);
    values.push_back(std::strtod(line.c_str(), nullptr));
  }
  if (values.empty()) values.push_back(0.5);
  for (int variable = 1; variable <= parser.VarTop(); ++variable) {
    parser.VarValue(variable, values[static_cast<std::size_t>(variable - 1) % values.size()]);
  }
  const Outcome outcome = OutcomeOf([&] { return parser.Eval(); });
  Require(outcome.value.has_value() == outcome.error.empty(), "a value or an error");
  if (outcome.value) Require(std::isfinite(*outcome.value), "a value is finite");
  CheckDump(parser);
  if (IsRandom(parser.Expression())) return;
  Require(outcome == OutcomeOf([&] { return parser.Eval(); }), "Eval gives the same again");
  if (parser.VarTop() <= 1) {
    Require(outcome == OutcomeOf([&] { return parser.Eval1(parser.VarValue(1)); }),
            "Eval1 gives what Eval does");
  }
  if (parser.VarTop() > 0) CheckMulti(parser, 1, values);
  if (parser.VarTop() > 1) CheckMulti(parser, parser.VarTop(), values);
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zentab;
  std::string_view input = fuzz::InputOf(data, size);
  const std::string_view expression = fuzz::TakeLine(input);
  mathparser::MathParser parser;
  const bool compiles = parser.StoreExpression(expression);
  fuzz::Require(compiles == parser.ErrorDescription().empty(), "compiled or an error");
  fuzz::Require(parser.VarTop() <= mathparser::kMaxVariables, "not too many variables");
  if (compiles) {
    for (int variable = 1; variable <= parser.VarTop(); ++variable) {
      fuzz::Require(parser.VarSymb(parser.VarName(variable)) == variable, "a name is a variable's");
    }
    fuzz::CheckValues(parser, input);
  } else {
    fuzz::Require(!fuzz::OutcomeOf([&] { return parser.Eval(); }).value, "nothing to evaluate");
    fuzz::CheckDump(parser);
  }
  return 0;
}
