#include "tools/demo_time_test.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

#include "texts/number_text.h"

namespace zentab::tools {
namespace {

struct Spike {
  int entry;
  double factor;  // of the true trip time
};

struct Test {
  std::string_view beginning;  // all lines down to the section's column titles
  std::string_view ending;
  double pickup;  // A or V
  double lowest;  // multiples of the pickup value
  double highest;
  int entries;
  double timeout;  // ms, after which the test set gives up
  int loadDecimals;
  std::function<double(double)> tripTime;  // ms, of the multiple of the pickup value
  Spike spikes[2];
};

// Even scatter between -1 and 1, the same on every machine.
class Scatter {
 public:
  double Next() {
    state_ = state_ * 1664525u + 1013904223u;
    return static_cast<double>(state_ >> 8) / 8388608.0 - 1.0;
  }

 private:
  std::uint32_t state_ = 2026;
};

double Measured(const Test& test, double multiple, int entry, Scatter& scatter) {
  if (multiple <= 1.02) return test.timeout;
  // 0.4 % of the relay's own spread, 3 ms of the output contact's.
  double time = test.tripTime(multiple) * (1.0 + 0.004 * scatter.Next()) + 3.0 * scatter.Next();
  for (const Spike& spike : test.spikes) {
    if (spike.entry == entry) time *= spike.factor;
  }
  return std::min(time, test.timeout);
}

std::string ResultFile(const Test& test) {
  std::string file(test.beginning);
  Scatter scatter;
  for (int entry = 1; entry <= test.entries; ++entry) {
    const double place = static_cast<double>(entry - 1) / (test.entries - 1);
    const double multiple = test.lowest * std::pow(test.highest / test.lowest, place);
    file += std::to_string(entry);
    file += '\t' + texts::FixedText(multiple * test.pickup, test.loadDecimals);
    file += '\t' + texts::FixedText(Measured(test, multiple, entry, scatter), 1) + "\t\r\n";
  }
  return file.append(test.ending);
}

}  // namespace

std::string DemoCurrentResult() {
  return ResultFile(
      {"MIRAX current time test\r\n"
       "Relay\tFeeder 12, 51 phase L1\r\n"
       "Date\t2026-11-02 09:41\r\n"
       "\r\n"
       "Pickup test\r\n"
       "No.\tRise (A)\tFall (A)\r\n"
       "1\t1.004\t0.957\t\r\n"
       "2\t1.003\t0.956\t\r\n"
       "\r\n"
       "Time test, current: I> = 1.00 A, timeout 60 s\r\n"
       "No.\tI (A)\tt (ms)\r\n",
       "\r\n"
       "Remarks\r\n"
       "Curve IEC SI, TMS 0.20; contact cleaned before the test\r\n",
       1.0,
       0.9,
       20.0,
       320,
       60'000.0,
       3,
       [](double multiple) { return 28.0 / (std::pow(multiple, 0.02) - 1.0); },
       {{96, 1.7}, {205, 0.45}}});
}

std::string DemoVoltageResult() {
  return ResultFile(
      {"MIRAX voltage time test\r\n"
       "Relay\tBusbar 1, 59 phase L1-L2\r\n"
       "Date\t2026-11-02 10:26\r\n"
       "\r\n"
       "Time test, voltage: U> = 110.0 V, timeout 30 s\r\n"
       "No.\tU (V)\tt (ms)\r\n",
       "\r\n"
       "Remarks\r\n"
       "Curve IDMT, TMS 0.5\r\n",
       110.0,
       0.95,
       2.0,
       240,
       30'000.0,
       2,
       [](double multiple) { return 500.0 / (multiple - 1.0); },
       {{90, 1.5}, {170, 0.6}}});
}

}  // namespace zentab::tools
