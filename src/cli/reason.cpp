#include "cli/reason.h"

#include "app/session_texts.h"
#include "tables/table_listing.h"

namespace zentab::cli {

std::string Reason(std::error_code error) {
  if (error == tables::kEntryChanged) return "another program has changed it meanwhile";
  return app::ReasonText(texts::ProgramTexts(), error);
}

}  // namespace zentab::cli
