#include "interchange/entry_addition.h"

#include <algorithm>
#include <unordered_set>

#include "platform/character_case.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"

namespace zentab::interchange {
namespace {

// The first name that a listed file has already; empty where it has none of them.
std::string TakenName(const tables::TableListing& listing, const JsonLibrary& library) {
  std::unordered_set<std::string> names;
  for (const std::string& name : listing.names) names.insert(platform::LowerCase(name));
  const auto taken = std::ranges::find_if(library.entries, [&names](const JsonEntry& added) {
    return names.contains(platform::LowerCase(added.entry.name));
  });
  return taken == library.entries.end() ? std::string() : taken->entry.name;
}

}  // namespace

std::error_code AddEntries(tables::TableWriter& writer, const std::filesystem::path& target,
                           const std::filesystem::path& source, const JsonLibrary& library,
                           std::string& taken) {
  taken.clear();
  return writer.AppendLines(target, source, [&](platform::OutputFile& output) {
    // Under the lock: the names must be free in the file as it is now.
    tables::TableListing listing;
    const std::error_code error = tables::ListEntries(writer.Files(), target, listing);
    if (error) return error;
    taken = TakenName(listing, library);
    if (!taken.empty()) return std::make_error_code(std::errc::file_exists);
    std::string lines;
    if (library.hasByteOrderMark && !listing.stamp) lines = platform::kByteOrderMark;
    for (const JsonEntry& entry : library.entries) {
      const bool isLast = &entry == &library.entries.back();
      lines += entry.line;
      lines += entry.ending.empty() && !isLast ? platform::kLineEnd : entry.ending;
    }
    return output.Write(lines);
  });
}

JsonEntry NewEntry(tables::CurveTableEntry entry) {
  std::ranges::replace_if(
      entry.name, [](char c) { return c == '\r' || c == '\n'; }, ' ');
  JsonEntry added;
  added.line = texts::EncodeLine(tables::FormatEntryLine(entry));
  added.ending = platform::kLineEnd;
  added.entry = std::move(entry);
  return added;
}

}  // namespace zentab::interchange
