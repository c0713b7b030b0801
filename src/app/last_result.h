#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "app/form_values.h"
#include "platform/file_layer.h"
#include "tables/curve_table_entry.h"
#include "timetest/point_reader.h"

namespace zentab::app {

/// A result file at the time it was looked at.
struct ResultFile {
  std::string path;
  std::int64_t changed = 0;  // seconds since 1970

  friend bool operator==(const ResultFile&, const ResultFile&) = default;
};

/// The points of a result file, or why there are none.
struct TimeTestPoints {
  ResultFile file;
  timetest::ReadPoints read;
  std::error_code error;
};

/// When the result file of an instrument was written; nothing when there is none.
[[nodiscard]] std::optional<ResultFile> ResultFileOf(platform::FileLayer& files,
                                                     const std::filesystem::path& installFolder,
                                                     tables::Instrument instrument);

/// Reads the last time test of an instrument, as ReadTimeTest.
[[nodiscard]] TimeTestPoints ReadPointsOf(platform::FileLayer& files,
                                          const std::filesystem::path& installFolder,
                                          tables::Instrument instrument,
                                          const timetest::ReadingModes& modes);

/// The result imported last from an instrument, in what the settings keep of all of them.
[[nodiscard]] std::optional<ResultFile> LastImported(const FormValues& kept,
                                                     tables::Instrument instrument);
void KeepImported(const ResultFile& file, tables::Instrument instrument, FormValues& kept);

}  // namespace zentab::app
