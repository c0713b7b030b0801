#include "platform/line_reader.h"

#include <algorithm>
#include <cstring>

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

}  // namespace

LineReader::LineReader(const fs::path& path) : atEnd_(!OpenRegular(path, file_)) {}

bool LineReader::Refill() {
  if (atEnd_) return false;
  const std::size_t kept = end_ - begin_;
  if (begin_ > 0) std::memmove(buffer_.data(), buffer_.data() + begin_, kept);
  begin_ = 0;
  end_ = kept;
  if (buffer_.size() - kept < kReadBlock) buffer_.resize(std::max(kept + kReadBlock, 2 * kept));
  file_.read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - end_));
  const auto count = static_cast<std::size_t>(file_.gcount());
  end_ += count;
  atEnd_ = !file_;
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

}  // namespace zentab::platform
