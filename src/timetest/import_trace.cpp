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

void ImportTrace::WriteSection(const std::vector<std::string>& headings,
                               const std::vector<MeasuredPoint>& points) {
  if (!begun_) {
    begun_ = true;
    if (Open()) file_.reset();
  } else if (file_ && file_->Write(kLineEnd)) {
    file_.reset();
  }
  if (file_ && Write(headings, points)) file_.reset();
}

std::error_code ImportTrace::Open() {
  if (const std::error_code error = files_.Remove(path_)) return error;
  return files_.Create(path_, path_, file_);
}

std::error_code ImportTrace::Write(const std::vector<std::string>& headings,
                                   const std::vector<MeasuredPoint>& points) {
  std::string block;
  for (const std::string& heading : headings) block.append(heading).append(kLineEnd);
  for (const MeasuredPoint& point : points) {
    block.append(texts::FixedText(point.load, 3)).append("\t");
    block.append(texts::FixedText(point.time, 3)).append("\t");
    block.append(texts::FixedText(point.difference, 4)).append(kLineEnd);
    if (block.size() < kBlock) continue;
    if (const std::error_code error = file_->Write(block)) return error;
    block.clear();
  }
  return file_->Write(block);
}

}  // namespace zentab::timetest
