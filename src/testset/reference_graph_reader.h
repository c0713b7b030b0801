#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"
#include "testset/reference_graph.h"

namespace zentab::testset {

/// The most segments a GRH file is read with; one with more is taken for damaged.
inline constexpr std::size_t kMostSegments = 10000;

/// What a line of a GRH file fails to be.
enum class GraphFault {
  Unreadable,   // the file cannot be opened or read, or is no regular file
  EndsEarly,    // there is no such line any more
  NoCount,      // not the number of segments, 1 to kMostSegments
  NoSegment,    // not the seven numbers of a segment
  NotExpected,  // not what stands there in a reference graph
};

struct GraphError {
  GraphFault fault;
  std::size_t line;       // from 1
  std::error_code error;  // why it is unreadable
};

/// The segments of a GRH file, or the first line at fault; one of the two.
struct ReadGraph {
  std::vector<GraphSegment> segments;
  std::optional<GraphError> error;
};

/// Reads a GRH file whole. Its first line may hold anything; everywhere else the kind and number
/// of fields count. Numbers are decimal numbers with "." or ","; NaN and what a double cannot
/// hold are none. The values of fields that draw the graph are not looked at.
[[nodiscard]] ReadGraph ReadReferenceGraph(platform::FileLayer& files,
                                           const std::filesystem::path& file);

}  // namespace zentab::testset
