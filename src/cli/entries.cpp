#include "cli/entries.h"

#include <charconv>
#include <unordered_map>

#include "editor/grid_points.h"
#include "platform/character_case.h"
#include "platform/line_reader.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

std::optional<std::size_t> LineNumber(std::string_view entry) {
  if (!entry.starts_with('#')) return std::nullopt;
  std::size_t line = 0;
  const char* const end = entry.data() + entry.size();
  const auto [at, error] = std::from_chars(entry.data() + 1, end, line);
  if (at == entry.data() + 1 || at != end) return std::nullopt;
  // Digits that no number of a line has are a line that is not there, and no name.
  return error == std::errc() ? line : tables::kNoLine;
}

bool IsPoint(const tables::CurvePoint& point) {
  return texts::WholeNumber(point.load) && texts::WholeNumber(point.time);
}

}  // namespace

std::vector<std::optional<FoundEntry>> FindEntries(const tables::TableListing& listing,
                                                   const std::vector<std::string>& wanted) {
  std::unordered_multimap<std::string, std::size_t> places;  // of the names, in `found`
  std::unordered_multimap<std::size_t, std::size_t> lines;
  for (std::size_t place = 0; place < wanted.size(); ++place) {
    if (const std::optional<std::size_t> line = LineNumber(wanted[place])) {
      lines.emplace(*line, place);
    } else {
      places.emplace(platform::LowerCase(wanted[place]), place);
    }
  }
  std::vector<std::optional<FoundEntry>> found(wanted.size());
  const auto take = [&](const auto& range, std::size_t line, const std::string& name) {
    for (auto at = range.first; at != range.second; ++at) {
      if (!found[at->second]) found[at->second] = FoundEntry{line, name};
    }
  };
  std::size_t line = 0;
  auto nameless = listing.nameless.begin();
  for (const std::string& name : listing.names) {
    for (; nameless != listing.nameless.end() && *nameless == line; ++nameless) ++line;
    if (!places.empty()) take(places.equal_range(platform::LowerCase(name)), line, name);
    if (!lines.empty()) take(lines.equal_range(line), line, name);
    ++line;
  }
  return found;
}

std::error_code FindEntry(const std::filesystem::path& file, const std::string& entry,
                          EntryOfFile& result) {
  const auto error = tables::ListEntries(platform::SystemFiles(), file, result.listing);
  if (error) return error;
  result.found = FindEntries(result.listing, {entry}).front();
  if (result.found) result.mark = result.listing.MarkOf(result.found->line);
  return {};
}

std::error_code ReadEntry(const std::filesystem::path& file, const std::string& entry,
                          std::optional<EntryLine>& result) {
  EntryOfFile in;
  if (const std::error_code error = FindEntry(file, entry, in)) return error;
  if (!in.found) return {};
  result = EntryLine{in.found->name, {}};
  return tables::ReadEntryLine(platform::SystemFiles(), file, in.listing, in.mark, result->line);
}

PointLines ReadPointLines(const std::filesystem::path& file) {
  PointLines lines;
  int number = 0;
  const auto take = [&](const platform::RawLine& raw) {
    ++number;
    const std::string_view line = raw.text;
    if (line.empty() || line.starts_with('#')) return true;
    const std::size_t tab = std::min(line.find('\t'), line.size());
    const tables::CurvePoint point = {
        std::string(texts::TrimBlanks(line.substr(0, tab))),
        std::string(texts::TrimBlanks(line.substr(std::min(tab + 1, line.size()))))};
    if (!IsPoint(point)) {
      lines.error = "line " + std::to_string(number) + " is no point (LOAD, tab, TIME)";
      return false;
    }
    if (lines.points.size() == tables::kMaxPoints) {
      lines.error = "more than " + std::to_string(tables::kMaxPoints) + " points";
      return false;
    }
    lines.points.push_back(point);
    return true;
  };
  const auto error = platform::ReadLines(platform::SystemFiles(), file, take);
  if (error) lines.error = error.message();
  return lines;
}

std::string GridLines(const editor::CurveGrid& grid, std::string_view decimalSeparator) {
  std::string lines;
  std::size_t end = 0;
  for (const tables::CurvePoint& point : editor::PointRows(grid, decimalSeparator)) {
    lines += point.load + '\t' + point.time + '\n';
    if (!point.load.empty() || !point.time.empty()) end = lines.size();
  }
  lines.resize(end);
  return lines;
}

}  // namespace zentab::cli
