#pragma once

#include <string>
#include <string_view>

#include "interchange/curve_import.h"

namespace zentab::interchange {

/// The most bytes of another program's file that are read as a whole.
inline constexpr std::size_t kLargestText = 512u << 20;

/// Whether a file of that name with these bytes is JSON: by its end, or by what it begins with.
[[nodiscard]] bool IsJson(std::string_view name, std::string_view bytes);

/// The curves of a file of another program: rows as ImportCurves reads them, or the entries of a
/// library in JSON, numbers as the grid takes them. Faults of ImportCurves and ReadJson, NoCurve.
[[nodiscard]] Outcome<ImportedText> ReadCurves(std::string_view name, std::string bytes,
                                               const ImportChoices& choices);

}  // namespace zentab::interchange
