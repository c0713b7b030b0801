#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"
#include "timetest/measured_points.h"

namespace zentab::timetest {

/// The points of each stage of an import as text: load, time and difference measure of one point a
/// line, between tabs, with "." as decimal point. It is kept until it is saved, so that the file of
/// the import before stays whole whatever happens meanwhile.
class ImportTrace {
 public:
  /// A section: its heading lines, its points, and a blank line before it unless it is the first.
  /// False when `progress` stopped it, which leaves the section as far as it came.
  [[nodiscard]] bool WriteSection(const std::vector<std::string>& headings,
                                  const std::vector<MeasuredPoint>& points, ProgressMeter progress);

  /// Puts the sections into a file as platform::ReplaceFile does, with its errors. Without a
  /// section there is nothing to be kept, and no file is touched.
  [[nodiscard]] std::error_code Save(platform::FileLayer& files,
                                     const std::filesystem::path& path) const;

 private:
  std::string text_;
};

}  // namespace zentab::timetest
