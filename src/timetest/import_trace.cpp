#include "timetest/import_trace.h"

#include "platform/line_reader.h"
#include "platform/safe_file_replacement.h"
#include "texts/number_text.h"

namespace zentab::timetest {
namespace {}  // namespace

bool ImportTrace::WriteSection(const std::vector<std::string>& headings,
                               const std::vector<MeasuredPoint>& points, ProgressMeter progress) {
  if (!text_.empty()) text_ += platform::kLineEnd;
  for (const std::string& heading : headings) text_.append(heading).append(platform::kLineEnd);
  for (std::size_t at = 0; at < points.size(); ++at) {
    const MeasuredPoint& point = points[at];
    text_.append(texts::FixedText(point.load, 3)).append("\t");
    text_.append(texts::FixedText(point.time, 3)).append("\t");
    text_.append(texts::FixedText(point.difference, 4)).append(platform::kLineEnd);
    if (!progress.Step(at, points.size())) return false;
  }
  return true;
}

std::error_code ImportTrace::Save(platform::FileLayer& files,
                                  const std::filesystem::path& path) const {
  if (text_.empty()) return {};
  return platform::ReplaceFile(
      files, path, [this](platform::OutputFile& output) { return output.Write(text_); });
}

}  // namespace zentab::timetest
