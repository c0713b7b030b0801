#include "curves/entry_points.h"

#include <utility>

#include "texts/number_text.h"

namespace zentab::curves {

std::vector<Point> EntryPoints::InSeconds() const {
  std::vector<Point> seconds = points;
  if (!milliseconds) return seconds;
  for (Point& point : seconds) point.time /= kMillisecondsPerSecond;
  return seconds;
}

EntryPoints PointsOf(const tables::ParsedEntry& entry) {
  EntryPoints result = {{},
                        entry.milliseconds.value_or(false),
                        entry.absoluteValues.value_or(false),
                        entry.instrument.value_or(tables::Instrument::None)};
  for (const tables::CurvePoint& point : entry.points) {
    result.points.push_back({texts::LeadingNumber(point.load).value_or(0.0),
                             texts::LeadingNumber(point.time).value_or(0.0)});
  }
  return result;
}

Outcome<Reference> ReferenceOf(const EntryPoints& table, bool absolute,
                               std::optional<double> pickup) {
  if (pickup && !(*pickup > 0.0)) return Fault{FaultKind::BadSetting, 0.0, "pickup"};
  if (absolute != table.absolute && !pickup) return Fault{FaultKind::PickupNeeded};
  auto curve = TableCurve::Of(table.InSeconds(), Axes::Chart);
  if (const Fault* const fault = FaultOf(curve)) return *fault;
  double factor = 1.0;
  if (absolute && !table.absolute) factor = 1.0 / *pickup;
  if (!absolute && table.absolute) factor = *pickup;
  Reference reference;
  reference.time = [factor, known = std::get<TableCurve>(std::move(curve))](double load) {
    return known.Time(load * factor);
  };
  reference.pickup = absolute ? pickup : std::optional(1.0);
  return reference;
}

}  // namespace zentab::curves
