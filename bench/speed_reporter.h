#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/speed_line.h"

namespace zentab::bench {

/// Prints every run as the console does, and its speed lines. What a run is to keep below or above
/// is a counter named "most MEASURE" or "least MEASURE", where the measure is another counter, or
/// "ms" for the time of an iteration; counters named "x NAME" are ratios and get a line each. A run
/// without any of them gets one for its time.
class SpeedReporter : public benchmark::ConsoleReporter {
 public:
  // Without colours, whose codes would stand in front of the speed lines.
  SpeedReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      failed_ = failed_ || run.error_occurred;
      int lines = 0;
      for (const auto& [name, counter] : run.counters) {
        lines +=
            PrintAim(run, name, "most ", Aim::Most) + PrintAim(run, name, "least ", Aim::Least);
        const bool hasAim =
            run.counters.contains("most " + name) || run.counters.contains("least " + name);
        if (!name.starts_with("x ") || hasAim) continue;
        PrintSpeedLine(run.run_name.function_name, name, counter.value);
        ++lines;
      }
      if (lines == 0) PrintSpeedLine(run.run_name.function_name, "ms", Milliseconds(run));
    }
  }

  /// Whether one of the benchmarks has failed.
  [[nodiscard]] bool HasFailed() const { return failed_; }

 private:
  static double Milliseconds(const Run& run) {
    const bool isManual = run.run_name.time_type == "manual_time";
    const double time = isManual ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
    return time / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e3;
  }
  static int PrintAim(const Run& run, const std::string& counter, const std::string& prefix,
                      Aim aim) {
    if (!counter.starts_with(prefix)) return 0;
    const std::string measure = counter.substr(prefix.size());
    const double value = measure == "ms" ? Milliseconds(run) : run.counters.at(measure).value;
    PrintSpeedLine(run.run_name.function_name, measure, value, aim, run.counters.at(counter).value);
    return 1;
  }

  bool failed_ = false;
};

/// The main of a program of benchmarks: 0 when all of them have run.
inline int RunBenchmarks(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  SpeedReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.HasFailed() ? 1 : 0;
}

}  // namespace zentab::bench
