#include "app/event_log.h"

#include "app/session_texts.h"
#include "platform/paths.h"
#include "texts/line_encoding.h"

namespace zentab::app {

void EventLog::WriteLogLine(std::string_view text) const {
  if (!session_.texts.logSwitch || text.empty()) return;
  // A log that cannot be written must not disturb the work that it tells of.
  [[maybe_unused]] const std::error_code dropped =
      Append(texts::EncodeLine(Expanded(session_, text)) + "\r\n");
}

std::error_code EventLog::Append(std::string_view line) const {
  std::unique_ptr<platform::OutputFile> file;
  const std::filesystem::path path =
      platform::ToPath(session_.installFolder) / platform::ToPath(session_.baseName + ".log");
  if (const std::error_code error = files_.OpenForAppending(path, file)) return error;
  if (const std::error_code error = file->Write(line)) return error;
  return file->Close();
}

}  // namespace zentab::app
