#include "exchange/entry_copy.h"

#include <algorithm>
#include <string>

#include "platform/file_reader.h"
#include "platform/line_reader.h"

namespace zentab::exchange {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLineEnd = "\r\n";

// Gathers lines into blocks.
class LineWriter {
 public:
  explicit LineWriter(platform::OutputFile& output) : output_(output) {
    block_.reserve(2 * platform::kReadBlock);
  }

  std::error_code Write(std::string_view text) {
    if (text.size() > platform::kReadBlock) {
      if (const std::error_code error = Finish()) return error;
      return output_.Write(text);
    }
    block_ += text;
    return block_.size() < platform::kReadBlock ? std::error_code() : Finish();
  }

  std::error_code Finish() {
    const std::error_code error = block_.empty() ? std::error_code() : output_.Write(block_);
    block_.clear();
    return error;
  }

 private:
  platform::OutputFile& output_;
  std::string block_;
};

// The selected lines of a file, which is read no further than to the last of them.
class SelectedLines {
 public:
  SelectedLines(const fs::path& file, const std::vector<bool>& selected)
      : reader_(file),
        end_(std::find(selected.rbegin(), selected.rend(), true).base()),
        next_(selected.begin()) {}

  bool Next(platform::RawLine& line) {
    while (next_ != end_ && reader_.Next(line)) {
      if (*next_++) return true;
    }
    return false;
  }

  [[nodiscard]] std::error_code Error() const {
    return reader_.Failed() ? std::make_error_code(std::errc::io_error) : std::error_code();
  }

 private:
  platform::LineReader reader_;
  std::vector<bool>::const_iterator end_;
  std::vector<bool>::const_iterator next_;
};

std::error_code WriteLines(SelectedLines& lines, platform::RawLine line, LineWriter& writer,
                           std::size_t& count) {
  do {
    if (const std::error_code error = writer.Write(line.text)) return error;
    if (const std::error_code error = writer.Write(kLineEnd)) return error;
    ++count;
  } while (lines.Next(line));
  if (const std::error_code error = lines.Error()) return error;
  return writer.Finish();
}

}  // namespace

CopyResult CopyEntries(tables::TableWriter& writer, const fs::path& source,
                       const std::optional<platform::FileStamp>& listed,
                       const std::vector<bool>& selected, const fs::path& target) {
  CopyResult result;
  // Opened before its stamp is looked at: what is read is then what was listed.
  std::optional<SelectedLines> lines(std::in_place, source, selected);
  if (platform::StampOf(source) != listed) {
    result.error = std::make_error_code(tables::kEntryChanged);
    return result;
  }
  platform::RawLine first;
  const bool any = lines->Next(first);
  result.error = lines->Error();
  if (result.error || !any) return result;

  result.error = writer.AppendLines(target, source, [&](platform::OutputFile& output) {
    LineWriter block(output);
    const std::error_code error = WriteLines(*lines, first, block, result.copied);
    // The source may be the file that is about to be replaced.
    lines.reset();
    return error;
  });
  if (result.error) result.copied = 0;
  return result;
}

}  // namespace zentab::exchange
