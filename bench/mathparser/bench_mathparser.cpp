#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

#include "formulas.h"
#include "inputs.h"
#include "mathparser/math_parser.h"
#include "muparser_bench.h"
#include "ratio_reporter.h"

namespace zentab::mathparser::bench {
namespace {

constexpr std::size_t kMultiPoints = 1000000;

template <std::size_t... I>
void SingleNative(benchmark::State& state, const Formula& formula, std::index_sequence<I...>) {
  const std::vector<double> inputs = RandomInputs(formula, kPoints * sizeof...(I));
  double (*native)(const double*) = formula.native;
  benchmark::DoNotOptimize(native);
  for (auto _ : state) {
    for (std::size_t p = 0; p < kPoints; ++p) {
      benchmark::DoNotOptimize(native(&inputs[p * sizeof...(I)]));
    }
  }
  CountItems(state, kPoints);
}

template <std::size_t... I>
void SingleEval(benchmark::State& state, const Formula& formula, std::index_sequence<I...>) {
  const std::vector<double> inputs = RandomInputs(formula, kPoints * sizeof...(I));
  MathParser parser;
  if (!parser.StoreExpression(formula.text)) state.SkipWithError("does not compile");
  for (auto _ : state) {
    for (std::size_t p = 0; p < kPoints; ++p) {
      const double* v = &inputs[p * sizeof...(I)];
      (parser.VarValue(static_cast<int>(I) + 1, v[I]), ...);
      benchmark::DoNotOptimize(parser.Eval());
    }
  }
  CountItems(state, kPoints);
}

// Values that are none of the random ones.
std::vector<double> OtherVariables(const Formula& formula) {
  std::vector<double> variables(formula.variables.size());
  for (std::size_t i = 0; i < variables.size(); ++i) {
    const auto share = static_cast<double>(i + 1) / static_cast<double>(variables.size() + 1);
    variables[i] = formula.lowest + share * (formula.highest - formula.lowest);
  }
  return variables;
}

// The first variable runs through a million values, the others stay.
void MultiNative(benchmark::State& state, const Formula& formula) {
  const std::vector<double> inputs = RandomInputs(formula, kMultiPoints);
  std::vector<double> variables = OtherVariables(formula);
  std::vector<double> results(kMultiPoints);
  double (*native)(const double*) = formula.native;
  benchmark::DoNotOptimize(native);
  for (auto _ : state) {
    for (std::size_t p = 0; p < kMultiPoints; ++p) {
      variables[0] = inputs[p];
      results[p] = native(variables.data());
    }
    benchmark::DoNotOptimize(results.data());
  }
  CountItems(state, kMultiPoints);
}

void PrepareMulti(benchmark::State& state, MathParser& parser, const Formula& formula) {
  if (!parser.StoreExpression(formula.text)) state.SkipWithError("does not compile");
  const std::vector<double> variables = OtherVariables(formula);
  for (int i = 1; i <= parser.VarTop(); ++i) {
    parser.VarValue(i, variables[static_cast<std::size_t>(i) - 1]);
  }
}

// Into memory of the caller, as the native loop does it.
void MultiEval(benchmark::State& state, const Formula& formula) {
  const std::vector<double> inputs = RandomInputs(formula, kMultiPoints);
  std::vector<double> results(kMultiPoints);
  MathParser parser;
  PrepareMulti(state, parser, formula);
  for (auto _ : state) {
    parser.EvalMulti(inputs, results, 1);
    benchmark::DoNotOptimize(results.data());
  }
  CountItems(state, kMultiPoints);
}

void MultiEvalVector(benchmark::State& state, const Formula& formula) {
  const std::vector<double> inputs = RandomInputs(formula, kMultiPoints);
  MathParser parser;
  PrepareMulti(state, parser, formula);
  for (auto _ : state) {
    std::vector<double> results = parser.EvalMulti(inputs, 1);
    benchmark::DoNotOptimize(results.data());
  }
  CountItems(state, kMultiPoints);
}

void Compile(benchmark::State& state, const Formula& formula) {
  MathParser parser;
  for (auto _ : state) benchmark::DoNotOptimize(parser.StoreExpression(formula.text));
  CountItems(state, 1);
}

template <std::size_t N>
void RegisterSingles(const Formula& formula, const std::string& number) {
  if (formula.variables.size() != N) return;
  using Indices = std::make_index_sequence<N>;
  RegisterFor("Native/" + number, formula, [](auto& s, auto& f) { SingleNative(s, f, Indices()); });
  RegisterFor("Eval/" + number, formula, [](auto& s, auto& f) { SingleEval(s, f, Indices()); });
}

template <std::size_t... N>
void RegisterAnyOf(const Formula& formula, const std::string& number, std::index_sequence<N...>) {
  (RegisterSingles<N>(formula, number), ...);
}

void Register() {
  for (std::size_t i = 0; i < Formulas().size(); ++i) {
    const Formula& formula = Formulas()[i];
    const std::string number = std::to_string(i);
    RegisterAnyOf(formula, number, std::make_index_sequence<8>());
    RegisterFor("NativeMulti/" + number, formula, MultiNative);
    RegisterFor("EvalMulti/" + number, formula, MultiEval);
    RegisterFor("EvalMultiVector/" + number, formula, MultiEvalVector);
    RegisterFor("Compile/" + number, formula, Compile);
    RegisterMuParser(formula, number);
  }
}

}  // namespace
}  // namespace zentab::mathparser::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  zentab::mathparser::bench::Register();
  zentab::mathparser::bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
