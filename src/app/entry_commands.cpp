#include "app/entry_commands.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "app/library_change.h"
#include "app/library_commands.h"
#include "tables/chosen_lines.h"
#include "tables/entry_rename.h"
#include "tables/line_order.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

std::error_code Changed() { return std::make_error_code(tables::kEntryChanged); }

void MarkLines(const tables::TableListing& listing, const std::vector<std::size_t>& lines,
               EntryMarks& marks) {
  marks.clear();
  for (const std::size_t line : lines) marks.push_back(listing.MarkOf(line));
}

}  // namespace

EntryMarks MarksOf(const tables::TableListing& listing, const std::vector<std::size_t>& places) {
  EntryMarks marks;
  marks.reserve(places.size());
  for (const std::size_t place : places) marks.push_back(listing.MarkOfName(place));
  return marks;
}

std::vector<std::size_t> PlacesOf(const tables::TableListing& listing, const EntryMarks& marks) {
  std::vector<std::size_t> places;
  places.reserve(marks.size());
  for (const tables::EntryMark& mark : marks) {
    const std::size_t place = listing.NameIn(listing.PlaceOf(mark));
    if (place != tables::kNoLine) places.push_back(place);
  }
  return places;
}

std::filesystem::path EntryCommands::File() const {
  return ActiveTableFile(writer_.Files(), PlaceOf(session_));
}

// The lines of the marks in the file as it is now.
std::error_code EntryCommands::Find(EntryMarks& marks, std::vector<std::size_t>& lines) {
  if (const auto error = tables::Refresh(writer_.Files(), File(), session_.listing)) return error;
  for (tables::EntryMark& mark : marks) {
    mark.index = session_.listing.PlaceOf(mark);
    if (mark.index == tables::kNoLine) return Changed();
    lines.push_back(mark.index);
  }
  std::ranges::sort(lines);
  // Two that say the same may have become one.
  return std::ranges::adjacent_find(lines) == lines.end() ? std::error_code() : Changed();
}

std::error_code EntryCommands::Remove(EntryMarks& marks) {
  std::vector<std::size_t> lines;
  if (const auto error = Find(marks, lines)) return error;
  tables::LineChange change;
  if (const auto error =
          tables::RemovalOf(writer_.Files(), File(), session_.listing, lines, change)) {
    return error;
  }
  if (const auto error = MakeChange(change, session_, writer_)) return error;
  marks.clear();
  return {};
}

std::error_code EntryCommands::Duplicate(EntryMarks& marks) {
  std::vector<std::size_t> lines;
  if (const auto error = Find(marks, lines)) return error;
  tables::LineChange change;
  std::vector<std::size_t> copies;
  if (const auto error =
          tables::CopiesOf(writer_.Files(), File(), session_.listing, lines, change, copies)) {
    return error;
  }
  if (const auto error = writer_.Make(change, session_.listing)) return error;
  MarkLines(session_.listing, copies, marks);
  return {};
}

std::error_code EntryCommands::Rename(EntryMarks& marks, std::string_view name) {
  std::vector<std::size_t> lines;
  if (const auto error = Find(marks, lines)) return error;
  tables::EntryMark& mark = marks.front();
  const std::string trimmed(texts::TrimBlanks(name));
  tables::LineChange change;
  if (const auto error =
          tables::RenameOf(writer_.Files(), File(), session_.listing, mark, trimmed, change)) {
    return error;
  }
  if (change.before == change.after) return {};
  const std::uint64_t former = mark.hash;
  if (const auto error = writer_.Make(change, session_.listing)) return error;
  mark = session_.listing.MarkOf(mark.index);
  if (session_.source && session_.source->hash == former) {
    session_.source->name = trimmed;
    session_.source->hash = mark.hash;
  }
  return {};
}

std::error_code EntryCommands::Move(EntryMarks& marks, std::size_t place) {
  const std::size_t readings = session_.listing.readings;
  std::vector<std::size_t> lines;
  if (const auto error = Find(marks, lines)) return error;
  // The place was one of the list as it was shown.
  if (session_.listing.readings != readings) return Changed();
  std::vector<std::size_t> chosen = PlacesOf(session_.listing, marks);
  std::ranges::sort(chosen);
  std::vector<bool> isChosen(session_.listing.names.size());
  for (const std::size_t one : chosen) isChosen[one] = true;
  std::vector<std::size_t> places;
  places.reserve(isChosen.size());
  const auto take = [&](std::size_t begin, std::size_t end) {
    for (std::size_t at = begin; at < end; ++at) {
      if (!isChosen[at]) places.push_back(at);
    }
  };
  place = std::min(place, isChosen.size());
  take(0, place);
  const std::size_t first = places.size();
  places.insert(places.end(), chosen.begin(), chosen.end());
  take(place, isChosen.size());
  bool isChanged = false;
  if (const auto error = WriteOrder(places, isChanged)) return error;
  for (std::size_t at = 0; at < marks.size(); ++at) {
    marks[at] = session_.listing.MarkOfName(first + at);
  }
  return {};
}

std::error_code EntryCommands::Sort(EntryOrder order, bool& isChanged) {
  if (const auto error = tables::Refresh(writer_.Files(), File(), session_.listing)) return error;
  return WriteOrder(PlacesInOrder(order, session_.listing, writer_.Alive()), isChanged);
}

std::error_code EntryCommands::WriteOrder(const std::vector<std::size_t>& places, bool& isChanged) {
  std::vector<std::size_t> named;  // the lines of the names
  named.reserve(places.size());
  std::vector<std::size_t> order(session_.listing.lines.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  for (const std::size_t line : order) {
    if (session_.listing.NameIn(line) != tables::kNoLine) named.push_back(line);
  }
  for (std::size_t at = 0; at < places.size(); ++at) order[named[at]] = named[places[at]];
  tables::LineChange change;
  if (const auto error =
          tables::OrderOf(writer_.Files(), File(), session_.listing, order, change)) {
    return error;
  }
  isChanged = change.before != change.after;
  return isChanged ? writer_.Make(change, session_.listing) : std::error_code();
}

}  // namespace zentab::app
