#include "testset/reference_graph.h"

#include "editor/grid_points.h"
#include "texts/number_text.h"

namespace zentab::testset {
namespace {

std::vector<tables::CurvePoint> FilledRows(const editor::CurveGrid& grid,
                                           std::string_view separator) {
  std::vector<tables::CurvePoint> rows = editor::PointRows(grid, separator);
  std::size_t count = 0;
  while (count < rows.size() && !rows[count].load.empty() && !rows[count].time.empty()) ++count;
  rows.resize(count);
  return rows;
}

tables::CurvePoint Replaced(const tables::CurvePoint& point, const std::string& load,
                            const std::string& time) {
  return {load.empty() ? point.load : load, time.empty() ? point.time : time};
}

}  // namespace

std::string CoordinateText(double coordinate) {
  constexpr int kDecimals = 6;
  return texts::FixedText(coordinate, kDecimals);
}

Extensions ExtensionsFor(std::size_t points, const texts::InstrumentTexts& texts) {
  if (points >= tables::kMaxPoints) return {};
  const bool first = !texts.firstX.empty() || !texts.firstY.empty();
  const bool last = !texts.lastX.empty() || !texts.lastY.empty();
  return {first, last && (!first || points + 1 < tables::kMaxPoints)};
}

tables::CurvePoint FirstExtension(const texts::InstrumentTexts& texts,
                                  const tables::CurvePoint& point) {
  return Replaced(point, texts.firstX, texts.firstY);
}

tables::CurvePoint LastExtension(const texts::InstrumentTexts& texts,
                                 const tables::CurvePoint& point) {
  return Replaced(point, texts.lastX, texts.lastY);
}

std::optional<std::vector<GraphSegment>> SegmentsOf(const editor::CurveGrid& grid,
                                                    const editor::ValueModes& modes,
                                                    const texts::InstrumentTexts& texts,
                                                    std::string_view localeDecimalSeparator) {
  std::vector<tables::CurvePoint> rows = FilledRows(grid, localeDecimalSeparator);
  if (rows.empty()) return std::nullopt;
  const Extensions extensions = ExtensionsFor(rows.size(), texts);
  if (extensions.first) rows.insert(rows.begin(), FirstExtension(texts, rows.front()));
  if (extensions.last) rows.push_back(LastExtension(texts, rows.back()));
  std::vector<GraphSegment> segments;
  for (std::size_t row = 1; row < rows.size(); ++row) {
    segments.push_back({editor::Scaled(modes, rows[row - 1].load, rows[row - 1].time),
                        editor::Scaled(modes, rows[row].load, rows[row].time)});
  }
  return segments;
}

}  // namespace zentab::testset
