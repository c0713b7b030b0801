#pragma once

#include <string>

namespace zentab::tools {

/// The result files that a current and a voltage time test of the demo installation left: an
/// inverse overcurrent curve over I> = 1 A and an overvoltage curve over U> = 110 V, with the
/// scatter of a real measurement, timeouts below pickup, and two spikes each.
[[nodiscard]] std::string DemoCurrentResult();
[[nodiscard]] std::string DemoVoltageResult();

}  // namespace zentab::tools
