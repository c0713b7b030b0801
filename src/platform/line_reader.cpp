#include "platform/line_reader.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

// Large enough that the calls into the system do not count, small enough to stay in the cache.
constexpr std::size_t kBlock = 256u << 10;

struct LineEnd {
  std::size_t at;      // offset of the line end
  std::size_t length;  // 1 or 2; 0: none found
  bool mayGoOn;        // a CR at the very end of the text, whose LF may still come
};

const char* Find(char wanted, const char* begin, const char* end) {
  const auto size = static_cast<std::size_t>(end - begin);
  const void* const found = size == 0 ? nullptr : std::memchr(begin, wanted, size);
  return found == nullptr ? end : static_cast<const char*>(found);
}

// Looks in steps that grow from about a line's length: a file that has only one of the two
// characters is not searched to its end for the other one at every line.
LineEnd FindLineEnd(std::string_view text, std::size_t from) {
  const char* const end = text.data() + text.size();
  std::ptrdiff_t step = 1024;
  for (const char* at = text.data() + from; at != end; step *= 2) {
    const char* const stop = at + std::min(step, end - at);
    const char* const lineFeed = Find('\n', at, stop);
    const char* const found = Find('\r', at, lineFeed);
    if (found != stop) {
      const auto place = static_cast<std::size_t>(found - text.data());
      if (*found == '\n') return {place, 1, false};
      const bool followed = found + 1 != end;
      return {place, followed && found[1] == '\n' ? 2u : 1u, !followed};
    }
    at = stop;
  }
  return {text.size(), 0, false};
}

bool OpenRegular(const fs::path& path, std::ifstream& file) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return false;
  // Unbuffered: the blocks are read straight to where they are used.
  file.rdbuf()->pubsetbuf(nullptr, 0);
  file.open(path, std::ios::binary);
  return file.is_open();
}

std::size_t ReadBlock(std::ifstream& file, char* to, std::size_t size) {
  file.read(to, static_cast<std::streamsize>(size));
  return static_cast<std::size_t>(file.gcount());
}

}  // namespace

LineReader::LineReader(const fs::path& path, std::uint64_t most)
    : unread_(most), atEnd_(!OpenRegular(path, file_)) {}

bool LineReader::Refill() {
  if (atEnd_) return false;
  const std::size_t kept = end_ - begin_;
  if (begin_ > 0) std::memmove(buffer_.data(), buffer_.data() + begin_, kept);
  begin_ = 0;
  end_ = kept;
  if (buffer_.size() - kept < kBlock) buffer_.resize(std::max(kept + kBlock, 2 * kept));
  const std::uint64_t room = std::min<std::uint64_t>(buffer_.size() - end_, unread_);
  const std::size_t count = ReadBlock(file_, buffer_.data() + end_, static_cast<std::size_t>(room));
  end_ += count;
  unread_ -= count;
  atEnd_ = !file_ || unread_ == 0;
  return count > 0;
}

bool LineReader::Next(RawLine& line) {
  std::size_t searched = 0;  // bytes of the unread text that hold no line end
  for (;;) {
    const std::string_view unread(buffer_.data() + begin_, end_ - begin_);
    const LineEnd found = FindLineEnd(unread, searched);
    if (found.length == 0 || found.mayGoOn) {
      searched = found.at;
      if (Refill()) continue;
      if (unread.empty()) return false;
    }
    // Refill moves the bytes even when it adds none.
    const std::string_view rest(buffer_.data() + begin_, end_ - begin_);
    line = {rest.substr(0, found.at), rest.substr(found.at, found.length)};
    begin_ += found.at + found.length;
    return true;
  }
}

bool EndsInsideLine(const fs::path& path) {
  std::ifstream file;
  if (!OpenRegular(path, file) || !file.seekg(-1, std::ios::end)) return false;
  const int last = file.get();
  return last != '\n' && last != '\r';
}

namespace {

// Follows the lines of a file through its blocks and passes on all but the changed one.
class LineChanger {
 public:
  LineChanger(std::size_t index, std::string_view replacement, OutputFile& output)
      : index_(index), replacement_(replacement), output_(output) {}

  [[nodiscard]] bool MetLine() const { return met_; }

  std::error_code Feed(std::string_view block) {
    std::size_t at = 0;
    if (afterCarriageReturn_) {
      if (block.front() == '\n') at = 1;
      if (line_ != index_) {
        if (const std::error_code error = output_.Write(block.substr(0, at))) return error;
      }
      EndLine();
    }
    if (line_ < index_) {
      const std::size_t start = at;
      while (line_ < index_ && at < block.size()) at = PastLine(block, at);
      if (const std::error_code error = output_.Write(block.substr(start, at - start))) {
        return error;
      }
    }
    if (line_ == index_ && at < block.size()) {
      if (const std::error_code error = MeetLine()) return error;
      at = PastLine(block, at);
    }
    return line_ > index_ ? output_.Write(block.substr(at)) : std::error_code();
  }

 private:
  // The offset behind the line, or the block's size when the line goes on in the next block.
  std::size_t PastLine(std::string_view block, std::size_t at) {
    const LineEnd end = FindLineEnd(block, at);
    if (end.mayGoOn) {
      afterCarriageReturn_ = true;
    } else if (end.length > 0) {
      EndLine();
    }
    return end.at + end.length;
  }

  void EndLine() {
    afterCarriageReturn_ = false;
    ++line_;
  }

  std::error_code MeetLine() {
    if (met_) return {};
    met_ = true;
    return output_.Write(replacement_);
  }

  std::size_t index_;
  std::string_view replacement_;
  OutputFile& output_;
  std::size_t line_ = 0;
  bool afterCarriageReturn_ = false;  // the last block ended in a CR whose LF may follow
  bool met_ = false;
};

}  // namespace

std::error_code CopyChangingLine(const fs::path& source, std::size_t index,
                                 std::string_view replacement, OutputFile& output) {
  std::ifstream file;
  if (!OpenRegular(source, file)) {
    return std::make_error_code(std::errc::no_such_file_or_directory);
  }
  LineChanger changer(index, replacement, output);
  const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
  while (const std::size_t count = ReadBlock(file, block.get(), kBlock)) {
    if (const std::error_code error = changer.Feed({block.get(), count})) return error;
  }
  if (file.bad()) return std::make_error_code(std::errc::io_error);
  return changer.MetLine() ? std::error_code()
                           : std::make_error_code(std::errc::result_out_of_range);
}

}  // namespace zentab::platform
