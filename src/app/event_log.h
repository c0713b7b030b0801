#pragma once

#include <deque>
#include <filesystem>
#include <string>
#include <string_view>

#include "app/session.h"
#include "platform/file_layer.h"

namespace zentab::app {

/// The log of what the user did with instruments and tables: a text file in the installation
/// folder, named after the executable. It is written only while the catalogue's log switch is on;
/// what this session would have in it is kept in any case.
class EventLog {
 public:
  EventLog(const Session& session, platform::FileLayer& files) : session_(session), files_(files) {}

  /// Adds one line, a template whose fields are filled in. The file is opened and closed for it,
  /// so that every line is on the disk when the next thing happens. A line that cannot be written
  /// is left out.
  void WriteLogLine(std::string_view text);

  /// The lines of this session, the oldest first; of more than kMostLines the last ones.
  [[nodiscard]] const std::deque<std::string>& Lines() const { return lines_; }
  /// The file they are written to.
  [[nodiscard]] std::filesystem::path File() const;

  static constexpr std::size_t kMostLines = 10'000;

 private:
  [[nodiscard]] std::error_code Append(std::string_view line) const;

  const Session& session_;
  platform::FileLayer& files_;
  std::deque<std::string> lines_;
};

}  // namespace zentab::app
