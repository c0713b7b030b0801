#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/console_streams.h"

namespace zentab::cli {

/// Exit codes of the program.
enum class Exit { Done = 0, Failed = 1, WrongUsage = 2 };

/// What a command says: results on standard output, in blocks, and messages on standard error. A
/// terminal gets control characters as texts::Visible shows them, so that a name in a file cannot
/// move its cursor or change what it shows; a file or a pipe gets every byte as it is.
class Console {
 public:
  /// Messages begin with the program's name.
  explicit Console(std::string program = "zentab-cli") : program_(std::move(program)) {}

  /// Adds to standard output: whole characters.
  void Write(std::string_view text);
  /// Adds a line.
  void WriteLine(std::string_view text);
  /// Passes on what was written so far.
  void Flush();
  /// Whether some of the output could not be written.
  [[nodiscard]] bool IsBroken() const { return failed_; }
  /// Whether that is because nobody reads it any more, as behind "| head".
  [[nodiscard]] bool HasLostReader() const { return lostReader_; }
  /// Passes on the rest; false when any of the output could not be written.
  [[nodiscard]] bool Finish();

  /// Lines on standard error, as they are.
  void Tell(std::string_view lines) const;
  /// "PROGRAM: TEXT" on standard error.
  void Warn(std::string_view text) const;
  /// The same, for a command that ends with it.
  [[nodiscard]] Exit Fail(std::string_view text) const;
  [[nodiscard]] Exit Misused(std::string_view text) const;

 private:
  std::string program_;
  bool outputIsTerminal_ = platform::OutputIsTerminal();
  bool messagesAreRead_ = platform::MessagesGoToTerminal();
  std::string block_;
  bool failed_ = false;
  bool lostReader_ = false;
};

}  // namespace zentab::cli
