#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zentab::tables {

/// The most points a curve table has.
inline constexpr std::size_t kMaxPoints = 26;

/// One point of a curve as number texts. In a table file "." is the decimal point; in the grid it
/// is the one of the user's locale.
struct CurvePoint {
  std::string load;  // multiples of the pickup value, or amperes or volts
  std::string time;  // seconds or milliseconds

  friend bool operator==(const CurvePoint&, const CurvePoint&) = default;
};

/// The instrument a table belongs to. Current and Voltage have their digits in a table file; the
/// third choice has none and is written as no instrument.
enum class Instrument { None = 0, Current = 1, Voltage = 2, Third = 3 };

/// A named curve table: one line of a table file.
struct CurveTableEntry {
  std::string name;
  std::vector<CurvePoint> points;
  bool milliseconds = false;    // trip times are in ms, not s
  bool absoluteValues = false;  // load levels are absolute, not multiples of the pickup value
  Instrument instrument = Instrument::None;
};

}  // namespace zentab::tables
