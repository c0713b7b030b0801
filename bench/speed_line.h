#pragma once

#include <cstdio>
#include <string>

namespace zentab::bench {

/// Whether a measured value is to stay below its aim or above it.
enum class Aim { None, Most, Least };

/// What scripts/speed.py reads: a line of fields with tabs between them. `measure` is "x NAME" for
/// a ratio to a yardstick, else the unit; NaN stands for a yardstick that is not installed. Several
/// lines of one name and measure become one row, that of the worst value.
inline void PrintSpeedLine(const std::string& name, const std::string& measure, double value,
                           Aim aim = Aim::None, double limit = 0.0) {
  static constexpr const char* kAims[] = {"none", "most", "least"};
  std::printf("speed\t%s\t%s\t%.6g\t%s\t%g\n", name.c_str(), measure.c_str(), value,
              kAims[static_cast<int>(aim)], limit);
  std::fflush(stdout);
}

}  // namespace zentab::bench
