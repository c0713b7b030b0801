#include <benchmark/benchmark.h>
#include <muParser.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "formulas.h"
#include "mathparser/math_parser.h"
#include "ratio_reporter.h"

namespace zentab::mathparser::bench {
namespace {

constexpr std::size_t kPoints = 2048;  // of the single evaluations, small enough for L1/L2
constexpr std::size_t kMultiPoints = 1000000;

std::vector<double> RandomInputs(const Formula& formula, std::size_t count) {
  std::mt19937_64 random(20240501);
  std::uniform_real_distribution<double> in(formula.lowest, formula.highest);
  std::vector<double> inputs(count);
  for (double& input : inputs) input = in(random);
  return inputs;
}

void CountItems(benchmark::State& state, std::size_t perIteration) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(perIteration));
}

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

void PrepareMuParser(mu::Parser& parser, const Formula& formula, std::vector<double>& variables) {
  variables.resize(formula.variables.size());
  for (std::size_t i = 0; i < variables.size(); ++i) {
    parser.DefineVar(std::string(formula.variables[i]), &variables[i]);
  }
}

template <std::size_t... I>
void SingleMuParser(benchmark::State& state, const Formula& formula, std::index_sequence<I...>) {
  const std::vector<double> inputs = RandomInputs(formula, kPoints * sizeof...(I));
  std::vector<double> variables;
  mu::Parser parser;
  PrepareMuParser(parser, formula, variables);
  parser.SetExpr(std::string(formula.muParserText));
  for (auto _ : state) {
    for (std::size_t p = 0; p < kPoints; ++p) {
      const double* v = &inputs[p * sizeof...(I)];
      ((variables[I] = v[I]), ...);
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

// muParser compiles at the first evaluation.
void CompileMuParser(benchmark::State& state, const Formula& formula) {
  std::vector<double> variables;
  mu::Parser parser;
  PrepareMuParser(parser, formula, variables);
  for (double& variable : variables) variable = 2.5;
  const std::string text(formula.muParserText);
  for (auto _ : state) {
    parser.SetExpr(text);
    benchmark::DoNotOptimize(parser.Eval());
  }
  CountItems(state, 1);
}

template <std::size_t N>
void RegisterSingles(const Formula& formula, const std::string& number) {
  if (formula.variables.size() != N) return;
  using Indices = std::make_index_sequence<N>;
  const auto add = [&](const char* what, auto function) {
    benchmark::RegisterBenchmark((what + number).c_str(), [&formula, function](auto& state) {
      function(state, formula, Indices());
    });
  };
  add("Native/", [](auto& s, const Formula& f, auto i) { SingleNative(s, f, i); });
  add("Eval/", [](auto& s, const Formula& f, auto i) { SingleEval(s, f, i); });
  add("MuParserEval/", [](auto& s, const Formula& f, auto i) { SingleMuParser(s, f, i); });
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
    const auto add = [&](const char* what, void (*function)(benchmark::State&, const Formula&)) {
      benchmark::RegisterBenchmark((what + number).c_str(),
                                   [&formula, function](auto& state) { function(state, formula); });
    };
    add("NativeMulti/", MultiNative);
    add("EvalMulti/", MultiEval);
    add("EvalMultiVector/", MultiEvalVector);
    add("Compile/", Compile);
    add("MuParserCompile/", CompileMuParser);
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
