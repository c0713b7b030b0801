#include "testset/reference_graph_reader.h"

#include <algorithm>
#include <cmath>

#include "platform/line_reader.h"
#include "texts/number_text.h"

namespace zentab::testset {
namespace {

constexpr std::size_t kSegmentFields = 7;
// No line of a reference graph comes near; a longer one is not split.
constexpr std::size_t kLongestGraphLine = 4096;
// Those of a graph of the most segments; what follows is no graph, however many lines it has.
constexpr std::size_t kMostLines = 2 * kMostSegments + 100;

std::optional<std::vector<double>> NumbersOf(std::string_view line) {
  if (line.size() > kLongestGraphLine) return std::nullopt;
  std::vector<double> numbers;
  for (;;) {
    const std::size_t begin = line.find_first_not_of(' ');
    if (begin == std::string_view::npos) return numbers;
    const std::size_t end = std::min(line.find(' ', begin), line.size());
    const std::string number = texts::SetDecimalSeparator(line.substr(begin, end - begin), ".");
    const std::optional<double> value = texts::WholeNumber(number);
    if (!value) return std::nullopt;
    numbers.push_back(*value);
    line.remove_prefix(end);
  }
}

class GraphReading {
 public:
  explicit GraphReading(std::vector<std::string> lines) : lines_(std::move(lines)) {}

  ReadGraph Run() {
    ReadGraph graph;
    graph.error = Read(graph.segments);
    if (graph.error) graph.segments.clear();
    return graph;
  }

 private:
  using Result = std::optional<GraphError>;

  [[nodiscard]] GraphError Fault(GraphFault fault) const { return {fault, number_, {}}; }

  // The numbers of the next line, which has to have so many of them.
  Result Next(std::size_t fields, GraphFault otherwise, std::vector<double>& numbers) {
    if (number_++ == lines_.size()) return Fault(GraphFault::EndsEarly);
    std::optional<std::vector<double>> read = NumbersOf(lines_[number_ - 1]);
    if (!read || read->size() != fields) return Fault(otherwise);
    numbers = std::move(*read);
    return std::nullopt;
  }

  Result ReadCount(std::size_t& count) {
    std::vector<double> numbers;
    if (Result error = Next(1, GraphFault::NoCount, numbers)) return error;
    const double value = numbers[0];
    if (!(value >= 1.0 && value <= static_cast<double>(kMostSegments)) ||
        value != std::floor(value)) {
      return Fault(GraphFault::NoCount);
    }
    count = static_cast<std::size_t>(value);
    return std::nullopt;
  }

  Result ReadSegment(std::vector<GraphSegment>& segments) {
    std::vector<double> n;
    if (Result error = Next(kSegmentFields, GraphFault::NoSegment, n)) return error;
    segments.push_back({{n[0], n[1]}, {n[2], n[3]}});
    return Next(2, GraphFault::NotExpected, n);
  }

  Result ReadTrailer(std::size_t count) {
    std::vector<double> numbers;
    for (const std::size_t fields : {0u, 1u, 0u}) {
      if (Result error = Next(fields, GraphFault::NotExpected, numbers)) return error;
    }
    std::size_t again = 0;
    if (Result error = ReadCount(again)) return error;
    if (again != count) return Fault(GraphFault::NoCount);
    for (const std::size_t fields : {3u, 1u, 1u, 1u, 2u}) {
      if (Result error = Next(fields, GraphFault::NotExpected, numbers)) return error;
    }
    // Only blank lines may follow.
    for (;;) {
      Result error = Next(0, GraphFault::NotExpected, numbers);
      if (!error) continue;
      if (error->fault == GraphFault::EndsEarly) return std::nullopt;
      return error;
    }
  }

  Result Read(std::vector<GraphSegment>& segments) {
    if (number_++ == lines_.size()) return Fault(GraphFault::EndsEarly);
    std::size_t count = 0;
    if (Result error = ReadCount(count)) return error;
    for (std::size_t segment = 0; segment < count; ++segment) {
      if (Result error = ReadSegment(segments)) return error;
    }
    return ReadTrailer(count);
  }

  std::vector<std::string> lines_;
  std::size_t number_ = 0;  // of the last line that was read, from 1
};

}  // namespace

ReadGraph ReadReferenceGraph(platform::FileLayer& files, const std::filesystem::path& file) {
  std::vector<std::string> lines;
  const std::error_code error =
      platform::ReadLines(files, file, [&lines](const platform::RawLine& line) {
        lines.emplace_back(line.text.substr(0, kLongestGraphLine + 1));
        return lines.size() < kMostLines;
      });
  if (error) return {{}, GraphError{GraphFault::Unreadable, lines.size() + 1, error}};
  // A line that is none: what is that long is not a graph with blank lines behind it.
  if (lines.size() == kMostLines) lines.emplace_back("...");
  return GraphReading(std::move(lines)).Run();
}

}  // namespace zentab::testset
