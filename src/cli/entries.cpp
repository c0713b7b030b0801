#include "cli/entries.h"

#include <charconv>

#include "platform/character_case.h"
#include "tables/table_library.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

std::optional<std::size_t> LineNumber(std::string_view entry) {
  if (!entry.starts_with('#')) return std::nullopt;
  std::size_t line = 0;
  const char* const end = entry.data() + entry.size();
  const auto [at, error] = std::from_chars(entry.data() + 1, end, line);
  return error == std::errc() && at == end ? std::optional(line) : std::nullopt;
}

std::string_view NextLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool IsPoint(const tables::CurvePoint& point) {
  return texts::WholeNumber(point.load) && texts::WholeNumber(point.time);
}

}  // namespace

std::optional<FoundEntry> FindEntry(const std::filesystem::path& file, const std::string& entry) {
  const std::optional<std::size_t> wanted = LineNumber(entry);
  const std::string folded = platform::LowerCase(entry);
  for (tables::NamedLine& line : tables::ListNamedLines(file)) {
    if (wanted ? line.number == *wanted : platform::LowerCase(line.name) == folded) {
      return FoundEntry{line.number, std::move(line.name)};
    }
  }
  return std::nullopt;
}

PointLines ReadPointLines(std::string_view text) {
  PointLines lines;
  for (int number = 1; !text.empty(); ++number) {
    const std::string_view line = NextLine(text);
    if (line.empty() || line.starts_with('#')) continue;
    const std::size_t tab = std::min(line.find('\t'), line.size());
    const tables::CurvePoint point = {
        std::string(texts::TrimBlanks(line.substr(0, tab))),
        std::string(texts::TrimBlanks(line.substr(std::min(tab + 1, line.size()))))};
    if (!IsPoint(point)) {
      lines.error = "line " + std::to_string(number) + " is no point (LOAD, tab, TIME)";
      return lines;
    }
    if (lines.points.size() == tables::kMaxPoints) {
      lines.error = "more than " + std::to_string(tables::kMaxPoints) + " points";
      return lines;
    }
    lines.points.push_back(point);
  }
  return lines;
}

std::string GridLines(const editor::CurveGrid& grid) {
  std::string lines;
  std::size_t end = 0;
  for (int row = editor::kFirstRow; row <= editor::kLastRow; ++row) {
    const std::string& load = grid.Cell(row, editor::kLoadColumn);
    const std::string& time = grid.Cell(row, editor::kTimeColumn);
    lines += texts::SetDecimalSeparator(load, ".") + '\t';
    lines += texts::SetDecimalSeparator(time, ".") + '\n';
    if (!load.empty() || !time.empty()) end = lines.size();
  }
  lines.resize(end);
  return lines;
}

}  // namespace zentab::cli
