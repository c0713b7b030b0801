#pragma once

#include <string>
#include <vector>

#include "app/session.h"
#include "interchange/library_comparison.h"

namespace zentab::app {

/// An entry that two libraries do not have alike.
struct ComparedEntry {
  tables::CurveTableEntry own;    // of the open library; empty where it has none
  tables::CurveTableEntry other;  // likewise of the other one
};

/// What is different, a line each: of a changed entry the settings that differ, else those that the
/// entry has.
[[nodiscard]] std::vector<std::string> DifferenceLines(interchange::Difference kind,
                                                       const ComparedEntry& entry,
                                                       const Session& session);

/// The counts of differences in a text with %1 added, %2 removed and %3 changed.
[[nodiscard]] std::string CountsText(const Session& session, const std::string& text,
                                     const std::vector<interchange::EntryDifference>& differences);

/// Some of the names, as many as a line has room for.
[[nodiscard]] std::string SomeNames(const std::vector<interchange::EntryDifference>& differences);

}  // namespace zentab::app
