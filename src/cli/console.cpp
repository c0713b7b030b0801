#include "cli/console.h"

#include <cerrno>
#include <cstdio>

#include "texts/characters.h"

namespace zentab::cli {
namespace {

constexpr std::size_t kBlock = 64u << 10;

}  // namespace

void Console::Write(std::string_view text) {
  if (outputIsTerminal_) {
    block_ += texts::Visible(text);
  } else {
    block_ += text;
  }
  if (block_.size() >= kBlock) Flush();
}

void Console::WriteLine(std::string_view text) {
  Write(text);
  Write("\n");
}

void Console::Flush() {
  const bool isWritten = std::fwrite(block_.data(), 1, block_.size(), stdout) == block_.size() &&
                         std::fflush(stdout) == 0;
  if (!isWritten && !failed_) lostReader_ = errno == EPIPE;
  failed_ = failed_ || !isWritten;
  block_.clear();
}

bool Console::Finish() {
  Flush();
  return !failed_;
}

void Console::Tell(std::string_view lines) const {
  const std::string told = messagesAreRead_ ? texts::Visible(lines) : std::string(lines);
  // Where standard error is gone there is nobody to tell.
  [[maybe_unused]] const std::size_t dropped = std::fwrite(told.data(), 1, told.size(), stderr);
}

void Console::Warn(std::string_view text) const {
  Tell(program_ + ": " + std::string(text) + '\n');
}

Exit Console::Fail(std::string_view text) const {
  Warn(text);
  return Exit::Failed;
}

Exit Console::Misused(std::string_view text) const {
  Warn(text);
  return Exit::WrongUsage;
}

}  // namespace zentab::cli
