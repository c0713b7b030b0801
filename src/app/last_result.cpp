#include "app/last_result.h"

#include <charconv>
#include <chrono>

#include "platform/paths.h"
#include "timetest/result_reader.h"

namespace zentab::app {
namespace {

std::string FieldOf(tables::Instrument instrument, const char* what) {
  return std::to_string(static_cast<int>(instrument)) + what;
}

std::optional<ResultFile> FactsOf(platform::FileLayer& files, const std::filesystem::path& path) {
  const auto changed = platform::AskFor(files, [path]() -> std::optional<std::int64_t> {
    std::error_code error;
    const auto time = std::filesystem::last_write_time(path, error);
    if (error) return std::nullopt;
    const auto system = std::chrono::file_clock::to_sys(time);
    return std::chrono::floor<std::chrono::seconds>(system).time_since_epoch().count();
  });
  if (!changed || !*changed) return std::nullopt;
  return ResultFile{platform::ToText(path), **changed};
}

}  // namespace

std::optional<ResultFile> ResultFileOf(platform::FileLayer& files,
                                       const std::filesystem::path& installFolder,
                                       tables::Instrument instrument) {
  timetest::ResultSource source;
  if (timetest::FindResultSource(files, installFolder, instrument, source)) return std::nullopt;
  return FactsOf(files, source.file);
}

TimeTestPoints ReadPointsOf(platform::FileLayer& files, const std::filesystem::path& installFolder,
                            tables::Instrument instrument, const timetest::ReadingModes& modes) {
  TimeTestPoints points;
  timetest::ResultSource source;
  points.error = timetest::FindResultSource(files, installFolder, instrument, source);
  if (points.error) return points;
  points.file = FactsOf(files, source.file).value_or(ResultFile{platform::ToText(source.file)});
  const timetest::ProgressReport untold;
  points.error = timetest::ReadTimeTest(files, source, modes,
                                        timetest::ProgressMeter(untold, 0.0, 1.0), points.read);
  return points;
}

std::optional<ResultFile> LastImported(const FormValues& kept, tables::Instrument instrument) {
  ResultFile file{ValueOf(kept, FieldOf(instrument, "file"))};
  const std::string& changed = ValueOf(kept, FieldOf(instrument, "changed"));
  const auto read = std::from_chars(changed.data(), changed.data() + changed.size(), file.changed);
  if (file.path.empty() || read.ec != std::errc()) return std::nullopt;
  return file;
}

void KeepImported(const ResultFile& file, tables::Instrument instrument, FormValues& kept) {
  kept[FieldOf(instrument, "file")] = file.path;
  kept[FieldOf(instrument, "changed")] = std::to_string(file.changed);
}

}  // namespace zentab::app
