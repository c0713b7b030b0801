#include "exchange/entry_copy.h"

#include <algorithm>
#include <memory>
#include <string>

#include "platform/file_reader.h"
#include "platform/line_reader.h"

namespace zentab::exchange {
namespace {

namespace fs = std::filesystem;

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
std::error_code WriteLines(platform::InputFile& source, const std::vector<bool>& selected,
                           LineWriter& writer, std::size_t& count) {
  const auto end = std::find(selected.rbegin(), selected.rend(), true).base();
  auto next = selected.begin();
  std::error_code failed;
  const std::error_code error = platform::ReadLines(source, [&](const platform::RawLine& line) {
    if (*next++) {
      failed = writer.Write(line.text);
      if (!failed) failed = writer.Write(platform::kLineEnd);
      ++count;
    }
    return !failed && next != end;
  });
  if (error) return error;
  return failed ? failed : writer.Finish();
}

}  // namespace

CopyResult CopyEntries(tables::TableWriter& writer, const fs::path& source,
                       const tables::TableListing& listed, const std::vector<bool>& selected,
                       const fs::path& target) {
  CopyResult result;
  const auto first = std::find(selected.begin(), selected.end(), true);
  std::unique_ptr<platform::InputFile> file;
  platform::FileStamp stamp;
  result.error = writer.Files().Open(source, file);
  if (!result.error) result.error = file->Stamp(stamp);
  // What is read from an open file is what was listed, whoever replaces it.
  const bool isGone = result.error == std::errc::no_such_file_or_directory && listed.stamp;
  if (isGone || (!result.error && listed.stamp != stamp)) {
    result.error = std::make_error_code(tables::kEntryChanged);
  }
  const auto line = static_cast<std::size_t>(first - selected.begin());
  if (result.error || first == selected.end() || line >= listed.lines.size()) return result;
  result.error = writer.AppendLines(target, source, [&](platform::OutputFile& output) {
    LineWriter block(output);
    const std::error_code error = WriteLines(*file, selected, block, result.copied);
    // The source may be the file that is about to be replaced.
    file.reset();
    return error;
  });
  if (result.error) result.copied = 0;
  return result;
}

}  // namespace zentab::exchange
