#include "editor/number_tools.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "editor/chart_curve.h"
#include "editor/row_tools.h"
#include "texts/number_text.h"

namespace zentab::editor {
namespace {

constexpr double kMillisecondsPerSecond = 1000.0;

std::optional<double> NumberIn(const std::string& cell, std::string_view separator) {
  return texts::WholeNumber(texts::FileNumber(cell, separator));
}

// Twice the distance of a number to the next one, for what rounding its operands and itself cost.
double Blur(double number) {
  return 2.0 * std::numeric_limits<double>::epsilon() * std::abs(number);
}

struct Computed {
  double number;
  double tolerance;  // how far the arithmetic may have led away from the decimal result
};

// Writes what `compute` makes of each number of the area, or nothing if one has no result.
template <typename Compute>
ToolOutcome Rewrite(WorkingTable& table, const CellArea& area, std::string_view separator,
                    const Compute& compute) {
  CurveGrid result = table.grid;
  bool anyNumber = false;
  bool anyChange = false;
  for (int row = area.top; row <= area.bottom; ++row) {
    for (int column = area.left; column <= area.right; ++column) {
      const std::optional<double> before = NumberIn(table.grid.Cell(row, column), separator);
      if (!before) continue;
      anyNumber = true;
      const Computed after = compute(*before);
      if (!std::isfinite(after.number)) return ToolOutcome::OutOfRange;
      if (after.number == *before) continue;
      anyChange = true;
      result.SetCell(row, column, texts::ShortText(after.number, after.tolerance, separator));
    }
  }
  if (!anyChange) return anyNumber ? ToolOutcome::NothingToDo : ToolOutcome::NoNumber;
  table.grid = result;
  table.tableModified = true;
  return ToolOutcome::Done;
}

auto Times(double factor) {
  return [factor](double number) {
    const double product = number * factor;
    return Computed{product, Blur(product)};
  };
}

auto DividedBy(double divisor) {
  return [divisor](double number) {
    const double quotient = number / divisor;
    return Computed{quotient, Blur(quotient)};
  };
}

// With its column goes the mode, also where no number had to be changed.
ToolOutcome Converted(bool& mode, ToolOutcome rewritten) {
  if (rewritten == ToolOutcome::OutOfRange) return rewritten;
  mode = !mode;
  return ToolOutcome::Done;
}

CellArea WholeColumn(int column) { return {kFirstRow, column, kLastRow, column}; }

bool IsEmptyRow(const CurveGrid& grid, int row) {
  return grid.Cell(row, kLoadColumn).empty() && grid.Cell(row, kTimeColumn).empty();
}

// Between two values, at a part (0 to 1) of the way, straight on an axis of that kind.
double Between(double from, double to, double part, bool logarithmic) {
  if (!logarithmic) return from + (to - from) * part;
  return std::exp(std::log(from) + (std::log(to) - std::log(from)) * part);
}

double PartOf(double from, double to, double value, bool logarithmic) {
  if (!logarithmic) return (value - from) / (to - from);
  return (std::log(value) - std::log(from)) / (std::log(to) - std::log(from));
}

struct TextPair {
  std::string load;
  std::string time;
};

// Empty when numbers near the limits of a double have no others between them.
std::vector<TextPair> PointsBetween(const ChartPoint& from, const ChartPoint& to, int count,
                                    AxisKinds axes, std::string_view separator) {
  constexpr double kSixDigits = 5e-7;
  constexpr double kPartOfStep = 1e-3;  // of the way to the next point, which a load must not reach
  const bool spacedByRatio = from.load > 0.0 && to.load > 0.0;
  std::vector<TextPair> points;
  double before = from.load;
  for (int place = 1; place <= count; ++place) {
    const double load = Between(from.load, to.load, place / (count + 1.0), spacedByRatio);
    const double roughly =
        std::min(std::abs(load) * kSixDigits, std::abs(load - before) * kPartOfStep);
    const std::string text = texts::ShortText(load, roughly, separator);
    // The time belongs to the load as it is written.
    const double written = NumberIn(text, separator).value_or(load);
    const double part = PartOf(from.load, to.load, written, axes.load);
    const double time = Between(from.time, to.time, part, axes.time);
    if (!std::isfinite(load) || !std::isfinite(time)) return {};
    points.push_back({text, texts::ShortText(time, std::abs(time) * kSixDigits, separator)});
    before = load;
  }
  return points;
}

const ChartPoint* PointAt(const ChartCurve& curve, int row) {
  const auto found = std::find_if(curve.points.begin(), curve.points.end(),
                                  [row](const ChartPoint& point) { return point.row == row; });
  return found == curve.points.end() ? nullptr : &*found;
}

}  // namespace

ToolOutcome ScaleNumbers(WorkingTable& table, const CellArea& area, double factor,
                         std::string_view localeDecimalSeparator) {
  return Rewrite(table, area, localeDecimalSeparator, Times(factor));
}

ToolOutcome ShiftNumbers(WorkingTable& table, const CellArea& area, double amount,
                         std::string_view localeDecimalSeparator) {
  return Rewrite(table, area, localeDecimalSeparator, [amount](double number) {
    return Computed{number + amount, Blur(std::max(std::abs(number), std::abs(amount)))};
  });
}

ToolOutcome RoundNumbers(WorkingTable& table, const CellArea& area, int decimals,
                         std::string_view localeDecimalSeparator) {
  return Rewrite(table, area, localeDecimalSeparator, [decimals](double number) {
    const double rounded = texts::RoundHalfEven(number, decimals);
    return Computed{rounded, Blur(rounded)};
  });
}

ToolOutcome ConvertLoads(WorkingTable& table, ValueModes& modes,
                         std::string_view localeDecimalSeparator) {
  const std::optional<double> pickup = NumberIn(modes.pickup, localeDecimalSeparator);
  if (!pickup || !(*pickup > 0.0)) return ToolOutcome::NoPickup;
  const CellArea loads = WholeColumn(kLoadColumn);
  const ToolOutcome rewritten =
      modes.absoluteValues ? Rewrite(table, loads, localeDecimalSeparator, DividedBy(*pickup))
                           : Rewrite(table, loads, localeDecimalSeparator, Times(*pickup));
  return Converted(modes.absoluteValues, rewritten);
}

ToolOutcome ConvertTimes(WorkingTable& table, ValueModes& modes,
                         std::string_view localeDecimalSeparator) {
  const CellArea times = WholeColumn(kTimeColumn);
  const ToolOutcome rewritten =
      modes.milliseconds
          ? Rewrite(table, times, localeDecimalSeparator, DividedBy(kMillisecondsPerSecond))
          : Rewrite(table, times, localeDecimalSeparator, Times(kMillisecondsPerSecond));
  return Converted(modes.milliseconds, rewritten);
}

RowSpan PointsToFillBetween(const CurveGrid& grid, const RowSpan& rows,
                            std::string_view localeDecimalSeparator) {
  constexpr RowSpan kNone{0, 0};
  RowSpan found = kNone;
  for (const ChartPoint& point : CurveOf(grid, localeDecimalSeparator).points) {
    const bool isOneRow = rows.first == rows.last;
    if (point.row < rows.first || (!isOneRow && point.row > rows.last)) continue;
    if (found.first == 0) {
      if (isOneRow && point.row != rows.first) return kNone;
      found.first = point.row;
    } else {
      found.last = point.row;
      if (isOneRow) break;
    }
  }
  return found.last == 0 ? kNone : found;
}

ToolOutcome FillBetween(WorkingTable& table, const RowSpan& rows, int count, AxisKinds logarithmic,
                        std::string_view localeDecimalSeparator) {
  const RowSpan ends = PointsToFillBetween(table.grid, rows, localeDecimalSeparator);
  if (ends.first == 0) return ToolOutcome::NoTwoPoints;
  for (int row = ends.first + 1; row < ends.last; ++row) {
    if (!IsEmptyRow(table.grid, row)) return ToolOutcome::NotAdjacent;
  }
  const ChartCurve curve = CurveOf(table.grid, localeDecimalSeparator);
  const ChartPoint from = *PointAt(curve, ends.first);
  const ChartPoint to = *PointAt(curve, ends.last);
  if (from.load == to.load) return ToolOutcome::SameLoad;
  const AxisKinds axes =
      PossibleKinds(logarithmic, curve.load.minimum > 0.0, curve.time.minimum > 0.0);
  const std::vector<TextPair> points = PointsBetween(from, to, count, axes, localeDecimalSeparator);
  if (points.empty()) return ToolOutcome::OutOfRange;
  const int missing = count - (ends.last - ends.first - 1);
  if (missing > 0) {
    const ToolOutcome made = InsertRows(table, {ends.last, ends.last + missing - 1});
    if (made != ToolOutcome::Done) return made;
  }
  int row = ends.first;
  for (const TextPair& point : points) {
    ++row;
    table.grid.SetCell(row, kLoadColumn, point.load);
    table.grid.SetCell(row, kTimeColumn, point.time);
  }
  table.tableModified = true;
  return ToolOutcome::Done;
}

}  // namespace zentab::editor
