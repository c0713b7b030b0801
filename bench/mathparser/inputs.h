#pragma once

#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "formulas.h"

namespace zentab::mathparser::bench {

inline constexpr std::size_t kPoints = 2048;  // of the single evaluations, small enough for L1/L2

/// So many times the formula's variables, the same ones for everybody.
inline std::vector<double> RandomInputs(const Formula& formula, std::size_t count) {
  std::mt19937_64 random(20240501);
  std::uniform_real_distribution<double> in(formula.lowest, formula.highest);
  std::vector<double> inputs(count);
  for (double& input : inputs) input = in(random);
  return inputs;
}

inline void CountItems(benchmark::State& state, std::size_t perIteration) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(perIteration));
}

/// The formula outlives the benchmark.
template <class Function>
void RegisterFor(const std::string& name, const Formula& formula, Function function) {
  benchmark::RegisterBenchmark(
      name.c_str(), [&formula, function](benchmark::State& state) { function(state, formula); });
}

}  // namespace zentab::mathparser::bench
