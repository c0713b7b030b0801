#pragma once

#include <string>
#include <string_view>

#include "tables/curve_table_entry.h"

namespace zentab::interchange {

/// What a line of a table file (its bytes) says: points with ".", at most kMaxPoints.
[[nodiscard]] tables::CurveTableEntry EntryOf(std::string_view line);

/// Whether two entries have the same name, points and settings. Numbers count by their values.
[[nodiscard]] bool SayTheSame(const tables::CurveTableEntry& one,
                              const tables::CurveTableEntry& other);

/// The same of lines, where the points beyond kMaxPoints count by their number, and without points
/// every character.
[[nodiscard]] bool LinesSayTheSame(std::string_view line, std::string_view other);

/// The text of a finite number in a table file with all its digits: as few as bring it back.
[[nodiscard]] std::string NumberCell(double number);

}  // namespace zentab::interchange
