#include "ratio_reporter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "bench/speed_line.h"
#include "formulas.h"

namespace zentab::mathparser::bench {

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    const auto rate = run.counters.find("items_per_second");
    if (run.run_type != Run::RT_Iteration || rate == run.counters.end()) continue;
    times_[run.run_name.function_name].push_back(1e9 / rate->second);
  }
  ConsoleReporter::ReportRuns(runs);
}

double RatioReporter::Nanoseconds(const std::string& what, std::size_t formula) const {
  const auto found = times_.find(what + '/' + std::to_string(formula));
  if (found == times_.end()) return std::nan("");
  return *std::min_element(found->second.begin(), found->second.end());
}

void RatioReporter::Finalize() {
  struct Column {
    const char* ours;
    const char* other;
  };
  constexpr Column kRatios[] = {{"Eval", "Native"},
                                {"MuParserEval", "Eval"},
                                {"EvalMulti", "NativeMulti"},
                                {"EvalMultiVector", "NativeMulti"},
                                {"MuParserCompile", "Compile"}};
  std::printf(
      "\n| formula | native ns | Eval ns | Eval / native | muParser / Eval | "
      "native ns, 10^6 points | EvalMulti ns | EvalMulti / native | with a new vector / native | "
      "compile ns | muParser compile / compile |\n"
      "|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n");
  double logarithms[5] = {};
  for (std::size_t i = 0; i < Formulas().size(); ++i) {
    double ratios[5] = {};
    for (std::size_t r = 0; r < 5; ++r) {
      ratios[r] = Nanoseconds(kRatios[r].ours, i) / Nanoseconds(kRatios[r].other, i);
      logarithms[r] += std::log(ratios[r]);
    }
    std::printf(
        "| `%.*s` | %.2f | %.2f | %.2f | %.2f | %.2f | %.2f | %.2f | %.2f | %.0f | %.2f |\n",
        static_cast<int>(Formulas()[i].text.size()), Formulas()[i].text.data(),
        Nanoseconds("Native", i), Nanoseconds("Eval", i), ratios[0], ratios[1],
        Nanoseconds("NativeMulti", i), Nanoseconds("EvalMulti", i), ratios[2], ratios[3],
        Nanoseconds("Compile", i), ratios[4]);
  }
  const auto mean = [&](std::size_t r) {
    return std::exp(logarithms[r] / static_cast<double>(Formulas().size()));
  };
  std::printf("| geometric mean | | | %.2f | %.2f | | | %.2f | %.2f | | %.2f |\n", mean(0), mean(1),
              mean(2), mean(3), mean(4));
  PrintSpeedLines(mean(0));
}

void RatioReporter::PrintSpeedLines(double meanOfEval) const {
  using zentab::bench::Aim;
  const auto print = zentab::bench::PrintSpeedLine;
  print("Eval, geometric mean", "x native function", meanOfEval, Aim::Most, 2.0);
  for (std::size_t i = 0; i < Formulas().size(); ++i) {
    const auto ratio = [&](const char* one, const char* other) {
      return Nanoseconds(one, i) / Nanoseconds(other, i);
    };
    print("muParser's evaluation", "x Eval", ratio("MuParserEval", "Eval"), Aim::Least, 2.0);
    print("EvalMulti, million points", "x native function", ratio("EvalMulti", "NativeMulti"),
          Aim::Most, 1.2);
    print("Compiling", "us", Nanoseconds("Compile", i) / 1e3, Aim::Most, 4.0);
    print("muParser's compilation", "x Compile", ratio("MuParserCompile", "Compile"), Aim::Least,
          3.0);
  }
}

}  // namespace zentab::mathparser::bench
