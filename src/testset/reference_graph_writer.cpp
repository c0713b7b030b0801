#include "testset/reference_graph_writer.h"

#include "platform/line_reader.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"
#include "texts/characters.h"
#include "texts/line_encoding.h"

namespace zentab::testset {
namespace {

std::string FirstLine(const GraphDate& date) {
  constexpr std::size_t kPrintZone = 14;  // columns
  std::string line =
      "@A " + date.month + ' ' + std::to_string(date.day) + ' ' + std::to_string(date.year);
  const std::size_t columns = texts::ToCharacters(line).size();
  line.append(kPrintZone - columns % kPrintZone, ' ');
  return texts::EncodeLine(line + '1');
}

void AddPoint(std::string& line, const GraphPoint& point) {
  for (const double coordinate : {point.load, point.time}) {
    line += CoordinateText(coordinate) + ' ';
  }
}

}  // namespace

std::string FormatReferenceGraph(const std::vector<GraphSegment>& segments, const GraphDate& date) {
  const std::string count = std::to_string(segments.size());
  std::string bytes = FirstLine(date).append(platform::kLineEnd);
  bytes.append(count).append(platform::kLineEnd);
  for (const GraphSegment& segment : segments) {
    AddPoint(bytes, segment.start);
    AddPoint(bytes, segment.end);
    bytes.append("0.000000 0.000000 0.000000")
        .append(platform::kLineEnd)
        .append("0 0")
        .append(platform::kLineEnd);
  }
  // The last line's colour has the green component only.
  for (const std::string& line :
       {std::string(), std::string("0"), std::string(), count, std::string("1 0 0"),
        std::string("2"), std::string("0"), std::string("0"), std::string("0 65280")}) {
    bytes.append(line).append(platform::kLineEnd);
  }
  return bytes;
}

std::error_code WriteReferenceGraph(platform::FileLayer& files,
                                    const std::filesystem::path& installFolder,
                                    const std::vector<GraphSegment>& segments,
                                    const GraphDate& date) {
  const std::string bytes = FormatReferenceGraph(segments, date);
  return platform::ReplaceFile(files, platform::FindFixedName(files, installFolder, kGraphFile),
                               [&bytes](platform::OutputFile& file) { return file.Write(bytes); });
}

}  // namespace zentab::testset
