#include "muparser_bench.h"

#include <benchmark/benchmark.h>
#include <muParser.h>

#include <utility>
#include <vector>

#include "inputs.h"

namespace zentab::mathparser::bench {
namespace {

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

template <std::size_t... N>
void RegisterSingle(const Formula& formula, const std::string& name, std::index_sequence<N...>) {
  const auto add = [&]<std::size_t Count>(std::integral_constant<std::size_t, Count>) {
    if (formula.variables.size() != Count) return;
    RegisterFor(name, formula, [](auto& state, auto& given) {
      SingleMuParser(state, given, std::make_index_sequence<Count>());
    });
  };
  (add(std::integral_constant<std::size_t, N>()), ...);
}

}  // namespace

void RegisterMuParser(const Formula& formula, const std::string& number) {
  RegisterSingle(formula, "MuParserEval/" + number, std::make_index_sequence<8>());
  RegisterFor("MuParserCompile/" + number, formula, CompileMuParser);
}

}  // namespace zentab::mathparser::bench
