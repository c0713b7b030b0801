#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/speed_reporter.h"
#include "mathparser/math_parser.h"

// What texts that nobody writes by hand cost, to the error or the value: compiled, evaluated and
// shown. One that takes a second (1000 ms) is a fault.

namespace zentab::mathparser::bench {
namespace {

constexpr std::size_t kLong = 10'000'000;  // bytes
constexpr std::size_t kDeep = 100'000;     // brackets

std::string Repeated(const std::string& part, std::size_t count) {
  std::string text;
  text.reserve(part.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += part;
  return text;
}

std::string Filled(const std::string& part) { return Repeated(part, kLong / part.size()); }

struct HostileText {
  const char* name;
  std::string (*make)();
};

const HostileText kTexts[] = {
    {"NestedBrackets", [] { return Repeated("(", kDeep) + "x" + Repeated(")", kDeep); }},
    {"OpenBrackets", [] { return Filled("("); }},
    {"OpenCalls", [] { return Filled("max("); }},
    {"Digits", [] { return "0." + Filled("7"); }},
    {"Exponent", [] { return "1E" + Filled("9"); }},
    {"Dots", [] { return Filled("."); }},
    {"BrokenCharacters", [] { return Filled("\xC2"); }},
    {"OneName", [] { return Filled("abc"); }},
    {"LongNames",
     [] {
       const std::string name = Repeated("a", kLong / 201);
       return Repeated(name + "+", 199) + name;
     }},
    {"TwoHundredRows", [] { return Repeated("1+", 200) + "1"; }},
    {"LargestOrders", [] { return Repeated("polyla(1.5,50000)+", 99) + "1"; }},
    {"LargestShapes", [] { return std::string("cbinom(1E14,1E15,0.1)+betai(0.5,1E15,1E15)"); }},
    {"SlowestSeries", [] { return std::string("hypgeom(0.9999999999999999,150.5,1E3,12345.5)"); }},
};

void Hostile(benchmark::State& state) {
  const HostileText& hostile = kTexts[static_cast<std::size_t>(state.range(0))];
  const std::string text = hostile.make();
  for (auto _ : state) {
    MathParser parser;
    if (!parser.StoreExpression(text)) continue;
    for (int i = 1; i <= parser.VarTop(); ++i) parser.VarValue(i, 0.5);
    try {
      benchmark::DoNotOptimize(parser.Eval());
    } catch (const EvaluationError&) {
      // Some of them have no value.
    }
    benchmark::DoNotOptimize(parser.ET_Dump());
  }
  state.SetLabel(hostile.name);
  state.counters["most ms"] = 1000.0;
}
BENCHMARK(Hostile)->DenseRange(0, std::ssize(kTexts) - 1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zentab::mathparser::bench

int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
