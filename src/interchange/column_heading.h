#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zentab::interchange {

/// What loads and times of other programs count in.
enum class LoadUnit { Multiple, Ampere, Volt, Kiloampere };
enum class TimeUnit { Second, Millisecond, Cycle50, Cycle60 };  // cycles of 50 and 60 Hz

/// What a column holds, as far as its heading tells.
enum class ColumnRole { Unknown, Load, Time, Index };

/// A heading of a column, in English, German or Chinese.
struct ColumnHeading {
  ColumnRole role = ColumnRole::Unknown;
  std::optional<LoadUnit> loadUnit;
  std::optional<TimeUnit> timeUnit;
  std::string name;  // of the curve, where the heading says more than role and unit
};

/// Reads "Time [s]", "I/In", "t in ms", "Strom (A)", "Feeder 12 [s]".
[[nodiscard]] ColumnHeading ReadHeading(std::string_view heading);

}  // namespace zentab::interchange
