#include "interchange/library_export.h"

#include "interchange/entry_meaning.h"
#include "interchange/library_json.h"

namespace zentab::interchange {

std::string Exported(const LibraryText& text, const std::vector<bool>& chosen, ExportFormat format,
                     const CsvNotation& notation) {
  const bool isJson = format == ExportFormat::Json;
  std::string result;
  for (std::size_t line = 0; line < text.LineCount(); ++line) {
    if (!chosen[line]) continue;
    if (!result.empty()) result += isJson ? ",\n" : "\n";
    result += isJson ? JsonOfLine(text.Line(line), text.Ending(line))
                     : CsvOf(EntryOf(text.Line(line)), notation);
  }
  return isJson ? JsonBegin(text.HasByteOrderMark()) + result + JsonEnd() : result;
}

}  // namespace zentab::interchange
