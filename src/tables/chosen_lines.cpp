#include "tables/chosen_lines.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/character_case.h"
#include "platform/file_reader.h"
#include "tables/entry_line.h"
#include "tables/entry_rename.h"

namespace zentab::tables {
namespace {

using Names = std::unordered_set<std::string>;

// The stretch of the file from the first of the lines to the last, as `before`.
std::error_code StretchOf(platform::FileLayer& files, const std::filesystem::path& file,
                          const TableListing& listing, std::span<const std::size_t> lines,
                          LineChange& change) {
  const bool areThere = !lines.empty() && lines.back() < listing.lines.size() &&
                        std::ranges::is_sorted(lines, std::ranges::less_equal());
  if (!areThere) return std::make_error_code(std::errc::invalid_argument);
  platform::FileReader reader(files, file);
  if (reader.Error()) return reader.Error();
  if (reader.Stamp() != listing.stamp) return std::make_error_code(kEntryChanged);
  change = ChangeOfLine(file, listing, lines.front());
  const std::size_t next = lines.back() + 1;
  change.behind =
      next < listing.lines.size() ? std::optional(listing.lines[next].hash) : std::nullopt;
  return reader.Read(listing.lines[lines.front()].offset, listing.EndOf(lines.back()),
                     change.before);
}

// Calls `take` with each line of the stretch and whether it is one of those meant.
template <class Take>
void ForEachLine(const LineChange& change, const TableListing& listing,
                 std::span<const std::size_t> lines, Take take) {
  const std::string_view all = change.before;
  auto chosen = lines.begin();
  for (std::size_t line = lines.front(); line <= lines.back(); ++line) {
    const std::uint64_t begin = listing.lines[line].offset;
    const bool isChosen = *chosen == line;
    if (isChosen) ++chosen;
    take(all.substr(static_cast<std::size_t>(begin - change.offset),
                    static_cast<std::size_t>(listing.EndOf(line) - begin)),
         isChosen);
  }
}

// A few names are looked for in the list as it is; for many it is worth while to sort it in.
class TakenNames {
 public:
  TakenNames(const TableListing& listing, std::size_t asked)
      : listing_(listing), isSortedIn_(asked > kFew) {
    if (!isSortedIn_) return;
    for (const std::string& name : listing.names) names_.insert(platform::LowerCase(name));
  }

  // "NAME #2", or the next number; a copy's copy has the next number, too.
  [[nodiscard]] std::string TakeFree(const std::string& name) {
    const std::size_t digits = name.find_last_not_of("0123456789") + 1;
    const bool isCopy = digits < name.size() && name.substr(0, digits).ends_with(" #");
    const std::string own = isCopy ? name.substr(0, digits) : name + " #";
    for (int number = 2;; ++number) {
      std::string copy = own + std::to_string(number);
      const std::string lower = platform::LowerCase(copy);
      if (names_.contains(lower) || (!isSortedIn_ && listing_.HasName(copy))) continue;
      names_.insert(lower);
      return copy;
    }
  }

 private:
  static constexpr std::size_t kFew = 20;

  const TableListing& listing_;
  bool isSortedIn_;
  Names names_;
};

}  // namespace

std::error_code RemovalOf(platform::FileLayer& files, const std::filesystem::path& file,
                          const TableListing& listing, std::span<const std::size_t> lines,
                          LineChange& change) {
  if (const auto error = StretchOf(files, file, listing, lines, change)) return error;
  Names gone;
  ForEachLine(change, listing, lines, [&](std::string_view line, bool isChosen) {
    if (!isChosen) {
      change.after += line;
    } else if (const auto name = ParseEntryName(line)) {
      gone.insert(platform::LowerCase(*name));
    }
  });
  // What had a name in common with another entry may have it again.
  std::size_t namedSo = 0;
  for (const std::string& name : listing.names) {
    namedSo += gone.contains(platform::LowerCase(name)) ? 1 : 0;
  }
  change.needsFreeName = namedSo == lines.size();
  return {};
}

std::error_code CopiesOf(platform::FileLayer& files, const std::filesystem::path& file,
                         const TableListing& listing, std::span<const std::size_t> lines,
                         LineChange& change, std::vector<std::size_t>& copies) {
  if (const auto error = StretchOf(files, file, listing, lines, change)) return error;
  TakenNames taken(listing, lines.size());
  bool canBeNamed = true;
  copies.clear();
  ForEachLine(change, listing, lines, [&](std::string_view line, bool isChosen) {
    change.after += line;
    if (!isChosen) return;
    const std::size_t length = line.find_last_not_of("\r\n") + 1;
    const std::string_view text = line.substr(0, length);
    const std::string name = taken.TakeFree(ParseEntryName(text).value_or(std::string()));
    const std::optional<std::string> copy = RenamedLine(text, name);
    canBeNamed = canBeNamed && copy;
    if (!copy) return;
    // An open end of the file stays behind the last line.
    if (length == line.size()) change.after += "\r\n";
    change.after += *copy;
    change.after += line.substr(length);
    copies.push_back(lines[copies.size()] + copies.size() + 1);
  });
  change.needsFreeName = true;
  return canBeNamed ? std::error_code() : std::make_error_code(std::errc::not_supported);
}

}  // namespace zentab::tables
