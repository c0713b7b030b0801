#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"
#include "testset/reference_graph.h"

namespace zentab::testset {

/// The day a reference graph is written on.
struct GraphDate {
  std::string month;  // the locale's short name
  int day = 1;
  int year = 2000;
};

/// The bytes of a GRH file.
[[nodiscard]] std::string FormatReferenceGraph(const std::vector<GraphSegment>& segments,
                                               const GraphDate& date);

/// Writes the reference graph below the installation folder, in the place of the former one; after
/// an error that one is as it was.
[[nodiscard]] std::error_code WriteReferenceGraph(platform::FileLayer& files,
                                                  const std::filesystem::path& installFolder,
                                                  const std::vector<GraphSegment>& segments,
                                                  const GraphDate& date);

}  // namespace zentab::testset
