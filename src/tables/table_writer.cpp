#include "tables/table_writer.h"

#include <algorithm>
#include <utility>

#include "platform/file_errors.h"
#include "platform/file_reader.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"

namespace zentab::tables {
namespace {

namespace fs = std::filesystem;

using platform::kByteOrderMark;

std::string NewLine(const CurveTableEntry& entry) {
  return texts::EncodeLine(FormatEntryLine(entry)) + "\r\n";
}

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

LineMark LineMarkOf(std::uint64_t offset, std::string_view line) {
  constexpr std::size_t kLineEnd = 2;
  return {offset, HashOf(line.substr(0, line.size() - kLineEnd))};
}

// Whether the last line has no line end.
std::error_code IsLastLineOpen(platform::FileReader& source, bool& isOpen) {
  const std::uint64_t size = source.Size();
  const std::uint64_t begin = size - std::min<std::uint64_t>(size, kByteOrderMark.size());
  std::string last;
  const std::error_code error = source.Read(begin, size, last);
  isOpen = !last.empty() && !IsLineEnd(last.back()) && !(begin == 0 && last == kByteOrderMark);
  return error;
}

// Keeps a copy of what is written.
class CopiedOutput final : public platform::OutputFile {
 public:
  CopiedOutput(platform::OutputFile& output, std::string& copy) : output_(output), copy_(copy) {}

  std::error_code Write(std::string_view bytes) override {
    copy_ += bytes;
    return output_.Write(bytes);
  }
  std::error_code Flush() override { return output_.Flush(); }
  std::error_code Stamp(platform::FileStamp& stamp) override { return output_.Stamp(stamp); }
  std::error_code Close() override { return output_.Close(); }

 private:
  platform::OutputFile& output_;
  std::string& copy_;
};

// One name for each file, however it is reached.
fs::path Identity(platform::FileLayer& files, const fs::path& file) {
  return platform::AskFor(files,
                          [file] {
                            std::error_code error;
                            fs::path path = fs::weakly_canonical(file, error);
                            return error ? file : path;
                          })
      .value_or(file);
}

bool AreOneFile(platform::FileLayer& files, const fs::path& one, const fs::path& other) {
  return platform::AskFor(files,
                          [one, other] {
                            std::error_code unknown;
                            return fs::equivalent(one, other, unknown);
                          })
      .value_or(false);
}

void PutLine(TableListing& listing, std::size_t index, std::string_view line) {
  const std::uint64_t former = listing.EndOf(index) - listing.lines[index].offset;
  const std::uint64_t change = line.size() - former;  // modulo 2^64 when it is shorter
  listing.lines[index] = LineMarkOf(listing.lines[index].offset, line);
  if (index < listing.instruments.size()) listing.instruments[index] = InstrumentOf(line);
  for (std::size_t at = index + 1; at < listing.lines.size(); ++at) {
    listing.lines[at].offset += change;
  }
  listing.end += change;
}

void TakeLine(TableListing& listing, std::size_t index) {
  const std::uint64_t length = listing.EndOf(index) - listing.lines[index].offset;
  listing.lines.erase(listing.lines.begin() + static_cast<std::ptrdiff_t>(index));
  for (std::size_t at = index; at < listing.lines.size(); ++at) {
    listing.lines[at].offset -= length;
  }
  listing.end -= length;
  if (index < listing.names.size()) {
    const auto at = static_cast<std::ptrdiff_t>(index);
    listing.names.erase(listing.names.begin() + at);
    listing.instruments.erase(listing.instruments.begin() + at);
  }
}

// What cannot be read to its end may have some.
bool HasEntries(platform::FileLayer& files, const fs::path& file) {
  bool found = false;
  const std::error_code error =
      platform::ReadLines(files, file, [&found](const platform::RawLine& line) {
        found = ParseEntryName(line.text).has_value();
        return !found;
      });
  return found || (error && error != std::errc::no_such_file_or_directory);
}

}  // namespace

KeepAlive TableWriter::Alive() const {
  return [this] { files_.KeepAlive(); };
}

// The former content is copied, not renamed: the file itself is there at every moment.
std::error_code TableWriter::KeepBackup(const fs::path& file, const fs::path& spared) {
  if (backups_ == Backups::None || written_.contains(Identity(files_, file))) return {};
  platform::FileReader source(files_, file);
  if (source.Error() == std::errc::no_such_file_or_directory) return {};
  if (source.Error()) return source.Error();
  std::optional<fs::path> backup =
      platform::AskFor(files_, [file] { return platform::LinkTarget(file); });
  if (!backup) return platform::FileError::GivenUp;
  *backup += ".bak";
  if (!spared.empty() && AreOneFile(files_, *backup, spared)) return {};
  // What emptied the file may have been no wish of anyone: then this is all there is.
  if (!HasEntries(files_, file) && HasEntries(files_, *backup)) return {};
  const std::error_code error = platform::ReplaceFile(
      files_, *backup,
      [&source](platform::OutputFile& output) { return source.Copy(0, source.Size(), output); },
      {nullptr, file, {}});
  lacksBackup_ = static_cast<bool>(error);
  return error;
}

bool TableWriter::FindsLeftover(const fs::path& file) const {
  std::optional<platform::FileStamp> stamp;
  const bool isMissing = !files_.StampOf(file, stamp) && !stamp;
  return isMissing && HasEntries(files_, fs::path(file) += ".new");
}

std::error_code TableWriter::TakeLeftover(const fs::path& file) {
  return platform::TakeLeftover(files_, file);
}

// What another program has left in the place of the file is all that there is of it: it becomes the
// backup, and a backup with entries an older one.
std::error_code TableWriter::KeepLeftover(const fs::path& leftover) {
  if (!HasEntries(files_, leftover)) return {};
  fs::path backup = leftover;
  backup.replace_extension(".bak");
  fs::path older = backup;
  older += ".old";
  if (HasEntries(files_, backup)) {
    if (const std::error_code error = files_.MoveOver(backup, older)) return error;
  }
  const std::error_code error = files_.MoveOver(leftover, backup);
  hasKeptLeftover_ = !error;
  return error;
}

std::error_code TableWriter::CopyChanged(const fs::path& file, TableListing& listing,
                                         EntryMark& mark, std::string_view replacement,
                                         platform::OutputFile& output) {
  std::string line;
  if (const auto error = ReadLine(files_, file, listing, mark, line)) return error;
  if (const auto error = KeepBackup(file, {})) return error;
  platform::FileReader source(files_, file);
  if (source.Error()) return source.Error();
  const std::uint64_t begin = listing.lines[mark.index].offset;
  const std::uint64_t end = listing.EndOf(mark.index);
  std::string former;
  // Someone who knows of no locks may have been quicker.
  if (source.Stamp() != listing.stamp) return std::make_error_code(kEntryChanged);
  if (const auto error = source.Read(begin, end, former)) return error;
  if (!former.starts_with(line)) return std::make_error_code(kEntryChanged);
  change_ = ChangeOfLine(file, listing, mark.index);
  change_.before = std::move(former);
  change_.after = replacement;
  change_.needsFreeName = replacement.empty() && IsOnlyOneOfItsName(listing, mark.index);
  if (const auto error = source.Copy(0, begin, output)) return error;
  if (const auto error = output.Write(replacement)) return error;
  return source.Copy(end, source.Size(), output);
}

std::error_code TableWriter::Rewrite(const fs::path& file, const platform::ContentWriter& write,
                                     platform::FileStamp& written) {
  lacksBackup_ = false;
  hasKeptLeftover_ = false;
  const auto keep = [this](const fs::path& leftover) { return KeepLeftover(leftover); };
  const std::error_code error = platform::ReplaceFile(files_, file, write, {&written, {}, keep});
  if (error) return error;
  written_.insert(Identity(files_, file));
  if (onChange_) onChange_(std::exchange(change_, {}));
  return {};
}

std::error_code TableWriter::ChangeLine(const fs::path& file, TableListing& listing,
                                        EntryMark& mark, std::string_view replacement) {
  platform::FileStamp stamp;
  const auto write = [&](platform::OutputFile& output) {
    return CopyChanged(file, listing, mark, replacement, output);
  };
  if (const std::error_code error = Rewrite(file, write, stamp)) return error;
  listing.stamp = stamp;
  return {};
}

void TableWriter::ListChanged(const fs::path& file, TableListing& listing) {
  // The change is made; a list that cannot be read anew now is so at the next look.
  if (ListEntries(files_, file, listing)) listing.stamp.reset();
}

std::error_code TableWriter::ReplaceEntry(const fs::path& file, TableListing& listing,
                                          EntryMark& mark, const CurveTableEntry& entry) {
  const std::string line = NewLine(entry);
  if (const std::error_code error = ChangeLine(file, listing, mark, line)) return error;
  PutLine(listing, mark.index, line);
  mark = listing.MarkOf(mark.index);
  // A list that does not show its lines one to one cannot be changed in one place.
  if (!listing.nameless.empty()) ListChanged(file, listing);
  return {};
}

std::error_code TableWriter::RemoveEntry(const fs::path& file, TableListing& listing,
                                         EntryMark& mark) {
  if (const std::error_code error = ChangeLine(file, listing, mark, {})) return error;
  TakeLine(listing, mark.index);
  // What stands before and behind the line may have become one line end: then the second was empty.
  if (!listing.nameless.empty()) ListChanged(file, listing);
  return {};
}

std::error_code TableWriter::CopyComplete(const fs::path& file, const fs::path& spared,
                                          platform::OutputFile& output) {
  if (const auto error = KeepBackup(file, spared)) return error;
  platform::FileReader source(files_, file);
  // Only a file that is not there has nothing to be kept.
  if (source.Error() == std::errc::no_such_file_or_directory) return {};
  if (source.Error()) return source.Error();
  change_.offset = source.Size();
  if (const auto error = IsLastLineOpen(source, change_.endsLine)) return error;
  if (const auto error = source.Copy(0, source.Size(), output)) return error;
  return change_.endsLine ? output.Write("\r\n") : std::error_code();
}

std::error_code TableWriter::Append(const fs::path& file, const fs::path& spared,
                                    const platform::ContentWriter& write,
                                    platform::FileStamp& written) {
  const auto writeAll = [&](platform::OutputFile& output) {
    change_ = {};
    change_.file = file;
    if (const std::error_code error = CopyComplete(file, spared, output)) return error;
    CopiedOutput copied(output, change_.after);
    return write(copied);
  };
  return Rewrite(file, writeAll, written);
}

std::error_code TableWriter::CopyAround(const LineChange& change, TableListing& listing,
                                        platform::OutputFile& output) {
  // Entries that are shown are not taken for gone because someone just replaces their file.
  bool isThere = false;
  if (const auto error = platform::WaitForFile(files_, change.file, isThere)) return error;
  if (!isThere && listing.stamp) {
    return std::make_error_code(std::errc::no_such_file_or_directory);
  }
  if (const auto error = Refresh(files_, change.file, listing)) return error;
  const std::optional<BytePlace> found = PlaceFor(change, listing);
  if (!found) return std::make_error_code(kEntryChanged);
  BytePlace place = *found;
  if (const auto error = KeepBackup(change.file, {})) return error;
  platform::FileReader source(files_, change.file);
  const bool isMissing = source.Error() == std::errc::no_such_file_or_directory;
  if (source.Error() && !isMissing) return source.Error();
  const std::uint64_t size = source.Size();
  // Someone who knows of no locks may have been quicker.
  const bool isSame = isMissing ? !listing.stamp : source.Stamp() == listing.stamp;
  // A byte-order mark stands in front of any lines.
  if (listing.lines.empty()) place = {size, size};
  if (!isSame || place.end > size) return std::make_error_code(kEntryChanged);
  std::string text = change.after;
  if (place.end < size && !text.empty() && !IsLineEnd(text.back())) text += "\r\n";
  bool isOpen = false;
  if (const auto error = IsLastLineOpen(source, isOpen)) return error;
  if (place.begin == size && isOpen && !text.empty()) text.insert(0, "\r\n");
  if (change.endsLine && text.empty() && place.end == size && place.begin >= 2) {
    std::string lineEnd;
    if (const auto error = source.Read(place.begin - 2, place.begin, lineEnd)) return error;
    if (lineEnd == "\r\n") place.begin -= 2;
  }
  change_ = change;
  if (const auto error = source.Copy(0, place.begin, output)) return error;
  if (const auto error = output.Write(text)) return error;
  return source.Copy(place.end, size, output);
}

std::error_code TableWriter::Make(const LineChange& change, TableListing& listing) {
  platform::FileStamp stamp;
  const auto write = [&](platform::OutputFile& output) {
    return CopyAround(change, listing, output);
  };
  if (const auto error = Rewrite(change.file, write, stamp)) return error;
  ListChanged(change.file, listing);
  return {};
}

std::error_code TableWriter::AppendEntry(const fs::path& file, TableListing& listing,
                                         const CurveTableEntry& entry) {
  // Where something is left in the place of the file, the replacement itself waits for it.
  if (listing.stamp && !FindsLeftover(file)) {
    // Entries that are shown are not taken for gone because someone just replaces their file.
    bool isThere = false;
    if (const auto error = platform::WaitForFile(files_, file, isThere)) return error;
    if (!isThere && !FindsLeftover(file)) {
      TableListing none;
      none.readings = listing.readings + 1;
      listing = std::move(none);
      return std::make_error_code(std::errc::no_such_file_or_directory);
    }
  }
  const std::string line = NewLine(entry);
  platform::FileStamp stamp;
  // Under the lock: the name must be free in the file as it is now.
  const std::error_code error = Append(
      file, {},
      [&](platform::OutputFile& output) {
        const std::size_t readings = listing.readings;
        if (const auto failed = Refresh(files_, file, listing)) return failed;
        if (listing.readings != readings && listing.HasName(entry.name, Alive())) {
          return std::make_error_code(std::errc::file_exists);
        }
        change_.needsFreeName = true;
        return output.Write(line);
      },
      stamp);
  if (error) return error;
  listing.names.push_back(entry.name);
  listing.instruments.push_back(InstrumentOf(line));
  listing.lines.push_back(LineMarkOf(stamp.size - line.size(), line));
  listing.end = stamp.size;
  listing.stamp = stamp;
  return {};
}

std::error_code TableWriter::AppendLines(const fs::path& file, const fs::path& source,
                                         const platform::ContentWriter& write) {
  platform::FileStamp stamp;
  return Append(file, source, write, stamp);
}

}  // namespace zentab::tables
