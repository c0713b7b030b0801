// The import of a time test as a whole. The first line of the input has the numbers of difference,
// filter and mean, the pickup value, and the timeout's text, with blanks between them; the next
// three are the equations of the stages. The result file follows.

#include <algorithm>
#include <bit>
#include <cmath>

#include "editor/grid_points.h"
#include "fuzz/fuzzing.h"
#include "platform/file_layer.h"
#include "texts/number_text.h"
#include "timetest/import_pipeline.h"

namespace zentab::fuzz {
namespace {

using timetest::ImportResult;
using timetest::MeasuredPoint;

timetest::ImportOptions OptionsOf(std::string_view line) {
  timetest::ImportOptions options;
  for (std::int16_t* const number :
       {&options.differenceType, &options.filterType, &options.meanOver}) {
    *number = texts::ShortInteger(Take(line, ' ')).value_or(0);
  }
  const std::string_view pickup = Take(line, ' ');
  options.modes.pickup = editor::CellNumber(pickup, ".").value_or(0.0);
  options.modes.absoluteValues = pickup.empty();
  options.modes.milliseconds = options.filterType % 2 == 0;
  options.timeout = line;
  return options;
}

bool IsRandom(std::string_view equation) {
  constexpr std::string_view kRandom = "rnd";
  return std::search(equation.begin(), equation.end(), kRandom.begin(), kRandom.end(),
                     [](char a, char b) { return (a | 0x20) == b; }) != equation.end();
}

bool SameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool SamePoints(const ImportResult& a, const ImportResult& b) {
  return std::equal(a.points.begin(), a.points.end(), b.points.begin(), b.points.end(),
                    [](const MeasuredPoint& p, const MeasuredPoint& q) {
                      return SameBits(p.load, q.load) && SameBits(p.time, q.time) &&
                             SameBits(p.difference, q.difference);
                    });
}

void CheckResult(const ImportResult& result) {
  using timetest::ImportOutcome;
  Require(result.outcome != ImportOutcome::Stopped, "nobody stops the import");
  Require((result.outcome == ImportOutcome::EquationError) == !result.error.empty(),
          "an equation at fault is named");
  Require(result.outcome == ImportOutcome::Imported || result.points.empty(),
          "what fails has no points");
  Require(result.points.size() <= tables::kMaxPoints, "at most 26 points are selected");
  for (const MeasuredPoint& point : result.points) {
    Require(std::isfinite(point.load) && std::isfinite(point.time), "points are numbers");
  }
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zentab;
  static const fuzz::Folder folder;
  std::string_view input = fuzz::InputOf(data, size);
  const timetest::ImportOptions options = fuzz::OptionsOf(fuzz::TakeLine(input));
  texts::CatalogueTexts texts;
  bool isRandom = false;
  for (auto& equations : texts.equations) {
    const std::string_view equation = fuzz::TakeLine(input);
    isRandom = isRandom || fuzz::IsRandom(equation);
    equations.fill(std::string(equation));
  }
  const timetest::ResultSource source = {folder.Write("result.txt", input), ""};
  const timetest::ImportResult result =
      timetest::ImportCurve(platform::SystemFiles(), source, options, texts, nullptr, nullptr);
  fuzz::CheckResult(result);
  // A second time takes as long again; whether it is done depends on the input alone.
  if (isRandom || size % 2 == 0) return 0;
  timetest::ImportTrace trace;
  const timetest::ImportResult traced =
      timetest::ImportCurve(platform::SystemFiles(), source, options, texts, &trace, nullptr);
  fuzz::Require(!trace.Save(platform::SystemFiles(), folder.Path() / "trace.txt"),
                "the trace is written");
  fuzz::Require(fuzz::SamePoints(result, traced), "a trace changes nothing");
  return 0;
}
