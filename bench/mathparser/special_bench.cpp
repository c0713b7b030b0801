// Each special function over its reference arguments, and the standard library's where it has it.
#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>

#include "special_reference.h"

#ifndef SPECIAL_REFERENCE
#error "the file of reference values is missing"
#endif

namespace {

using namespace zentab::mathparser;

void Own(benchmark::State& state, const std::vector<ReferenceValue>& values) {
  const Kernel kernel = StandardCatalogue().Find(values.front().keyword)->kernel;
  CallContext context;
  for (auto _ : state) {
    for (const ReferenceValue& value : values) {
      benchmark::DoNotOptimize(kernel(value.arguments.data(), context));
    }
  }
  state.counters["per_call"] = benchmark::Counter(
      static_cast<double>(values.size()),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

template <class F>
void Standard(benchmark::State& state, const std::vector<ReferenceValue>& values, F function) {
  for (auto _ : state) {
    for (const ReferenceValue& value : values) {
      try {
        benchmark::DoNotOptimize(function(value.arguments.data()));
      } catch (const std::exception&) {
      }
    }
  }
  state.counters["per_call"] = benchmark::Counter(
      static_cast<double>(values.size()),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

using Function = double (*)(const double*);

const std::map<std::string, Function>& StandardFunctions() {
  static const std::map<std::string, Function> functions = {
      {"gamma", [](const double* a) { return std::tgamma(a[0]); }},
      {"gammaln", [](const double* a) { return std::lgamma(a[0]); }},
      {"erf", [](const double* a) { return std::erf(a[0]); }},
      {"beta", [](const double* a) { return std::beta(a[0], a[1]); }},
      {"ei", [](const double* a) { return std::expint(a[0]); }},
      {"zeta", [](const double* a) { return std::riemann_zeta(a[0]); }},
      {"besselj", [](const double* a) { return std::cyl_bessel_j(a[1], a[0]); }},
      {"bessely", [](const double* a) { return std::cyl_neumann(a[1], a[0]); }},
      {"besseli", [](const double* a) { return std::cyl_bessel_i(a[1], a[0]); }},
      {"besselk", [](const double* a) { return std::cyl_bessel_k(a[1], a[0]); }},
      {"elli1", [](const double* a) { return std::ellint_1(a[1], a[0] * 0.017453292519943295); }},
      {"elli2", [](const double* a) { return std::ellint_2(a[1], a[0] * 0.017453292519943295); }},
  };
  return functions;
}

}  // namespace

int main(int count, char** words) {
  std::map<std::string, std::vector<ReferenceValue>> families;
  for (ReferenceValue& value : ReadReferenceValues(SPECIAL_REFERENCE)) {
    families[value.keyword].push_back(std::move(value));
  }
  for (const auto& [keyword, values] : families) {
    benchmark::RegisterBenchmark((keyword + "/own").c_str(), Own, values);
    const auto found = StandardFunctions().find(keyword);
    if (found != StandardFunctions().end()) {
      benchmark::RegisterBenchmark((keyword + "/std").c_str(), Standard<Function>, values,
                                   found->second);
    }
  }
  benchmark::Initialize(&count, words);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
