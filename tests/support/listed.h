#pragma once

#include "platform/file_layer.h"
#include "tables/table_listing.h"

namespace zentab::test {

/// A table file as it is listed; nothing where that fails.
[[nodiscard]] inline tables::TableListing Listed(const std::filesystem::path& file) {
  tables::TableListing listing;
  [[maybe_unused]] const std::error_code dropped =
      tables::ListEntries(platform::SystemFiles(), file, listing);
  return listing;
}

}  // namespace zentab::test
