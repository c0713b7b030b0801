#include "app/event_log.h"

#include "app/session_texts.h"
#include "platform/paths.h"
#include "texts/line_encoding.h"

namespace zentab::app {

void EventLog::WriteLogLine(std::string_view text) {
  if (text.empty()) return;
  lines_.push_back(Expanded(session_, text));
  if (lines_.size() > kMostLines) lines_.pop_front();
  if (!session_.texts.logSwitch) return;
  // A log that cannot be written must not disturb the work that it tells of.
  [[maybe_unused]] const std::error_code dropped =
      Append(texts::EncodeLine(lines_.back()) + "\r\n");
}

std::filesystem::path EventLog::File() const {
  return platform::ToPath(session_.installFolder) / platform::ToPath(session_.baseName + ".log");
}

std::error_code EventLog::Append(std::string_view line) const {
  std::unique_ptr<platform::OutputFile> file;
  if (const std::error_code error = files_.OpenForAppending(File(), file)) return error;
  if (const std::error_code error = file->Write(line)) return error;
  return file->Close();
}

}  // namespace zentab::app
