#include "timetest/import_trace.h"

#include "texts/number_text.h"

namespace zentab::timetest {
namespace {

constexpr std::size_t kBlock = 64u << 10;
constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

ImportTrace::~ImportTrace() {
  // Nobody waits for the file.
  if (file_) [[maybe_unused]]
    const std::error_code dropped = file_->Close();
}

bool ImportTrace::WriteSection(const std::vector<std::string>& headings,
                               const std::vector<MeasuredPoint>& points, ProgressMeter progress) {
  std::string block;
  if (begun_) {
    block = kLineEnd;
  } else {
    begun_ = true;
    if (Open()) file_.reset();
  }
  for (const std::string& heading : headings) block.append(heading).append(kLineEnd);
  for (std::size_t at = 0; file_ && at < points.size(); ++at) {
    const MeasuredPoint& point = points[at];
    block.append(texts::FixedText(point.load, 3)).append("\t");
    block.append(texts::FixedText(point.time, 3)).append("\t");
    block.append(texts::FixedText(point.difference, 4)).append(kLineEnd);
    if (block.size() >= kBlock) {
      Write(block);
      block.clear();
    }
    if (!progress.Step(at, points.size())) return false;
  }
  Write(block);
  return true;
}

void ImportTrace::Write(std::string_view bytes) {
  if (file_ && file_->Write(bytes)) file_.reset();
}

std::error_code ImportTrace::Open() {
  if (const std::error_code error = files_.Remove(path_)) return error;
  return files_.Create(path_, path_, file_);
}

}  // namespace zentab::timetest
