// Libraries in JSON.

#include "interchange/library_json.h"

#include "fuzz/fuzzing.h"
#include "interchange/curve_file.h"
#include "interchange/entry_meaning.h"

namespace zentab::fuzz {
namespace {

using interchange::JsonEntry;
using interchange::JsonLibrary;

void Check(std::string_view text) {
  const auto read = interchange::ReadJson(text);
  if (const interchange::Fault* const fault = interchange::FaultOf(read)) {
    Require(fault->line <= text.size() + 1 && fault->column <= text.size() + 1,
            "a fault has its place in the text");
    Require(!interchange::FaultText(*fault, {}).empty(), "a fault has words");
    return;
  }
  const auto& library = std::get<JsonLibrary>(read);
  std::string written = interchange::JsonBegin(library.hasByteOrderMark);
  for (const JsonEntry& entry : library.entries) {
    Require(entry.line.find_first_of("\r\n") == std::string::npos, "an entry is one line");
    if (&entry != &library.entries.front()) written += ",\n";
    written += interchange::JsonOfLine(entry.line, entry.ending);
  }
  written += interchange::JsonEnd();
  const auto again = interchange::ReadJson(written);
  Require(interchange::FaultOf(again) == nullptr, "what was written can be read");
  const auto& copy = std::get<JsonLibrary>(again);
  Require(copy.hasByteOrderMark == library.hasByteOrderMark &&
              copy.entries.size() == library.entries.size(),
          "a library is read as it was written");
  for (std::size_t at = 0; at < copy.entries.size(); ++at) {
    Require(copy.entries[at].line == library.entries[at].line &&
                copy.entries[at].ending == library.entries[at].ending,
            "lines come back byte for byte");
  }
  if (library.entries.empty()) return;
  const auto curves = interchange::ReadCurves("x.json", std::string(text), {});
  Require(interchange::FaultOf(curves) == nullptr, "a library has curves");
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zentab::fuzz::Check(zentab::fuzz::InputOf(data, size));
  return 0;
}
