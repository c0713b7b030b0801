#include "interchange/take_over.h"

#include <algorithm>
#include <vector>

#include "platform/file_reader.h"
#include "platform/line_reader.h"

namespace zentab::interchange {
namespace {

std::string_view Content(std::string_view line) {
  return line.substr(0, line.find_last_not_of("\r\n") + 1);
}

std::string_view EndingOf(std::string_view line) { return line.substr(Content(line).size()); }

// One of the two files, as it was compared.
class Source {
 public:
  Source(platform::FileLayer& files, const ComparedFile& file)
      : listing_(file.listing), reader_(files, file.path) {}

  [[nodiscard]] std::error_code Check() const {
    const bool isMissing = reader_.Error() == std::errc::no_such_file_or_directory;
    if (reader_.Error() && !isMissing) return reader_.Error();
    const bool isSame = isMissing ? !listing_.stamp : listing_.stamp == reader_.Stamp();
    return isSame ? std::error_code() : std::make_error_code(tables::kEntryChanged);
  }
  // Lines with their line ends, from `begin` up to `end`.
  std::error_code Read(std::size_t begin, std::size_t end, std::string& bytes) {
    bytes.clear();
    if (begin == end) return {};
    return reader_.Read(listing_.lines[begin].offset, listing_.EndOf(end - 1), bytes);
  }
  std::error_code IsLastOpen(bool& isOpen) {
    const std::size_t count = listing_.lines.size();
    std::string last;
    const std::error_code error = Read(count - std::min<std::size_t>(count, 1), count, last);
    isOpen = count > 0 && EndingOf(last).empty();
    return error;
  }

 private:
  const tables::TableListing& listing_;
  platform::FileReader reader_;
};

// The lines that a change concerns.
struct Span {
  std::size_t begin;
  std::size_t end;
};

class Taking {
 public:
  Taking(platform::FileLayer& files, const ComparedFile& library, const ComparedFile& other,
         std::span<const EntryDifference> chosen)
      : listing_(library.listing),
        chosen_(chosen),
        library_(files, library),
        other_(files, other) {}

  std::error_code Run(tables::LineChange& change) {
    for (const Source* const source : {&library_, &other_}) {
      if (const auto error = source->Check()) return error;
    }
    Span span = {};
    if (const auto error = FindSpan(span)) return error;
    if (const auto error = library_.Read(span.begin, span.end, change.before)) return error;
    if (span.begin < span.end) {
      change.offset = listing_.lines[span.begin].offset;
      if (span.begin > 0) change.inFront = listing_.lines[span.begin - 1].hash;
      if (span.end < listing_.lines.size()) change.behind = listing_.lines[span.end].hash;
    } else {
      change.offset = listing_.end;
    }
    if (const auto error = WriteSpan(span, change)) return error;
    return WriteNew(change.after);
  }

 private:
  // New entries stand at the end, behind a line that is closed first.
  std::error_code FindSpan(Span& span) {
    const std::size_t count = listing_.lines.size();
    span = {count, 0};
    bool addsLines = false;
    for (const EntryDifference& difference : chosen_) {
      if (difference.before == kNoLine) {
        addsLines = true;
        continue;
      }
      span.begin = std::min(span.begin, difference.before);
      span.end = std::max(span.end, difference.before + 1);
    }
    bool isOpen = false;
    if (const auto error = library_.IsLastOpen(isOpen)) return error;
    if (addsLines) span.end = count;
    if (addsLines && isOpen) span.begin = std::min(span.begin, count - 1);
    return {};
  }

  std::error_code WriteSpan(const Span& span, tables::LineChange& change) {
    std::vector<const EntryDifference*> of(span.end - span.begin);
    for (const EntryDifference& difference : chosen_) {
      if (difference.before != kNoLine) of[difference.before - span.begin] = &difference;
    }
    const std::string_view before = change.before;
    const std::uint64_t offset = change.offset;
    for (std::size_t line = span.begin; line < span.end; ++line) {
      const auto begin = static_cast<std::size_t>(listing_.lines[line].offset - offset);
      const auto end = static_cast<std::size_t>(listing_.EndOf(line) - offset);
      const std::string_view own = before.substr(begin, end - begin);
      const EntryDifference* const difference = of[line - span.begin];
      if (difference == nullptr) {
        change.after += own;
      } else if (difference->after != kNoLine) {
        if (const auto error = AddOther(*difference, change.after)) return error;
        change.after += EndingOf(own);
      }
    }
    return {};
  }

  std::error_code WriteNew(std::string& after) {
    for (const EntryDifference& difference : chosen_) {
      if (difference.before != kNoLine) continue;
      if (!after.empty() && EndingOf(after).empty()) after += platform::kLineEnd;
      if (const auto error = AddOther(difference, after)) return error;
      after += platform::kLineEnd;
    }
    return {};
  }

  std::error_code AddOther(const EntryDifference& difference, std::string& after) {
    std::string line;
    const auto error = other_.Read(difference.after, difference.after + 1, line);
    after += Content(line);
    return error;
  }

  const tables::TableListing& listing_;
  std::span<const EntryDifference> chosen_;
  Source library_;
  Source other_;
};

// A name that the library has more than once already is no reason against a further one.
bool AreNamesNew(const tables::TableListing& listing, std::span<const EntryDifference> chosen) {
  std::vector<std::string> names;
  for (const EntryDifference& difference : chosen) {
    if (difference.before == kNoLine) names.push_back(difference.name);
  }
  return !listing.FirstTaken(names);
}

}  // namespace

std::error_code TakeOver(platform::FileLayer& files, const ComparedFile& library,
                         const ComparedFile& other, std::span<const EntryDifference> chosen,
                         tables::LineChange& change) {
  tables::TableListing listing;
  if (const auto error = tables::ListEntries(files, library.path, listing)) return error;
  if (listing.stamp != library.listing.stamp) return std::make_error_code(tables::kEntryChanged);
  tables::LineChange made;
  made.file = library.path;
  made.needsFreeName = AreNamesNew(listing, chosen);
  const std::error_code error = Taking(files, library, other, chosen).Run(made);
  if (!error) change = std::move(made);
  return error;
}

}  // namespace zentab::interchange
