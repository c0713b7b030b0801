#include "tables/table_writer.h"

#include "platform/file_reader.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"

namespace zentab::tables {
namespace {

namespace fs = std::filesystem;

std::string NewLine(const CurveTableEntry& entry) {
  return texts::EncodeLine(FormatEntryLine(entry)) + "\r\n";
}

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

LineMark MarkOf(std::uint64_t offset, std::string_view line) {
  constexpr std::size_t kLineEnd = 2;
  return {offset, HashOf(line.substr(0, line.size() - kLineEnd))};
}

// Whether what stands before and behind a removed line became one line end, CR LF.
bool HasMelted(const fs::path& file, std::uint64_t offset) {
  return offset > 0 && platform::FileReader(file).Read(offset - 1, offset + 1) == "\r\n";
}

std::error_code CopyAll(platform::FileReader& source, const fs::path& file,
                        platform::OutputFile& output) {
  if (source.IsOpen()) return source.Copy(0, source.Size(), output);
  // Only a file that is not there has nothing to be kept.
  std::error_code error;
  const bool isMissing = fs::status(file, error).type() == fs::file_type::not_found;
  return isMissing ? std::error_code() : std::make_error_code(std::errc::io_error);
}

std::error_code EndLastLine(platform::FileReader& source, platform::OutputFile& output) {
  const std::uint64_t size = source.Size();
  if (size == 0) return {};
  const std::optional<std::string> last = source.Read(size - 1, size);
  if (!last) return std::make_error_code(std::errc::io_error);
  return IsLineEnd(last->front()) ? std::error_code() : output.Write("\r\n");
}

// One name for each file, however it is reached.
fs::path Identity(const fs::path& file) {
  std::error_code error;
  fs::path path = fs::weakly_canonical(file, error);
  return error ? file : path;
}

void PutLine(TableListing& listing, std::size_t index, std::string_view line) {
  const std::uint64_t former = listing.EndOf(index) - listing.lines[index].offset;
  const std::uint64_t change = line.size() - former;  // modulo 2^64 when it is shorter
  listing.lines[index] = MarkOf(listing.lines[index].offset, line);
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
    listing.names.erase(listing.names.begin() + static_cast<std::ptrdiff_t>(index));
  }
}

bool HasEntries(const fs::path& file) {
  platform::LineReader lines(file);
  platform::RawLine line;
  while (lines.Next(line)) {
    if (ParseEntryName(line.text)) return true;
  }
  return false;
}

}  // namespace

KeepAlive TableWriter::Alive() const {
  return [this] { files_.KeepAlive(); };
}

// The former content is copied, not renamed: the file itself is there at every moment.
std::error_code TableWriter::KeepBackup(const fs::path& file, const fs::path& spared) {
  if (backups_ == Backups::None || written_.contains(Identity(file))) return {};
  platform::FileReader source(file);
  if (!source.IsOpen()) return {};
  fs::path backup = platform::LinkTarget(file);
  backup += ".bak";
  std::error_code unknown;
  if (!spared.empty() && fs::equivalent(backup, spared, unknown)) return {};
  // What emptied the file may have been no wish of anyone: then this is all there is.
  if (!HasEntries(file) && HasEntries(backup)) return {};
  const std::error_code error = platform::ReplaceFile(
      files_, backup,
      [&source](platform::OutputFile& output) { return source.Copy(0, source.Size(), output); },
      nullptr, file);
  lacksBackup_ = static_cast<bool>(error);
  return error;
}

std::error_code TableWriter::CopyChanged(const fs::path& file, TableListing& listing,
                                         std::size_t& index, std::string_view replacement,
                                         platform::OutputFile& output) {
  std::string line;
  if (const auto error = ReadLine(file, listing, index, line, Alive())) return error;
  if (const auto error = KeepBackup(file, {})) return error;
  const std::uint64_t begin = listing.lines[index].offset;
  const std::uint64_t end = listing.EndOf(index);
  platform::FileReader source(file);
  // Someone who knows of no locks may have been quicker.
  if (!listing.stamp || source.Size() != listing.stamp->size ||
      source.Read(begin, begin + line.size()) != line) {
    return std::make_error_code(kEntryChanged);
  }
  if (const auto error = source.Copy(0, begin, output)) return error;
  if (const auto error = output.Write(replacement)) return error;
  return source.Copy(end, source.Size(), output);
}

std::error_code TableWriter::Rewrite(const fs::path& file, const platform::ContentWriter& write,
                                     platform::FileStamp& written) {
  lacksBackup_ = false;
  const std::error_code error = platform::ReplaceFile(files_, file, write, &written);
  if (!error) written_.insert(Identity(file));
  return error;
}

std::error_code TableWriter::ChangeLine(const fs::path& file, TableListing& listing,
                                        std::size_t& index, std::string_view replacement) {
  platform::FileStamp stamp;
  const auto write = [&](platform::OutputFile& output) {
    return CopyChanged(file, listing, index, replacement, output);
  };
  if (const std::error_code error = Rewrite(file, write, stamp)) return error;
  listing.stamp = stamp;
  return {};
}

std::error_code TableWriter::ReplaceEntry(const fs::path& file, TableListing& listing,
                                          std::size_t& index, const CurveTableEntry& entry) {
  const std::string line = NewLine(entry);
  if (const std::error_code error = ChangeLine(file, listing, index, line)) return error;
  PutLine(listing, index, line);
  // A list that does not show its lines one to one cannot be changed in one place.
  if (!listing.nameless.empty()) ListAgain(file, listing, index, Alive());
  return {};
}

std::error_code TableWriter::RemoveEntry(const fs::path& file, TableListing& listing,
                                         std::size_t& index) {
  if (const std::error_code error = ChangeLine(file, listing, index, {})) return error;
  const std::uint64_t offset = listing.lines[index].offset;
  TakeLine(listing, index);
  // The line behind it, of whatever text, stays the one at the index.
  std::size_t place = index;
  if (!listing.nameless.empty() || HasMelted(file, offset)) {
    ListAgain(file, listing, place, Alive());
  }
  return {};
}

std::error_code TableWriter::CopyComplete(const fs::path& file, const fs::path& spared,
                                          platform::OutputFile& output) {
  if (const auto error = KeepBackup(file, spared)) return error;
  platform::FileReader source(file);
  if (const auto error = CopyAll(source, file, output)) return error;
  return EndLastLine(source, output);
}

std::error_code TableWriter::Append(const fs::path& file, const fs::path& spared,
                                    const platform::ContentWriter& write,
                                    platform::FileStamp& written) {
  const auto writeAll = [&](platform::OutputFile& output) {
    const std::error_code error = CopyComplete(file, spared, output);
    return error ? error : write(output);
  };
  return Rewrite(file, writeAll, written);
}

std::error_code TableWriter::AppendEntry(const fs::path& file, TableListing& listing,
                                         std::size_t& index, const CurveTableEntry& entry) {
  const std::string line = NewLine(entry);
  platform::FileStamp stamp;
  // Under the lock: the name must be free in the file as it is now.
  const std::error_code error = Append(
      file, {},
      [&](platform::OutputFile& output) {
        if (Refresh(file, listing, index, Alive()) && listing.HasName(entry.name, Alive())) {
          return std::make_error_code(std::errc::file_exists);
        }
        return output.Write(line);
      },
      stamp);
  if (error) return error;
  listing.names.push_back(entry.name);
  listing.lines.push_back(MarkOf(stamp.size - line.size(), line));
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
