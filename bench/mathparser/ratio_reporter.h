#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace zentab::mathparser::bench {

/// Prints every run as the console does and, at the end, the table of ratios in Markdown. A
/// benchmark is named "what/formula number"; of repeated runs the fastest counts, as whatever else
/// the machine does only slows them.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  void PrintSpeedLines(double meanOfEval) const;
  [[nodiscard]] double Nanoseconds(const std::string& what, std::size_t formula) const;

  std::map<std::string, std::vector<double>> times_;  // nanoseconds per item
};

}  // namespace zentab::mathparser::bench
