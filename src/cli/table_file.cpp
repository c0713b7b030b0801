#include "cli/table_file.h"

#include "cli/reason.h"

namespace zentab::cli {

tables::TableWriter Writer() { return {platform::SystemFiles(), tables::Backups::None}; }

Exit NotFound(const Console& console, const std::string& file, const std::string& entry) {
  return console.Fail(file + ": no entry '" + entry + "'");
}

Exit NotWritten(const Console& console, const std::string& file, std::error_code error) {
  return console.Fail(file + ": not written: " + Reason(error));
}

}  // namespace zentab::cli
