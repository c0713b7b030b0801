// A result file of a time test. The first line of the input is the heading, the second one two keys
// with a tab between them; the file follows.

#include "timetest/result_reader.h"
#include "editor/grid_points.h"
#include "fuzz/fuzzing.h"
#include "timetest/point_reader.h"
#include "timetest/section_lines.h"

namespace zentab::fuzz {
namespace {

using timetest::MeasuredPoint;

std::string EntryOf(const timetest::ResultSource& source, std::size_t number) {
  std::string secondKey;
  return timetest::ReadSectionEntry(platform::SystemFiles(), std::to_string(number), source.heading,
                                    secondKey, source.file, timetest::kSeparator,
                                    timetest::kEndMarker)
      .value;
}

MeasuredPoint PointOf(std::string_view value) {
  const std::string_view load = Take(value, '\t');
  return {editor::CellNumber(load, ".").value_or(0.0),
          editor::CellNumber(Take(value, '\t'), ".").value_or(0.0)};
}

void CheckReaders(const timetest::ResultSource& source) {
  timetest::ReadPoints read;
  Require(!timetest::ReadTimeTest(platform::SystemFiles(), source, {true, true, 0.0},
                                  {nullptr, 0.0, 1.0}, read),
          "nobody stops the reading");
  const std::vector<MeasuredPoint>& points = read.points;
  Require(EntryOf(source, points.size() + 1).empty(), "all entries are read");
  if (points.empty()) return;
  // Each entry alone takes a reading of the file.
  const std::size_t chosen = std::hash<std::string_view>()(source.heading) % points.size();
  const std::string value = EntryOf(source, chosen + 1);
  Require(!value.empty() && PointOf(value) == points[chosen], "entries are what one alone gives");
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zentab;
  static const fuzz::Folder folder;
  std::string_view input = fuzz::InputOf(data, size);
  const std::string heading(fuzz::TakeLine(input));
  std::string_view keys = fuzz::TakeLine(input);
  const std::string_view firstKey = fuzz::Take(keys, '\t');
  const timetest::ResultSource source = {folder.Write("result.txt", input), heading};
  // Either takes long; which one it is depends on the input alone.
  if (size % 2 == 0) {
    fuzz::CheckReaders(source);
  } else {
    std::string secondKey(keys);
    const std::string value =
        timetest::ReadSectionEntry(platform::SystemFiles(), firstKey, heading, secondKey,
                                   source.file, timetest::kSeparator, timetest::kEndMarker)
            .value;
    fuzz::Require(value.size() <= 3 * input.size(), "a value stands in the file");
  }
  return 0;
}
