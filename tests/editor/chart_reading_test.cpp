#include "editor/chart_reading.h"

#include <gtest/gtest.h>

#include <cmath>

#include "editor/screen_numbers.h"

namespace zentab::editor {
namespace {

ChartCurve CurveThrough(const std::vector<std::pair<double, double>>& points) {
  ChartCurve curve;
  for (const auto& [load, time] : points) {
    curve.points.push_back({static_cast<int>(curve.points.size()) + 1, load, time});
  }
  return curve;
}

TEST(ChartReading, LinesAreStraightInTheAxesShown) {
  const ChartCurve curve = CurveThrough({{1, 100}, {100, 1}, {100, 0.5}, {10, 0.1}});
  const struct {
    double load, near;
    AxisKinds axes;
    std::optional<double> time;
  } cases[] = {
      {10, 50, {true, true}, 10},
      {10, 50, {true, false}, 50.5},
      {50.5, 50, {false, true}, 10},
      {50.5, 50, {false, false}, 50.5},
      {1, 50, {true, true}, 100},
      {100, 0.7, {true, true}, 0.7},  // on the upright line
      {100, 90, {true, true}, 1},
      {10, 0.2, {true, true}, 0.1},  // where the rows lead back
      {31.6227766, 0.2, {true, true}, 0.2236068},
      {0.99, 50, {true, true}, {}},
      {100.5, 50, {true, true}, {}},
  };
  for (const auto& [load, near, axes, time] : cases) {
    const std::optional<double> read = TimeAt(curve, load, near, axes);
    EXPECT_EQ(read.has_value(), time.has_value()) << load;
    EXPECT_NEAR(read.value_or(0), time.value_or(0), 1e-6) << load;
  }
  EXPECT_EQ(TimeAt(CurveThrough({{1, 2}}), 1, 2, {}), std::nullopt);
  EXPECT_EQ(TimeAt(CurveThrough({{-1, -2}, {1, 2}}), 0, -5, {false, false}), 0.0);
  // A zero, which has no place on a logarithmic axis, leaves the ends as they are.
  const ChartCurve toZero = CurveThrough({{1, 3}, {10, 0}, {100, 3}});
  for (const double load : {1.0, 100.0}) EXPECT_EQ(TimeAt(toZero, load, 5, {true, true}), 3.0);
  EXPECT_EQ(TimeAt(CurveThrough({{0, 1}, {2, 1}, {2, 3}, {0, 3}}), 1, 2, {false, false}), 1.0);
}

TEST(ScreenNumbers, HaveTheDigitsThatAPixelTellsApart) {
  const struct {
    double number, step;
    double rounded;
    const char* text;
  } cases[] = {
      {3.87298, 0.012, 3.87, "3,87"},
      {3.87298, 0.09, 3.87, "3,87"},
      {3.9, 0.01, 3.9, "3,90"},
      {1234.5, 12, 1230, "1230"},
      {1234.6, 3, 1235, "1235"},
      {0.00123456, 1e-5, 0.00123, "0,00123"},
      {2.0 / 3.0, 0, 2.0 / 3.0, "0,6666667"},
      {5, NAN, 5, "5"},
      {12345678, 1e6, 12000000, "12000000"},
      {-7.26, 0.1, -7.3, "-7,3"},
      {2.5, 1, 2, "2"},
      {25, 12, 30, "30"},
      {1.23456789e-9, 2e-15, 1.234568e-9, "0,000000001234568"},
      {1.2345678912e-9, 2e-16, 1.2345678912e-9, "1,2345678912E-09"},
  };
  for (const auto& [number, step, rounded, text] : cases) {
    EXPECT_DOUBLE_EQ(RoundedTo(number, step), rounded) << number;
    EXPECT_EQ(RoundedText(number, step, ","), text) << number;
  }
}

}  // namespace
}  // namespace zentab::editor
