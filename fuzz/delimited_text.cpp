// Rows of a spreadsheet. The first line of the input has what is not guessed: the encoding (u, w or
// s), the decimal sign, the separator, the first row ("y" a heading, "n" none), the column of the
// loads and that of the times, each "?" where it is; the text follows.

#include <cmath>

#include "fuzz/fuzzing.h"
#include "interchange/curve_csv.h"
#include "interchange/curve_file.h"
#include "interchange/text_preview.h"

namespace zentab::fuzz {
namespace {

using interchange::Encoding;
using interchange::ImportChoices;
using interchange::ImportedCurve;
using interchange::ImportedText;

ImportChoices ChoicesOf(std::string_view letters) {
  ImportChoices choices;
  const auto letter = [letters](std::size_t at) { return at < letters.size() ? letters[at] : '?'; };
  const std::size_t encoding = std::string_view("uws").find(letter(0));
  if (encoding < 3) choices.encoding = static_cast<Encoding>(encoding);
  if (letter(1) == '.' || letter(1) == ',') choices.decimalSign = letter(1);
  if (letter(2) != '?') choices.separator = letter(2);
  if (letter(3) != '?') choices.hasHeader = letter(3) == 'y';
  if (letter(4) != '?') choices.load = letter(4);
  if (letter(5) != '?') choices.time = letter(5);
  return choices;
}

bool HaveSamePoints(const ImportedText& one, const ImportedText& other) {
  if (one.curves.size() != other.curves.size()) return false;
  for (std::size_t at = 0; at < one.curves.size(); ++at) {
    if (one.curves[at].points != other.curves[at].points) return false;
  }
  return true;
}

void CheckCurve(const ImportedCurve& curve) {
  for (const auto surplus : {interchange::Surplus::Thin, interchange::Surplus::Cut}) {
    const auto table = interchange::PointsForTable(curve, surplus);
    if (curves::FaultOf(table) != nullptr) continue;
    const auto& points = std::get<curves::ChosenPoints>(table).points;
    Require(points.size() <= tables::kMaxPoints, "a table has at most 26 points");
    ImportChoices known;
    known.encoding = Encoding::Utf8;
    known.separator = ',';
    known.decimalSign = '.';
    known.hasHeader = true;
    known.load = "1";
    known.time = "2";
    const auto again = interchange::ImportCurves(
        interchange::CsvOf(interchange::EntryOf(curve, points), {}), known);
    Require(interchange::FaultOf(again) == nullptr, "what was written can be read");
    const auto& read = std::get<ImportedText>(again).curves.front();
    Require(read.points == points, "points are read as they were written");
  }
}

void Check(std::string_view letters, std::string_view text) {
  const ImportChoices choices = ChoicesOf(letters);
  const auto read = interchange::ImportCurves(std::string(text), choices);
  const Encoding encoding =
      choices.encoding.value_or(interchange::GuessEncoding(std::string(text)));
  const char separator = interchange::SeparatorOf(text, encoding, '\0');
  Require(interchange::FirstRows(text, encoding, separator).size() <= interchange::kShownRows,
          "a preview has an end");
  if (const interchange::Fault* const fault = interchange::FaultOf(read)) {
    Require(fault->line <= text.size() + 1, "a fault has a line of the text");
    Require(!interchange::FaultText(*fault, {}).empty(), "a fault has words");
    return;
  }
  const auto& imported = std::get<ImportedText>(read);
  Require(!imported.curves.empty(), "there is a curve or a fault");
  Require(imported.load < imported.headings.size() && imported.time < imported.headings.size(),
          "a curve has its columns");
  ImportChoices known = choices;
  known.encoding = imported.encoding;
  known.separator = imported.separator;
  known.decimalSign = imported.decimalSign;
  const auto again = interchange::ImportCurves(std::string(text), known);
  Require(interchange::FaultOf(again) == nullptr &&
              HaveSamePoints(imported, std::get<ImportedText>(again)),
          "what was guessed can be chosen");
  for (const ImportedCurve& curve : imported.curves) {
    for (const curves::Point& point : curve.points) {
      Require(!std::isnan(point.load) && !std::isnan(point.time), "a point has two numbers");
    }
    CheckCurve(curve);
  }
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = zentab::fuzz::InputOf(data, size);
  const std::string_view letters = zentab::fuzz::TakeLine(text);
  zentab::fuzz::Check(letters, text);
  return 0;
}
