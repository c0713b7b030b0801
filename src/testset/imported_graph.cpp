#include "testset/imported_graph.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "editor/grid_points.h"
#include "texts/number_text.h"

namespace zentab::testset {
namespace {

using editor::CellNumber;
using tables::CurvePoint;

bool SamePoint(const GraphPoint& a, const GraphPoint& b) {
  return CoordinateText(a.load) == CoordinateText(b.load) &&
         CoordinateText(a.time) == CoordinateText(b.time);
}

// The number with so many significant digits, as the grid's text.
std::string Rounded(double number, int digits) {
  std::array<char, 32> buffer{};
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                  std::chars_format::scientific, digits - 1)
                        .ptr;
  double rounded = 0.0;
  std::from_chars(buffer.data(), end, rounded);
  return texts::NumberText(rounded, ".");
}

// The shortest text that `becomes` turns into the coordinate, beginning near `number`.
template <typename Becomes>
std::string ShortestText(double number, double coordinate, Becomes becomes) {
  constexpr int kMostDigits = 15;
  const std::string wanted = CoordinateText(coordinate);
  for (int digits = 1; digits < kMostDigits; ++digits) {
    std::string text = Rounded(number, digits);
    if (CoordinateText(becomes(text)) == wanted) return text;
  }
  return Rounded(number, kMostDigits);
}

double FactorOf(const std::string& text) { return CellNumber(text, ".").value_or(0.0); }

// As in scaling, a result beyond the range of a double leaves the number as it was.
double Quotient(double number, double factor) {
  const double quotient = number / factor;
  return std::isfinite(quotient) ? quotient : number;
}

CurvePoint InModes(const GraphPoint& point, const editor::ValueModes& modes) {
  const double multiplier = FactorOf(modes.multiplier);
  double load = point.load;
  double time = point.time;
  editor::ValueModes used = modes;
  if (!modes.absoluteValues) load = Quotient(load, FactorOf(modes.pickup));
  if (multiplier == 0.0) {
    used.multiplier.clear();
  } else {
    time = Quotient(time, multiplier);
  }
  if (modes.milliseconds) time = Quotient(time, 0.001);
  return {ShortestText(
              load, point.load,
              [&used](const std::string& text) { return editor::Scaled(used, text, {}).load; }),
          ShortestText(time, point.time, [&used](const std::string& text) {
            return editor::Scaled(used, {}, text).time;
          })};
}

// The graph's points in the order of its lines, those that do not continue the row left out.
std::vector<GraphPoint> JoinedPoints(const std::vector<GraphSegment>& segments,
                                     std::vector<GraphPoint>& skipped) {
  std::vector<GraphPoint> points;
  for (const GraphSegment& segment : segments) {
    if (points.empty()) points.push_back(segment.start);
    const bool continues = SamePoint(points.back(), segment.start);
    (continues ? points : skipped).push_back(segment.end);
  }
  return points;
}

// Takes off the points that the instrument's texts would add again.
void TakeOffExtensions(std::vector<GraphPoint>& points, const editor::ValueModes& modes,
                       const texts::InstrumentTexts& texts) {
  const auto isExtension = [&](const GraphPoint& point, const GraphPoint& beside, auto extension) {
    const CurvePoint added = extension(texts, InModes(beside, modes));
    return SamePoint(point, editor::Scaled(modes, added.load, added.time));
  };
  const bool first = points.size() > 1 && ExtensionsFor(points.size() - 1, texts).first &&
                     isExtension(points[0], points[1], FirstExtension);
  const std::size_t without = points.size() - (first ? 1 : 0);
  const bool last = without > 1 && ExtensionsFor(without - 1, texts).last &&
                    isExtension(points.back(), points[points.size() - 2], LastExtension);
  if (last) points.pop_back();
  if (first) points.erase(points.begin());
}

}  // namespace

bool CanImport(const editor::ValueModes& modes) {
  return modes.absoluteValues || FactorOf(modes.pickup) != 0.0;
}

ImportedGraph ImportGraph(const std::vector<GraphSegment>& segments,
                          const editor::ValueModes& modes, const texts::InstrumentTexts& texts) {
  ImportedGraph imported;
  std::vector<GraphPoint> points = JoinedPoints(segments, imported.skipped);
  TakeOffExtensions(points, modes, texts);
  for (const GraphPoint& point : points) {
    if (imported.points.size() < tables::kMaxPoints) {
      imported.points.push_back(InModes(point, modes));
    } else {
      imported.skipped.push_back(point);
    }
  }
  return imported;
}

}  // namespace zentab::testset
