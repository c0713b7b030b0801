#include "platform/line_reader.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "platform/file_errors.h"
#include "platform/file_reader.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

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

// The bytes of a file that were read and not yet taken, in one piece.
class Window {
 public:
  explicit Window(InputFile& file) : file_(file) {}

  [[nodiscard]] std::string_view Unread() const { return {buffer_.data() + begin_, end_ - begin_}; }
  [[nodiscard]] std::uint64_t Offset() const { return next_ - (end_ - begin_); }
  void Take(std::size_t count) { begin_ += count; }

  // Reads the next block behind the unread bytes, which may move; `grew`: there was one.
  std::error_code Grow(bool& grew) {
    grew = false;
    if (atEnd_) return {};
    const std::size_t kept = end_ - begin_;
    if (kept > kLongestLine) return FileError::LineTooLong;
    if (begin_ > 0) std::memmove(buffer_.data(), buffer_.data() + begin_, kept);
    begin_ = 0;
    end_ = kept;
    if (buffer_.size() - kept < kReadBlock) buffer_.resize(std::max(kept + kReadBlock, 2 * kept));
    std::size_t count = 0;
    const std::size_t room = buffer_.size() - end_;
    const std::error_code error = file_.ReadAt(next_, buffer_.data() + end_, room, count);
    end_ += count;
    next_ += count;
    atEnd_ = count < room;
    grew = count > 0;
    return error;
  }

 private:
  InputFile& file_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;  // the unread bytes are [begin_, end_) of the buffer
  std::size_t end_ = 0;
  std::uint64_t next_ = 0;  // the file's offset that is read next
  bool atEnd_ = false;
};

// The next line, still unread; `found` is false at the file's end.
std::error_code FindLine(Window& window, RawLine& line, bool& found) {
  std::size_t searched = 0;  // bytes of the unread text that hold no line end
  for (;;) {
    const LineEnd end = FindLineEnd(window.Unread(), searched);
    if (end.length == 0 || end.mayGoOn) {
      searched = end.at;
      bool grew = false;
      if (const std::error_code error = window.Grow(grew)) return error;
      if (grew) continue;
    }
    if (end.at > kLongestLine) return FileError::LineTooLong;
    const std::string_view unread = window.Unread();
    found = !unread.empty();
    line = {unread.substr(0, end.at), unread.substr(end.at, end.length), window.Offset()};
    return {};
  }
}

}  // namespace

std::error_code ReadLines(InputFile& file, const LineTaker& take) {
  Window window(file);
  bool isFirst = true;
  for (;;) {
    RawLine line;
    bool found = false;
    if (const std::error_code error = FindLine(window, line, found)) return error;
    if (!found) return {};
    if (isFirst && line.text.starts_with(kByteOrderMark)) {
      window.Take(kByteOrderMark.size());
      line.text.remove_prefix(kByteOrderMark.size());
      line.offset += kByteOrderMark.size();
    }
    isFirst = false;
    // A file that is a mark alone has no line.
    const std::size_t size = line.text.size() + line.ending.size();
    if (size == 0 || !take(line)) return {};
    window.Take(size);
  }
}

std::error_code ReadLines(FileLayer& files, const fs::path& path, const LineTaker& take) {
  std::unique_ptr<InputFile> file;
  if (const std::error_code error = files.Open(path, file)) return error;
  return ReadLines(*file, take);
}

}  // namespace zentab::platform
