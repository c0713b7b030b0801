#include "editor/chart_reading.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "editor/screen_numbers.h"
#include "texts/template_text.h"

namespace zentab::editor {
namespace {

double OnAxis(double value, bool logarithmic) { return logarithmic ? std::log(value) : value; }

double FromAxis(double place, bool logarithmic) { return logarithmic ? std::exp(place) : place; }

std::optional<double> TimeOnLine(const ChartPoint& from, const ChartPoint& to, double load,
                                 double near, AxisKinds axes) {
  const auto [least, most] = std::minmax(from.load, to.load);
  if (load < least || load > most) return std::nullopt;
  if (from.load == to.load) {
    const auto [early, late] = std::minmax(from.time, to.time);
    return std::clamp(near, early, late);
  }
  if (load == from.load) return from.time;
  if (load == to.load) return to.time;
  const double begin = OnAxis(from.load, axes.load);
  const double part = (OnAxis(load, axes.load) - begin) / (OnAxis(to.load, axes.load) - begin);
  return FromAxis(std::lerp(OnAxis(from.time, axes.time), OnAxis(to.time, axes.time), part),
                  axes.time);
}

// A difference is known to the coarser of two steps.
double Coarser(double one, double other) { return std::max(one, other); }

std::string WithUnit(const std::string& number, const std::string& unit) {
  return number + ' ' + unit;
}

class Words {
 public:
  Words(const ReadingUnits& units, const texts::ChartTexts& texts) : units_(units), texts_(texts) {}

  [[nodiscard]] std::optional<std::string> Load(double load, double step, bool absolute) const {
    const std::optional<double> factor = LoadFactor(units_.modes, absolute);
    if (!factor) return std::nullopt;
    const std::string number = Number(load * *factor, step * *factor);
    if (absolute && !units_.absolute.empty()) return WithUnit(number, units_.absolute);
    return texts::ExpandTemplate(absolute ? texts_.absolute : texts_.multiples, {}, {number});
  }
  [[nodiscard]] std::string Time(double time, double step) const {
    return WithUnit(Number(time, step), units_.modes.milliseconds ? "ms" : "s");
  }
  [[nodiscard]] std::string Number(double number, double step) const {
    return RoundedText(number, step, units_.decimalSeparator);
  }
  // In the grid's own unit, which is always known.
  [[nodiscard]] std::string LoadAsInGrid(double load, double step) const {
    return Load(load, step, units_.modes.absoluteValues).value_or("");
  }

 private:
  const ReadingUnits& units_;
  const texts::ChartTexts& texts_;
};

std::vector<std::string> RowOf(const char* name, const Reading& place, const Words& words) {
  return {name, words.LoadAsInGrid(place.load, place.loadStep),
          words.Time(place.time.value_or(0.0), place.timeStep)};
}

}  // namespace

std::optional<double> TimeAt(const ChartCurve& curve, double load, double near, AxisKinds axes) {
  const auto place = [&axes](double time) {
    return axes.time && time <= 0.0 ? -std::numeric_limits<double>::max() : OnAxis(time, axes.time);
  };
  std::optional<double> nearest;
  for (std::size_t at = 1; at < curve.points.size(); ++at) {
    const auto time = TimeOnLine(curve.points[at - 1], curve.points[at], load, near, axes);
    if (!time) continue;
    const bool isNearer =
        !nearest || std::abs(place(*time) - place(near)) < std::abs(place(*nearest) - place(near));
    if (isNearer) nearest = time;
  }
  return nearest;
}

std::vector<std::string> LinesOf(const Reading& reading, const ReadingUnits& units,
                                 const texts::ChartTexts& texts) {
  const Words words(units, texts);
  std::vector<std::string> lines;
  if (reading.row > 0) {
    lines.push_back(texts::ExpandTemplate(texts.point, {}, {std::to_string(reading.row)}));
  }
  for (const bool absolute : {units.modes.absoluteValues, !units.modes.absoluteValues}) {
    if (auto load = words.Load(reading.load, reading.loadStep, absolute)) {
      lines.push_back(*std::move(load));
    }
  }
  lines.push_back(reading.time ? words.Time(*reading.time, reading.timeStep) : texts.noTime);
  return lines;
}

std::vector<std::vector<std::string>> RowsOf(const std::optional<Reading>& a,
                                             const std::optional<Reading>& b,
                                             const ReadingUnits& units,
                                             const texts::ChartTexts& texts) {
  const Words words(units, texts);
  std::vector<std::vector<std::string>> rows;
  if (a) rows.push_back(RowOf("A", *a, words));
  if (b) rows.push_back(RowOf("B", *b, words));
  if (!a || !b) return rows;
  const double timeA = a->time.value_or(0.0);
  const double timeB = b->time.value_or(0.0);
  rows.push_back({"B − A", words.LoadAsInGrid(b->load - a->load, Coarser(a->loadStep, b->loadStep)),
                  words.Time(timeB - timeA, Coarser(a->timeStep, b->timeStep))});
  const auto ratio = [&words](double of, double to) {
    constexpr double kShown = 5e-4;  // of the ratio
    return to == 0.0 ? std::string("–") : words.Number(of / to, std::abs(of / to) * kShown);
  };
  rows.push_back({"B ∶ A", ratio(b->load, a->load), ratio(timeB, timeA)});
  return rows;
}

}  // namespace zentab::editor
