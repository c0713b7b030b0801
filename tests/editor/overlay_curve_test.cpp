#include "editor/overlay_curve.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zentab::editor {
namespace {

std::string TextOf(const ConvertedCurve& converted) {
  std::string text;
  for (const ChartPoint& point : converted.curve.points) {
    text += std::to_string(std::lround(point.load * 100)) + ';' +
            std::to_string(std::lround(point.time * 100)) + ' ';
  }
  return text + std::to_string(static_cast<int>(converted.fault));
}

TEST(OverlayCurve, IsConvertedIntoTheUnitsOfTheGrid) {
  const struct {
    const char* line;
    ValueModes modes;
    const char* curve;
  } cases[] = {
      {"{\"\"\t(1;2)(3;4) 001}", {false, false, "", ""}, "100;200 300;400 0"},
      {"{\"\"\t(1;2)(3;4) 001}", {true, true, "2,5", ""}, "250;200000 750;400000 0"},
      {"{\"\"\t(5;2000)(10;1000) 111}", {false, false, "5", ""}, "100;200 200;100 0"},
      {"{\"\"\t(5;2)(10;1) 011}", {false, false, "", ""}, "1"},
      {"{\"\"\t(5;2)(10;1) 011}", {true, false, "", ""}, "500;200 1000;100 0"},
      {"{\"\"\t(5;2)(x;1) 001}", {}, "2"},
      {"{\"\"\t 001}", {}, "2"},
      {"{\"\"\t(1;2)(2;1)}", {true, true, "5", ""}, "100;200 200;100 0"},
  };
  for (const auto& [line, modes, curve] : cases) {
    const OverlayTable table = OverlayFrom("", tables::ParseEntryLine(line), modes);
    EXPECT_EQ(TextOf(Converted(table, modes)), curve) << line;
  }
}

ChartCurve CurveThrough(const std::vector<std::pair<double, double>>& points) {
  OverlayTable table;
  for (const auto& [load, time] : points) {
    table.points.push_back({std::to_string(load), std::to_string(time)});
  }
  return Converted(table, {}).curve;
}

TEST(OverlayCurve, DiffersFromAReferenceWhereBothHaveTimes) {
  const ChartCurve reference = CurveThrough({{1, 10}, {10, 1}});
  const auto differences = DifferenceOf(CurveThrough({{2, 5.5}, {4, 5}, {40, 1}}), reference, {});
  // At three loads of the two curves' points and 23 between them.
  ASSERT_EQ(differences.size(), 26u);
  EXPECT_DOUBLE_EQ(differences.front().load, 2);
  EXPECT_NEAR(differences.front().percent, 10, 1e-9);
  EXPECT_DOUBLE_EQ(differences.back().load, 10);
  for (const PercentAt& place : differences) {
    EXPECT_TRUE(place.load != 4.0 || std::abs(place.percent - 100) < 1e-9);
  }
  EXPECT_TRUE(DifferenceOf(CurveThrough({{10, 5}, {40, 1}}), reference, {}).empty());
  EXPECT_EQ(DifferenceOf(reference, reference, {}).size(), 25u);
  EXPECT_TRUE(DifferenceOf({}, reference, {}).empty());
  EXPECT_TRUE(DifferenceOf(reference, CurveThrough({{1, 0}, {10, 0}}), {false, false}).empty());
}

}  // namespace
}  // namespace zentab::editor
