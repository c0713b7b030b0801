// Each stage beside the same rule written as it is told: numbered from 1, deleting point by point,
// adding every mean anew, counting the points at every round.
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <set>

#include "support/cases.h"
#include "timetest/difference_measure.h"
#include "timetest/point_selection.h"
#include "timetest/running_mean.h"
#include "timetest/spike_filter.h"
#include "timetest/timeout_pruning.h"

namespace zentab::timetest {
namespace {

using Points = std::vector<MeasuredPoint>;
using std::string;

const ProgressReport kSilent;
ProgressMeter Silent() { return {kSilent, 0.0, 1.0}; }

// Told points, numbered from 1.
struct Told {
  Points points;
  [[nodiscard]] int Count() const { return static_cast<int>(points.size()); }
  double& T(int i) { return points[static_cast<std::size_t>(i - 1)].time; }
  double& D(int i) { return points[static_cast<std::size_t>(i - 1)].difference; }
  void Delete(int i) { points.erase(points.begin() + (i - 1)); }
};

void ToldPruning(Told& told, double level) {
  bool tripped = false;
  for (int i = 2; i <= told.Count() - 1;) {
    if (told.T(i) < level) {
      tripped = true;
      ++i;
    } else if (tripped || told.T(i + 1) >= level) {
      told.Delete(i);
    } else {
      ++i;
    }
  }
}

void ToldFilter(Told& told, int type, double level) {
  for (int i = 3; i <= told.Count();) {
    int rule = type;
    if (type >= 4 && type <= 6) {
      const bool any = told.T(i - 2) <= level || told.T(i - 1) <= level || told.T(i) <= level;
      rule = any ? type - 3 : 0;
    }
    const double low = std::min(told.T(i - 2), told.T(i));
    const double high = std::max(told.T(i - 2), told.T(i));
    double& middle = told.T(i - 1);
    const bool isRule = rule >= 1 && rule <= 3;
    if (isRule && (middle >= level || (rule == 2 && (middle < low || middle > high)))) {
      told.Delete(i - 1);
      continue;
    }
    if (rule == 3) middle = std::min(std::max(middle, low), high);
    ++i;
  }
}

void ToldMean(Told& told, int width) {
  const Points copy = told.points;
  for (int i = 1; width > 1 && i <= told.Count(); ++i) {
    const int terms = std::min(i, width);
    double sum = 0.0;
    for (int j = i - terms + 1; j <= i; ++j) sum += copy[static_cast<std::size_t>(j - 1)].time;
    told.T(i) = sum / terms;
    if (std::isfinite(sum)) continue;
    // Beyond the largest number the sum of parts, which the rounding must not bring outside.
    sum = 0.0;
    std::set<double> added;
    for (int j = i - terms + 1; j <= i; ++j) {
      added.insert(copy[static_cast<std::size_t>(j - 1)].time);
      sum += copy[static_cast<std::size_t>(j - 1)].time / 1048576.0;
    }
    told.T(i) = std::clamp(sum / terms * 1048576.0, *added.begin(), *added.rbegin());
  }
}

double ToldLevel(const Points& points) {
  double level = 0.0;
  double a = 1.0;
  double b = 1.0;
  auto n = static_cast<std::ptrdiff_t>(points.size());
  while (n > 26) {
    if (n > 100) {
      level += a * a * 0.0001;
    } else {
      level += b * 0.00001 * static_cast<double>(n - 26);
      b += 1.0;
    }
    n = std::count_if(points.begin(), points.end(),
                      [&](const MeasuredPoint& point) { return point.difference > level; });
    a += 1.0;
  }
  return level;
}

// Times on a coarse scale, so that equal ones and those at the timeout level are frequent.
Points RandomPoints(std::mt19937& random, std::size_t most, double unit = 0.25) {
  Points points(random() % (most + 1));
  for (MeasuredPoint& point : points) {
    point = {static_cast<double>(random() % 100), static_cast<double>(random() % 9) * unit};
  }
  return points;
}

TEST(ImportStages, PruningAndFiltersDoWhatIsTold) {
  std::mt19937 random(7);
  for (int round = 0; round < 3000; ++round) {
    const Points points = RandomPoints(random, 14);
    const double level = 1.5;
    Told told{points};
    Points pruned = points;
    ToldPruning(told, level);
    PruneTimeouts(pruned, level);
    ASSERT_TRUE(pruned == told.points) << "pruning, round " << round;
    for (std::int16_t type = -1; type <= 8; ++type) {
      Told filtered{points};
      Points result = points;
      ToldFilter(filtered, type, level);
      ASSERT_TRUE(FilterSpikes(result, type, level, nullptr, Silent()));
      ASSERT_TRUE(result == filtered.points) << "type " << type << ", round " << round;
    }
  }
}

TEST(ImportStages, MeansHaveTheBitsOfPlainAdditions) {
  std::mt19937 random(11);
  for (int round = 0; round < 400; ++round) {
    // Whole milliseconds, seconds that no double holds exactly, and the two mixed with large times.
    const double unit = round % 3 == 0 ? 1.0 : 0.001;
    Points points = RandomPoints(random, 90, unit);
    if (round % 5 == 0 && !points.empty()) points[points.size() / 2].time = 1e15;
    if (round % 7 == 0) {
      // Sums of two that just fit a double, and sums that overflow.
      const double base = round % 2 == 0 ? std::ldexp(1.0, 52) : 1.7e308;
      for (MeasuredPoint& point : points) {
        const auto bit = static_cast<double>(random() % 2);
        point.time = round % 2 == 0 ? base - bit : base * bit;
      }
    }
    // Times that differ by the last bit of a double.
    if (round % 11 == 0) {
      const int last = round % 2;
      for (MeasuredPoint& point : points) {
        point.time = 1.0 + (random() % 2 == 0 ? last : 1 + 2 * last) * 0x1p-52;
      }
    }
    for (const int width : {-3, 0, 1, 2, 3, 5, 8, 31, 100, 32767}) {
      Told told{points};
      Points result = points;
      ToldMean(told, width);
      ASSERT_TRUE(AverageTimes(result, width, Silent()));
      ASSERT_TRUE(result == told.points) << "width " << width << ", round " << round;
    }
  }
}

TEST(ImportStages, WideMeansHaveThemToo) {
  std::mt19937 random(17);
  const auto uniform = [&random] { return static_cast<double>(random()) / 4294967296.0; };
  const std::function<double(std::size_t)> kinds[] = {
      [&](std::size_t) { return static_cast<double>(random() % 100'000) / 1000.0; },
      [&](std::size_t at) { return 140.0 / (0.02 + 1e-5 * static_cast<double>(at)) + uniform(); },
      [&](std::size_t) { return std::ldexp(uniform(), static_cast<int>(random() % 80) - 40); },
      [&](std::size_t) {
        return std::ldexp(1.0 + static_cast<double>(random() % 4) * 0x1p-52,
                          static_cast<int>(random() % 12));
      },
      [&](std::size_t) { return random() % 3 == 0 ? uniform() * 1e306 : 0.0; },
      [&](std::size_t at) { return at < 1000 ? 0.0 : uniform() * 1e-310; },
  };
  for (const auto& kind : kinds) {
    // More than fit one block of windows, and few.
    for (const std::size_t count : {35'000u, 1500u}) {
      Points points(count);
      for (std::size_t at = 0; at < count; ++at) points[at].time = kind(at);
      for (const int width : {129, count > 2000u ? 150 : 1400}) {
        Told told{points};
        Points result = points;
        ToldMean(told, width);
        ASSERT_TRUE(AverageTimes(result, width, Silent()));
        ASSERT_TRUE(result == told.points) << &kind - kinds << ", " << count << ", " << width;
      }
    }
  }
}

TEST(ImportStages, SelectionLevelIsTheToldOne) {
  std::mt19937 random(13);
  for (int round = 0; round < 300; ++round) {
    Points points(round < 9 ? 26 : random() % 400);
    const double scale = std::pow(10.0, static_cast<int>(random() % 9) - 5);
    for (MeasuredPoint& point : points) {
      point.difference = static_cast<double>(random() % 1000) / 100.0 * scale;
      if (random() % 50 == 0) point.difference = 10'000.0;
      if (random() % 60 == 0) point.difference = std::nan("");
    }
    if (!points.empty()) points.front().difference = points.back().difference = 100'000.0;
    if (points.size() <= 26) {
      EXPECT_EQ(SelectPoints(points).points.size(), points.size());
      continue;
    }
    const double level = ToldLevel(points);
    ASSERT_EQ(SelectionLevel(points), level) << "round " << round;
    const Points chosen = SelectPoints(points).points;
    std::erase_if(points, [&](const MeasuredPoint& point) { return !(point.difference > level); });
    ASSERT_TRUE(chosen == points) << "round " << round;
  }
}

TEST(ImportStages, SelectionEndsForAnyMeasures) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double measure : {infinity, 1e300, 1e18, std::nan("")}) {
    for (const std::size_t count : {27u, 60u, 101u, 5000u}) {
      Points points(count);
      for (std::size_t at = 0; at < count; ++at) {
        points[at].load = static_cast<double>(at);
        points[at].difference = measure * (1.0 + static_cast<double>(at) / 1e4);
      }
      const Points chosen = SelectPoints(points).points;
      ASSERT_EQ(chosen.size(), 26u) << measure << ", " << count;
      EXPECT_EQ(chosen.front().load, 0.0);
      EXPECT_EQ(chosen.back().load, points.back().load);
    }
  }
}

// The loads of the points chosen of 61, where `measure` gives the ones between the ends.
string Chosen(const std::function<double(int)>& measure) {
  Points points(61);
  for (int at = 0; at <= 60; ++at) {
    points[static_cast<std::size_t>(at)].load = at;
    if (at > 0 && at < 60) points[static_cast<std::size_t>(at)].difference = measure(at);
  }
  const Selection selection = SelectPoints(points);
  string loads = selection.byRank ? "ranked:" : "";
  for (const MeasuredPoint& point : selection.points) {
    loads += " " + std::to_string(static_cast<int>(point.load));
  }
  return loads;
}

TEST(ImportStages, SelectionKeepsTheEndsWhateverTheMeasuresAre) {
  const double infinity = std::numeric_limits<double>::infinity();
  const string spread =
      "ranked: 0 2 4 7 9 12 14 16 19 21 24 26 29 31 34 36 39 41 44 46 48 51 53 56 58 60";
  EXPECT_EQ(Chosen([](int at) { return at <= 3 ? 1e9 : 1.0; }), " 0 1 2 3 60");
  for (const double equal : {100'000.0, 1e9, infinity}) {
    EXPECT_EQ(Chosen([equal](int) { return equal; }), spread) << equal;
  }
  EXPECT_EQ(Chosen([](int at) { return 1e5 + at; }),
            "ranked: 0 36 37 38 39 40 41 42 43 44 45 46 47 48 49 50 51 52 53 54 55 56 57 58 59 60");
  // The largest, and of what is equally large behind them some.
  EXPECT_EQ(Chosen([&](int at) { return at % 3 == 0   ? infinity
                                        : at % 3 == 1 ? 1e5
                                                      : 7.0; }),
            "ranked: 0 3 4 6 9 12 15 16 18 21 24 27 28 30 33 36 39 40 42 45 48 51 52 54 57 60");
}

TEST(ImportStages, TimesNearTheLargestNumberStayNumbers) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  Points points(40);
  for (std::size_t at = 0; at < points.size(); ++at) {
    points[at].time = at % 3 == 0 ? -kLargest : kLargest;
  }
  for (const int width : {2, 3, 39, 32767}) {
    Points means = points;
    ASSERT_TRUE(AverageTimes(means, width, Silent()));
    for (const MeasuredPoint& mean : means) EXPECT_LE(std::abs(mean.time), kLargest) << width;
    if (width == 3) {
      EXPECT_DOUBLE_EQ(means[2].time, kLargest / 3);
    }
  }
  ASSERT_TRUE(
      MeasureDifferences(points, std::numeric_limits<double>::infinity(), nullptr, Silent()));
  EXPECT_EQ(points[1].difference, kLargest);
  EXPECT_EQ(points[3].difference, kLargest);
  // Of three whose parts alone are beyond it.
  Points bent = {{1, -0x1p1023}, {2, -0x1p1022}, {3, 0x1.8p1023}};
  ASSERT_TRUE(MeasureDifferences(bent, kLargest, nullptr, Silent()));
  EXPECT_EQ(bent[1].difference, 0x1.8p1023);
}

TEST(ImportStages, DifferencesAreThoseOfTheTimes) {
  Points points = {{1, 9}, {2, 5}, {3, 2}, {4, 10}, {5, 1}};
  ASSERT_TRUE(MeasureDifferences(points, 10.0, nullptr, Silent()));
  const double expected[] = {100'000.0, 1.0, 11.0, 10'000.0, 100'000.0};
  for (std::size_t at = 0; at < points.size(); ++at) {
    EXPECT_EQ(points[at].difference, expected[at]) << at;
  }
}

TEST(ImportStages, TimeoutLevelIsTheTextsNumberOrNearTheLongestTime) {
  EXPECT_EQ(TimeoutLevel("59,5", 100.0), 59.5);
  EXPECT_EQ(TimeoutLevel("1", 100.0), 1.0);
  for (const char* const text : {"0", "0.99", "-3", "", "none"}) {
    EXPECT_EQ(TimeoutLevel(text, 100.0), 99.0) << text;
  }
}

// What an equation sees, told by one variable at a time.
TEST(ImportStages, EquationsSeeThePointAndTheTwoBeforeIt) {
  const Extremes extremes = {2.0, 64.0, 1.0, 5.0};
  const Points points = {{1, 2}, {2, 4}, {3, 8}, {4, 16}, {5, 64}};
  const auto evaluated = [&](const char* text, auto stage) {
    PointEquation equation;
    EXPECT_TRUE(equation.Compile(text, extremes)) << text;
    Points result = points;
    EXPECT_TRUE(stage(result, equation));
    return result;
  };
  const auto differences = [](Points& result, PointEquation& equation) {
    return MeasureDifferences(result, 50.0, &equation, Silent());
  };
  const auto values = [](Points& result, PointEquation& equation) {
    return TransformTimes(result, equation, Silent());
  };
  const auto filter = [](Points& result, PointEquation& equation) {
    return FilterSpikes(result, 1, 50.0, &equation, Silent());
  };
  // The last one fails, as it divides by zero: the measure stays.
  const std::pair<const char*, double> atThird[] = {
      {"z", 5},    {"y", 4},
      {"t0", 16},  {"t1", 8},
      {"t2", 4},   {"v0", 4},
      {"v1", 3},   {"v2", 2},
      {"tMin", 2}, {"tMax", 64},
      {"vMin", 1}, {"vMax", 5},
      {"-t0", 16}, {"1/(y-4)", 100'000},
  };
  for (const auto& [text, expected] : atThird) {
    EXPECT_EQ(evaluated(text, differences)[2].difference, expected) << text;
  }
  // In place: the times before a point are replaced already; before the first all are the first.
  EXPECT_EQ(evaluated("t0+t1+t2", values)[0].time, 6.0);
  EXPECT_EQ(evaluated("t0+t1+t2", values)[1].time, 16.0);
  EXPECT_EQ(evaluated("t0+t1+t2", values)[2].time, 30.0);
  EXPECT_EQ(evaluated("v0+v1+v2", values)[1].time, 4.0);
  EXPECT_EQ(evaluated("1/(y-2)", values)[1].time, 4.0);
  EXPECT_EQ(evaluated("z*100+y", values)[4].time, 505.0);
  // A new time for the middle point, a negative one deletes it and shortens the list.
  EXPECT_EQ(evaluated("t0*100+t1", filter)[1].time, 804.0);
  EXPECT_EQ(evaluated("z*100+y", filter)[3].time, 505.0);
  EXPECT_EQ(evaluated("-1", filter).size(), 2u);
  EXPECT_EQ(evaluated("0", filter).size(), 5u);
  EXPECT_EQ(evaluated("t1*(y<>4)-(y=4)", filter).size(), 3u);
  EXPECT_EQ(evaluated("1/(y-3)", filter)[1].time, 4.0);
}

}  // namespace
}  // namespace zentab::timetest
