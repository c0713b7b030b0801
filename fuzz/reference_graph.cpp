// A GRH file and what the grid makes of it. The first line of the input has the value modes and the
// extension points, with tabs between them: a digit of two bits for absolute loads and
// milliseconds, pickup, multiplier, first X and Y, last X and Y. The file follows.

#include <algorithm>

#include "editor/grid_points.h"
#include "fuzz/fuzzing.h"
#include "testset/imported_graph.h"
#include "testset/reference_graph_reader.h"
#include "testset/reference_graph_writer.h"
#include "texts/number_text.h"

namespace zentab::fuzz {
namespace {

using testset::GraphPoint;
using testset::GraphSegment;

struct Setting {
  editor::ValueModes modes;
  texts::InstrumentTexts texts;
};

Setting SettingOf(std::string_view line) {
  Setting setting;
  const std::string_view bits = Take(line, '\t');
  const int digit = bits.empty() ? 0 : bits[0];
  setting.modes.absoluteValues = (digit & 1) != 0;
  setting.modes.milliseconds = (digit & 2) != 0;
  for (std::string* const text :
       {&setting.modes.pickup, &setting.modes.multiplier, &setting.texts.firstX,
        &setting.texts.firstY, &setting.texts.lastX, &setting.texts.lastY}) {
    *text = Take(line, '\t');
  }
  return setting;
}

bool SameText(const GraphPoint& a, const GraphPoint& b) {
  return testset::CoordinateText(a.load) == testset::CoordinateText(b.load) &&
         testset::CoordinateText(a.time) == testset::CoordinateText(b.time);
}

// What is written has to be read as the same graph.
void CheckWritten(const Folder& folder, const std::vector<GraphSegment>& segments) {
  const testset::ReadGraph again = testset::ReadReferenceGraph(
      platform::SystemFiles(),
      folder.Write("again.grh", testset::FormatReferenceGraph(segments, {"Nov", 21, 2026})));
  Require(!again.error, "a written graph is read");
  Require(std::equal(segments.begin(), segments.end(), again.segments.begin(), again.segments.end(),
                     [](const GraphSegment& a, const GraphSegment& b) {
                       return SameText(a.start, b.start) && SameText(a.end, b.end);
                     }),
          "a written graph is read as the same");
}

void CheckImport(const Folder& folder, const std::vector<GraphSegment>& segments,
                 const Setting& setting) {
  const testset::ImportedGraph imported =
      testset::ImportGraph(segments, setting.modes, setting.texts);
  Require(imported.points.size() <= tables::kMaxPoints, "the grid has 26 rows");
  Require(imported.points.size() + imported.skipped.size() <= segments.size() + 1,
          "no point comes from nowhere");
  for (const tables::CurvePoint& point : imported.points) {
    Require(texts::WholeNumber(point.load) && texts::WholeNumber(point.time),
            "points are number texts");
  }
  editor::CurveGrid grid;
  editor::ShowPoints(grid, imported.points, ",");
  const auto shown = testset::SegmentsOf(grid, setting.modes, setting.texts, ".");
  if (shown && !shown->empty()) CheckWritten(folder, *shown);
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zentab;
  static const fuzz::Folder folder;
  std::string_view input = fuzz::InputOf(data, size);
  const fuzz::Setting setting = fuzz::SettingOf(fuzz::TakeLine(input));
  const testset::ReadGraph graph =
      testset::ReadReferenceGraph(platform::SystemFiles(), folder.Write("graph.grh", input));
  fuzz::Require(graph.error.has_value() == graph.segments.empty(), "a graph or its fault");
  if (graph.error) {
    const auto lines = static_cast<std::size_t>(std::count(input.begin(), input.end(), '\n') +
                                                std::count(input.begin(), input.end(), '\r'));
    fuzz::Require(graph.error->line >= 1 && graph.error->line <= lines + 2, "the fault has a line");
    return 0;
  }
  fuzz::CheckWritten(folder, graph.segments);
  if (testset::CanImport(setting.modes)) fuzz::CheckImport(folder, graph.segments, setting);
  return 0;
}
