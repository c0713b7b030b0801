#pragma once

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/in_turns.h"
#include "timetest/point_reader.h"

namespace zentab::bench {

/// A result file with a time test of so many points, the loads evenly spaced up to 20 times the
/// pickup value; removed at the end. `disturbed(point, time)` gives the time in ms that stands for
/// the standard inverse one.
class ResultFile {
 public:
  template <class Disturbed>
  ResultFile(int points, int loadDecimals, Disturbed disturbed)
      : path_(std::filesystem::temp_directory_path() /
              ("zentab-result-" + std::to_string(::getpid()) + "-" + std::to_string(points))) {
    std::ofstream file(path_, std::ios::binary);
    file << "Time test\r\n";
    for (int point = 1; point <= points; ++point) {
      const double load = 1.05 + 19.0 * point / points;
      const double time = disturbed(point, 140.0 / (std::pow(load, 0.02) - 1.0));
      char line[80];
      const int length =
          std::snprintf(line, sizeof line, "%d\t%.*f\t%.1f\t\r\n", point, loadDecimals, load, time);
      file.write(line, length);
    }
    Require(static_cast<bool>(file.flush()));
  }
  ~ResultFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  ResultFile(const ResultFile&) = delete;
  ResultFile& operator=(const ResultFile&) = delete;

  [[nodiscard]] timetest::ResultSource Source() const { return {path_, "Time test"}; }

 private:
  std::filesystem::path path_;
};

}  // namespace zentab::bench
