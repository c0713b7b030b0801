#include "editor/chart_axes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zentab::editor {
namespace {

TEST(ChartAxes, LimitsAndUnitsFollowTheModesWhereThePickupValueAllows) {
  const struct {
    bool absolute;
    const char* pickup;
    LoadUnit unit;
    double factor;
    bool showsAbsolute;
    std::optional<Range> loads;  // of limits of 2 to 10 multiples
  } cases[] = {
      {false, "", LoadUnit::AsInGrid, 1, false, {{2, 10}}},
      {false, "", LoadUnit::Absolute, 1, false, {{2, 10}}},
      {false, "5", LoadUnit::Absolute, 5, true, {{2, 10}}},
      {true, "0,5", LoadUnit::Multiples, 2, false, {{1, 5}}},
      {true, "0.5", LoadUnit::AsInGrid, 1, true, {{1, 5}}},
      {true, "0", LoadUnit::Multiples, 1, true, {}},
      {true, "x", LoadUnit::AsInGrid, 1, true, {}},
  };
  for (const auto& given : cases) {
    const ValueModes modes{given.absolute, true, given.pickup, {}};
    const ChartAxes wanted{{}, given.unit, {{2, 10}}, false, {{0.5, 3}}, false, true};
    const ViewAxes axes = AxesFor(wanted, modes);
    const std::string what = std::to_string(given.absolute) + given.pickup;
    EXPECT_DOUBLE_EQ(axes.loadFactor, given.factor) << what;
    EXPECT_EQ(ShowsAbsoluteLoads(wanted, modes), given.showsAbsolute) << what;
    EXPECT_EQ(axes.loads, given.loads) << what;
    EXPECT_EQ(axes.times, (Range{500, 3000})) << what;
  }
}

TEST(ChartAxes, TakeTheLimitsThatTheyHaveAPlaceFor) {
  const std::optional<Range> none;
  const struct {
    std::optional<Range> given;
    std::optional<Range> logarithmic;
    std::optional<Range> linear;
  } cases[] = {
      {{{1, 5}}, {{1, 5}}, {{1, 5}}}, {{{0, 5}}, none, {{0, 5}}},    {{{-1, 5}}, none, {{-1, 5}}},
      {{{5, 5}}, none, none},         {{{1, HUGE_VAL}}, none, none}, {none, none, none},
  };
  for (const auto& [given, logarithmic, linear] : cases) {
    for (const bool isLogarithmic : {false, true}) {
      ChartAxes axes;
      axes.logarithmic = {isLogarithmic, isLogarithmic};
      SetLimits(axes, {true, false, "5", {}}, given, given);
      EXPECT_EQ(axes.loads, isLogarithmic ? logarithmic : linear);
      EXPECT_EQ(axes.times, isLogarithmic ? logarithmic : linear);
      EXPECT_TRUE(axes.absoluteLimits);
    }
  }
}

}  // namespace
}  // namespace zentab::editor
