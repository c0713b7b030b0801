#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tables/table_listing.h"

namespace zentab::app {

/// The places of the names that hold `text` (UTF-8), letters compared without case, in order; all
/// of them for an empty text. `keepAlive`, which may be empty, is called again and again meanwhile.
[[nodiscard]] std::vector<std::size_t> EntriesNamedLike(const std::vector<std::string>& names,
                                                        std::string_view text,
                                                        const tables::KeepAlive& keepAlive);

}  // namespace zentab::app
