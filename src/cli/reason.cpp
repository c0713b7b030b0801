#include "cli/reason.h"

#include "tables/table_listing.h"

namespace zentab::cli {

std::string Reason(std::error_code error) {
  if (error == tables::kEntryChanged) return "another program has changed it meanwhile";
  if (error == std::errc::device_or_resource_busy) {
    return "another program is writing it and did not finish in time";
  }
  if (error == std::errc::operation_not_supported) return "is no ordinary file";
  return error.message();
}

}  // namespace zentab::cli
