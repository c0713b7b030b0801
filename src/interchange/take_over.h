#pragma once

#include <span>
#include <system_error>

#include "interchange/library_comparison.h"
#include "tables/line_change.h"

namespace zentab::interchange {

/// The change of a library that gives it, of the differences chosen, what the other one has: a new
/// entry at the end, a changed one in its place, and none where there is none. `chosen` are some
/// of those found by Compare, `library` its `before` and `other` its `after`. Lines keep their
/// bytes, and a line that is replaced its line end. The change reaches from the first line
/// concerned to the last one: whoever makes it changes nothing once any of these lines has become
/// another, or a new name has been taken. Fails with what the system says, and with
/// tables::kEntryChanged when one of the files is no longer the one compared.
[[nodiscard]] std::error_code TakeOver(platform::FileLayer& files, const ComparedFile& library,
                                       const ComparedFile& other,
                                       std::span<const EntryDifference> chosen,
                                       tables::LineChange& change);

}  // namespace zentab::interchange
