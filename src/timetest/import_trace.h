#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_layer.h"
#include "timetest/measured_points.h"

namespace zentab::timetest {

/// The text file in which an import leaves the points of each stage: load, time and difference
/// measure of one point a line, between tabs, with "." as decimal point. A file of that name is
/// replaced when the first section is written; a file that cannot be written goes no further, and
/// the import does not care.
class ImportTrace {
 public:
  ImportTrace(platform::FileLayer& files, std::filesystem::path path)
      : files_(files), path_(std::move(path)) {}
  ~ImportTrace();
  ImportTrace(const ImportTrace&) = delete;
  ImportTrace& operator=(const ImportTrace&) = delete;

  /// A section: its heading lines, its points, and a blank line before it unless it is the first.
  /// False when `progress` stopped it, which leaves the file as far as it came.
  [[nodiscard]] bool WriteSection(const std::vector<std::string>& headings,
                                  const std::vector<MeasuredPoint>& points, ProgressMeter progress);
  /// Whether a section was to be written that could not be.
  [[nodiscard]] bool IsBroken() const { return begun_ && !file_; }

 private:
  [[nodiscard]] std::error_code Open();
  void Write(std::string_view bytes);

  platform::FileLayer& files_;
  std::filesystem::path path_;
  std::unique_ptr<platform::OutputFile> file_;
  bool begun_ = false;
};

}  // namespace zentab::timetest
