#include "timetest/wide_sums.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <cmath>

namespace zentab::timetest {
namespace {

constexpr std::size_t kWindows = 32768;  // in a block
// Added one by one, many windows at a time: tables for such short sums would be used too little.
constexpr std::size_t kHead = 64;
constexpr std::size_t kLanes = 16;

constexpr int kDigits = 52;  // behind the point of a double
constexpr std::uint64_t kOne = std::uint64_t{1} << kDigits;
constexpr unsigned kBias = 1023;
constexpr unsigned kInfinite = 2047;
// Below it the factors of the tables would be too large.
constexpr unsigned kLeastExponent = 128;
// So many times fewer than 2^64 that all multiples of a block can be added up.
constexpr double kLargestMultiple = 0x1p47;

unsigned ExponentOf(double sum) {
  return static_cast<unsigned>(std::bit_cast<std::uint64_t>(sum) >> kDigits);
}

// The last place in [from, to) up to which `before` rises by at most `room`, which it exceeds at
// `to`; looked for from `near` on.
std::size_t LastWithin(const std::vector<std::uint64_t>& before, std::size_t from, std::size_t to,
                       std::uint64_t room, std::size_t near) {
  const auto isWithin = [&before, most = before[from] + room](std::size_t place) {
    return before[place] <= most;
  };
  std::size_t low = from;
  std::size_t high = to;
  // Narrowed down from the place near by, as the window before left it thereabouts.
  if (near > low && near < high) {
    std::size_t step = 1;
    if (isWithin(near)) {
      for (low = near; low + step < high && isWithin(low + step); step *= 2) low += step;
      high = std::min(high, low + step);
    } else {
      for (high = near; high > low + step && !isWithin(high - step); step *= 2) high -= step;
      if (high > low + step) low = high - step;
    }
  }
  while (high - low > 1) {
    const std::size_t middle = low + (high - low) / 2;
    (isWithin(middle) ? low : high) = middle;
  }
  return low;
}

}  // namespace

bool WideSums::CanAdd(const std::vector<double>& numbers, std::size_t width) {
  // Where the processor adds with more digits than a double has, nothing is known of the last one.
  return FLT_EVAL_METHOD == 0 && width > 2 * kHead && width <= kWidest &&
         std::all_of(numbers.begin(), numbers.end(),
                     [](double number) { return number >= 0.0 && std::isfinite(number); });
}

WideSums::WideSums(const std::vector<double>& numbers, std::size_t width)
    : numbers_(numbers), width_(width), levels_(kInfinite) {}

void WideSums::Begin(std::size_t first) {
  begin_ = first;
  end_ = std::min(first + kWindows, numbers_.size() - width_ + 1);
  length_ = end_ - begin_ + width_ - 1;
  for (Level& level : levels_) level.isMade = false;
  // Some lanes more than there are windows stay inside the numbers, as a head is a part of one.
  heads_.assign(end_ - begin_ + kLanes, 0.0);
  for (std::size_t window = begin_; window < end_; window += kLanes) {
    const std::size_t lanes = std::min(kLanes, end_ - window);
    std::array<double, kLanes> sums{};
    for (std::size_t term = 0; term < kHead; ++term) {
      const double* const oldest = numbers_.data() + window + term;
      for (std::size_t lane = 0; lane < lanes; ++lane) sums[lane] += oldest[lane];
    }
    std::copy(sums.begin(), sums.end(),
              heads_.begin() + static_cast<std::ptrdiff_t>(window - begin_));
  }
}

WideSums::Level& WideSums::LevelOf(unsigned exponent) {
  Level& level = levels_[exponent];
  if (!level.isMade) MakeLevel(level, exponent);
  return level;
}

void WideSums::MakeLevel(Level& level, unsigned exponent) const {
  level.before.resize(length_ + 1);
  level.nextStop.resize(length_);
  level.lastEnd = 0;
  level.isMade = true;
  const double factor =
      std::ldexp(1.0, kDigits + static_cast<int>(kBias) - static_cast<int>(exponent));
  std::uint64_t sum = 0;
  std::size_t passed = 0;  // numbers whose next stop is not known yet begin here
  for (std::size_t at = 0; at < length_; ++at) {
    level.before[at] = sum;
    const double exact = numbers_[begin_ + at] * factor;
    if (exact < kLargestMultiple) {
      const auto whole = static_cast<std::uint64_t>(exact);
      const double rest = exact - static_cast<double>(whole);
      sum += whole + (rest > 0.5 ? 1 : 0);
      if (rest != 0.5) continue;
    }
    for (; passed <= at; ++passed) level.nextStop[passed] = static_cast<std::uint32_t>(at);
  }
  level.before[length_] = sum;
  for (; passed < length_; ++passed) level.nextStop[passed] = static_cast<std::uint32_t>(length_);
}

double WideSums::Of(std::size_t first) {
  if (first >= end_) Begin(first);
  double sum = heads_[first - begin_];
  const std::size_t end = first - begin_ + width_;
  std::size_t at = first - begin_ + kHead;
  while (at < end) {
    const unsigned exponent = ExponentOf(sum);
    if (exponent == kInfinite) break;
    if (exponent >= kLeastExponent) {
      Level& level = LevelOf(exponent);
      const std::uint64_t multiple = std::bit_cast<std::uint64_t>(sum) % kOne + kOne;
      const std::uint64_t room = 2 * kOne - 1 - multiple;
      std::size_t to = std::min<std::size_t>(level.nextStop[at], end);
      if (level.before[to] - level.before[at] > room) {
        to = LastWithin(level.before, at, to, room, level.lastEnd);
        level.lastEnd = to;
      }
      const std::uint64_t reached = multiple + (level.before[to] - level.before[at]);
      sum = std::bit_cast<double>((std::uint64_t{exponent} << kDigits) + (reached - kOne));
      at = to;
    }
    if (at < end) sum += numbers_[begin_ + at++];
  }
  return sum;
}

}  // namespace zentab::timetest
