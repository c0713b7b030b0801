#include "timetest/point_reader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "platform/file_errors.h"
#include "texts/number_text.h"
#include "timetest/section_lines.h"

namespace zentab::timetest {
namespace {

constexpr std::size_t kUsualLine = 256;  // bytes; longer ones take longer

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
      : last_(static_cast<std::uint32_t>(std::min(fileSize, kMostEntries))) {}

  // `value` gives the line's point, or nothing for an empty value.
  template <class Value>
  void Add(std::string_view line, Value value) {
    std::uint64_t number = 0;
    std::optional<std::optional<MeasuredPoint>> point;  // made when it is first needed
    for (const char c : line) {
      if (c < '0' || c > '9') return;
      number = number * 10 + static_cast<std::uint64_t>(c - '0');
      if (number == 0 || number > last_) return;
      if (number < next_) continue;
      if (!point) point.emplace(value());
      Take(static_cast<std::uint32_t>(number), *point);
    }
  }

  // The first number that is still missing has an empty value: nothing can follow.
  [[nodiscard]] bool HasEnded() const { return ended_; }

  [[nodiscard]] std::vector<MeasuredPoint> Finish() {
    std::sort(later_.begin(), later_.end(),
              [](const Later& a, const Later& b) { return a.number < b.number; });
    // Growing by doubling would need more memory than both lists together.
    if (!later_.empty() && later_.front().number == next_) {
      points_.reserve(points_.size() + later_.size());
    }
    for (const Later& entry : later_) {
      if (entry.number != next_ || !entry.hasValue || ended_) break;
      points_.push_back({entry.load, entry.time});
      ++next_;
    }
    return std::move(points_);
  }

 private:
  // Small, as a file in falling order puts all its entries here.
  struct Later {
    double load;
    double time;
    std::uint32_t number;
    bool hasValue;
  };
  static constexpr std::uintmax_t kMostEntries = 1u << 30;

  void Take(std::uint32_t number, const std::optional<MeasuredPoint>& point) {
    if (number < seen_.size() && seen_[number]) return;
    if (number == next_) {
      if (point) {
        points_.push_back(*point);
        ++next_;
      } else {
        ended_ = true;
      }
      return;
    }
    if (number >= seen_.size()) seen_.resize(std::max<std::size_t>(number + 1, 2 * seen_.size()));
    seen_[number] = true;
    const MeasuredPoint value = point.value_or(MeasuredPoint());
    later_.push_back({value.load, value.time, number, point.has_value()});
  }

  std::uint32_t last_;
  std::uint32_t next_ = 1;
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

std::error_code ReadTimeTest(platform::FileLayer& files, const ResultSource& source,
                             const ReadingModes& modes, ProgressMeter progress, ReadPoints& read) {
  read = {};
  std::optional<platform::FileStamp> stamp;
  if (const std::error_code error = files.StampOf(source.file, stamp)) return error;
  if (!stamp) return {};
  const std::uintmax_t size = std::max<std::uintmax_t>(stamp->size, 1);
  EntryCollector entries(size);
  const PointMaker maker(modes);
  std::string buffer;
  std::uintmax_t done = 0;
  bool stopped = false;
  const auto error = ReadSection(files, source.file, source.heading, [&](const SectionLine& line) {
    if (line.inSection) {
      entries.Add(texts::TrimBlanks(line.text), [&]() -> std::optional<MeasuredPoint> {
        const std::string_view value = EntryValue(line.text, buffer);
        return value.empty() ? std::nullopt : std::optional(maker.Make(value));
      });
    }
    // A file that grows while it is read is never more than whole.
    done = std::min(done + line.bytes, size);
    stopped = !progress.Step(done, size, 1 + line.bytes / kUsualLine);
    return !stopped && !entries.HasEnded();
  });
  if (error) return error;
  if (stopped) return platform::FileError::GivenUp;
  read.points = entries.Finish();
  read.extremes = ExtremesOf(read.points);
  return {};
}

}  // namespace zentab::timetest
