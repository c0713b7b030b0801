#include "timetest/point_reader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "texts/number_text.h"
#include "timetest/section_lines.h"

namespace zentab::timetest {
namespace {

double NumberOf(std::string_view text) {
  if (text.find(',') == std::string_view::npos) return texts::LeadingNumber(text).value_or(0.0);
  return texts::LeadingNumber(texts::SetDecimalSeparator(text, ".")).value_or(0.0);
}

class PointMaker {
 public:
  explicit PointMaker(const ReadingModes& modes)
      : modes_(modes), divides_(!modes.absoluteValues && modes.pickup != 0.0) {}

  [[nodiscard]] MeasuredPoint Make(std::string_view value) const {
    const std::size_t tab = value.find('\t');
    MeasuredPoint point;
    point.load = Load(NumberOf(value.substr(0, tab)));
    if (tab != std::string_view::npos) {
      const std::string_view rest = value.substr(tab + 1);
      point.time = NumberOf(rest.substr(0, rest.find('\t')));
      if (!modes_.milliseconds) point.time /= 1000.0;
    }
    return point;
  }

 private:
  [[nodiscard]] double Load(double read) const {
    const double relative = divides_ ? read / modes_.pickup : read;
    return std::isfinite(relative) ? relative : read;
  }

  const ReadingModes& modes_;
  bool divides_;
};

// Puts entries into the order of their numbers, whatever order their lines have. A line serves
// every number that it begins with, unless an earlier line does already.
class EntryCollector {
 public:
  // More entries than bytes cannot follow one another without a gap.
  explicit EntryCollector(std::uintmax_t fileSize)
      : last_(static_cast<std::uint64_t>(std::min<std::uintmax_t>(fileSize, kMostEntries))) {}

  // `value` gives the line's point, or nothing for an empty value.
  template <class Value>
  void Add(std::string_view line, Value value) {
    std::uint64_t number = 0;
    for (const char c : line) {
      if (c < '0' || c > '9') return;
      number = number * 10 + static_cast<std::uint64_t>(c - '0');
      if (number == 0 || number > last_) return;
      if (number >= next_) Take(number, value());
    }
  }

  // The first number that is still missing has an empty value: nothing can follow.
  [[nodiscard]] bool HasEnded() const { return ended_; }

  [[nodiscard]] std::vector<MeasuredPoint> Finish() {
    std::sort(later_.begin(), later_.end(),
              [](const Later& a, const Later& b) { return a.number < b.number; });
    for (const Later& entry : later_) {
      if (entry.number != next_ || !entry.point || ended_) break;
      points_.push_back(*entry.point);
      ++next_;
    }
    return std::move(points_);
  }

 private:
  struct Later {
    std::uint64_t number;
    std::optional<MeasuredPoint> point;
  };
  static constexpr std::uintmax_t kMostEntries = 1u << 30;

  void Take(std::uint64_t number, const std::optional<MeasuredPoint>& point) {
    const auto place = static_cast<std::size_t>(number);
    if (place < seen_.size() && seen_[place]) return;
    if (number == next_) {
      if (point) {
        points_.push_back(*point);
        ++next_;
      } else {
        ended_ = true;
      }
      return;
    }
    if (place >= seen_.size()) seen_.resize(std::max(place + 1, 2 * seen_.size()));
    seen_[place] = true;
    later_.push_back({number, point});
  }

  std::uint64_t last_;
  std::uint64_t next_ = 1;
  std::vector<MeasuredPoint> points_;  // 1 to next_ - 1
  std::vector<Later> later_;           // came before a smaller number did, each number once
  std::vector<bool> seen_;             // those of `later_`
  bool ended_ = false;
};

Extremes ExtremesOf(const std::vector<MeasuredPoint>& points) {
  if (points.empty()) return {};
  const MeasuredPoint& first = points.front();
  Extremes extremes = {first.time, first.time, first.load, first.load};
  for (const MeasuredPoint& point : points) {
    extremes.tMin = std::min(extremes.tMin, point.time);
    extremes.tMax = std::max(extremes.tMax, point.time);
    extremes.vMin = std::min(extremes.vMin, point.load);
    extremes.vMax = std::max(extremes.vMax, point.load);
  }
  return extremes;
}

}  // namespace

std::optional<ReadPoints> ReadTimeTest(const ResultSource& source, const ReadingModes& modes,
                                       ProgressMeter progress) {
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(source.file, unknown);
  if (unknown || size == 0) return ReadPoints{};
  SectionLines lines(source.file, source.heading);
  EntryCollector entries(size);
  const PointMaker maker(modes);
  std::string buffer;
  for (SectionLine line; !entries.HasEnded() && lines.Next(line);) {
    entries.Add(texts::TrimBlanks(line.text), [&]() -> std::optional<MeasuredPoint> {
      const std::string_view value = EntryValue(line, buffer);
      return value.empty() ? std::nullopt : std::optional(maker.Make(value));
    });
    // A file that grows while it is read is never more than whole.
    const auto done = static_cast<std::size_t>(std::min(lines.BytesRead(), size));
    if (!progress.Step(done, static_cast<std::size_t>(size))) return std::nullopt;
  }
  ReadPoints read;
  read.points = entries.Finish();
  read.extremes = ExtremesOf(read.points);
  return read;
}

}  // namespace zentab::timetest
