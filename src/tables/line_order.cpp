#include "tables/line_order.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_reader.h"

namespace zentab::tables {
namespace {

bool IsOrder(std::span<const std::size_t> order, std::size_t lines) {
  std::vector<bool> isThere(lines);
  for (const std::size_t line : order) {
    if (line >= lines || isThere[line]) return false;
    isThere[line] = true;
  }
  return order.size() == lines;
}

struct LineAndEnd {
  std::string_view text;
  std::string_view ending;
};

LineAndEnd Split(std::string_view line) {
  const std::size_t length = line.find_last_not_of("\r\n") + 1;
  return {line.substr(0, length), line.substr(length)};
}

}  // namespace

std::error_code OrderOf(platform::FileLayer& files, const std::filesystem::path& file,
                        const TableListing& listing, std::span<const std::size_t> order,
                        LineChange& change) {
  if (!IsOrder(order, listing.lines.size())) {
    return std::make_error_code(std::errc::invalid_argument);
  }
  std::size_t first = 0;
  while (first < order.size() && order[first] == first) ++first;
  std::size_t end = order.size();
  while (end > first && order[end - 1] == end - 1) --end;
  change = {};
  if (first == end) return {};
  change = ChangeOfLine(file, listing, first);
  platform::FileReader reader(files, file);
  if (reader.Error()) return reader.Error();
  if (reader.Stamp() != listing.stamp) return std::make_error_code(kEntryChanged);
  const std::uint64_t from = listing.lines[first].offset;
  if (const auto error = reader.Read(from, listing.EndOf(end - 1), change.before)) return error;
  const std::string_view all = change.before;
  const auto lineAt = [&](std::size_t index) {
    const std::uint64_t offset = listing.lines[index].offset;
    return Split(all.substr(static_cast<std::size_t>(offset - from),
                            static_cast<std::size_t>(listing.EndOf(index) - offset)));
  };
  change.after.reserve(all.size());
  for (std::size_t place = first; place < end; ++place) {
    change.after += lineAt(order[place]).text;
    change.after += lineAt(place).ending;
  }
  change.behind = end < order.size() ? std::optional(listing.lines[end].hash) : std::nullopt;
  return {};
}

std::error_code MoveOf(platform::FileLayer& files, const std::filesystem::path& file,
                       TableListing& listing, EntryMark& mark, std::size_t place,
                       LineChange& change) {
  std::string line;
  if (const auto error = ReadLine(files, file, listing, mark, line)) return error;
  if (place >= listing.lines.size()) return std::make_error_code(std::errc::invalid_argument);
  std::vector<std::size_t> order(listing.lines.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto at = [&](std::size_t index) {
    return order.begin() + static_cast<std::ptrdiff_t>(index);
  };
  if (place < mark.index) {
    std::rotate(at(place), at(mark.index), at(mark.index + 1));
  } else {
    std::rotate(at(mark.index), at(mark.index + 1), at(place + 1));
  }
  return OrderOf(files, file, listing, order, change);
}

}  // namespace zentab::tables
