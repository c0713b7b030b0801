#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "interchange/fault.h"
#include "tables/curve_table_entry.h"

namespace zentab::interchange {

// A library as JSON, version 1; docs/interchange.md describes it. Text is UTF-8.

/// What stands in front of the entries; the entries have ",\n" between them.
[[nodiscard]] std::string JsonBegin(bool hasByteOrderMark);
[[nodiscard]] std::string JsonEnd();

/// The object of an entry, from its line (a table file's bytes) and line end.
[[nodiscard]] std::string JsonOfLine(std::string_view line, std::string_view ending);

/// An entry of a library that was read.
struct JsonEntry {
  tables::CurveTableEntry entry;  // points with "."
  std::string line;               // a table file's bytes, without line end
  std::string ending;             // CR LF, LF, CR, or nothing at the end of a file
};

struct JsonLibrary {
  bool hasByteOrderMark = false;
  std::vector<JsonEntry> entries;
};

/// Reads such a text. NoJson, OtherJson, OtherVersion, BadField. An entry has the very bytes that
/// it was written from, as long as they say what its fields do.
[[nodiscard]] Outcome<JsonLibrary> ReadJson(std::string_view text);

}  // namespace zentab::interchange
