#include "timetest/point_selection.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>

#include "tables/curve_table_entry.h"

namespace zentab::timetest {
namespace {

constexpr std::size_t kWanted = tables::kMaxPoints;
constexpr std::size_t kMany = 100;
constexpr double kLarge = 0.0001;
constexpr double kSmall = 0.00001;
constexpr double kCountedRounds = 1e7;

// The largest measures, falling; as many as tell whether more than kMany points lie above a level.
std::vector<double> LargestMeasures(const std::vector<MeasuredPoint>& points) {
  std::vector<double> largest;  // a heap with the smallest on top
  for (const MeasuredPoint& point : points) {
    const double measure = point.difference;
    if (std::isnan(measure)) continue;
    if (largest.size() <= kMany) {
      largest.push_back(measure);
      std::push_heap(largest.begin(), largest.end(), std::greater<>());
    } else if (measure > largest.front()) {
      std::pop_heap(largest.begin(), largest.end(), std::greater<>());
      largest.back() = measure;
      std::push_heap(largest.begin(), largest.end(), std::greater<>());
    }
  }
  std::sort(largest.begin(), largest.end(), std::greater<>());
  return largest;
}

class LevelSearch {
 public:
  explicit LevelSearch(const std::vector<MeasuredPoint>& points)
      : largest_(LargestMeasures(points)), count_(points.size()) {}

  double Run() {
    while (count_ > kWanted) {
      const bool isFast = count_ > kMany;
      const double next = NextMeasure();
      do {
        Rise(isFast, next);
      } while (level_ < next);
      count_ = static_cast<std::size_t>(
          std::partition_point(largest_.begin(), largest_.end(),
                               [this](double measure) { return measure > level_; }) -
          largest_.begin());
    }
    return level_;
  }

 private:
  // The measure that the level has to reach before the number of points above it matters anew.
  [[nodiscard]] double NextMeasure() const {
    if (largest_.size() > kMany && count_ > kMany) return largest_.back();
    return count_ <= largest_.size() ? largest_[count_ - 1] : 0.0;
  }

  void Rise(bool isFast, double next) {
    if (round_ > kCountedRounds) {
      // No relay has such measures, and no user the time to count the rounds up to them.
      level_ = std::max(next, std::nextafter(level_, kInfinity));
      return;
    }
    if (isFast) {
      level_ += round_ * round_ * kLarge;
    } else {
      level_ += slowRound_ * kSmall * static_cast<double>(count_ - kWanted);
      slowRound_ += 1.0;
    }
    round_ += 1.0;
  }

  static constexpr double kInfinity = std::numeric_limits<double>::infinity();

  std::vector<double> largest_;
  std::size_t count_;  // of the points above the level; at first of all
  double level_ = 0.0;
  double round_ = 1.0;
  double slowRound_ = 1.0;
};

// What is no number measures nothing.
double RankOf(const MeasuredPoint& point) {
  return std::isnan(point.difference) ? -1.0 : point.difference;
}

// The first and the last of more than kWanted points, and those of the largest measures.
std::vector<MeasuredPoint> LargestBetweenEnds(const std::vector<MeasuredPoint>& points) {
  constexpr std::size_t kBetween = kWanted - 2;
  std::vector<double> ranks;
  std::transform(points.begin() + 1, points.end() - 1, std::back_inserter(ranks), RankOf);
  std::nth_element(ranks.begin(), ranks.begin() + (kBetween - 1), ranks.end(), std::greater<>());
  const double last = ranks[kBetween - 1];
  const auto count = [&ranks](auto matches) {
    return static_cast<std::size_t>(std::count_if(ranks.begin(), ranks.end(), matches));
  };
  const std::size_t equal = count([last](double rank) { return rank == last; });
  const std::size_t wanted = kBetween - count([last](double rank) { return rank > last; });
  std::vector<MeasuredPoint> chosen = {points.front()};
  std::size_t seen = 0;  // of the equal ones, of which every so-manyth is taken
  for (std::size_t at = 1; at + 1 < points.size(); ++at) {
    const double rank = RankOf(points[at]);
    bool isChosen = rank > last;
    if (rank == last) {
      const auto chosenOf = [&](std::size_t first) { return (first * wanted + equal / 2) / equal; };
      isChosen = chosenOf(seen + 1) > chosenOf(seen);
      ++seen;
    }
    if (isChosen) chosen.push_back(points[at]);
  }
  chosen.push_back(points.back());
  return chosen;
}

}  // namespace

double SelectionLevel(const std::vector<MeasuredPoint>& points) {
  if (points.size() <= kWanted) return -1.0;
  return LevelSearch(points).Run();
}

Selection SelectPoints(const std::vector<MeasuredPoint>& points) {
  if (points.size() <= kWanted) return {points};
  const double level = SelectionLevel(points);
  if (!(points.front().difference > level) || !(points.back().difference > level)) {
    return {LargestBetweenEnds(points), true};
  }
  Selection selection;
  std::copy_if(points.begin(), points.end(), std::back_inserter(selection.points),
               [level](const MeasuredPoint& point) { return point.difference > level; });
  return selection;
}

}  // namespace zentab::timetest
