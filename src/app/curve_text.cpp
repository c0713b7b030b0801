#include "app/curve_text.h"

#include <unordered_set>

#include "editor/grid_points.h"
#include "editor/overlay_curve.h"
#include "interchange/entry_addition.h"
#include "platform/character_case.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using interchange::FaultKind;
using interchange::ImportChoices;
using interchange::ImportedCurve;

std::string WithoutSuffix(const std::string& file) {
  const std::size_t dot = file.rfind('.');
  return dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
}

// Names that the text has twice, or not at all, get a number.
class Names {
 public:
  explicit Names(std::string usual) : usual_(std::move(usual)) {}

  std::string NameFor(const std::string& given) {
    const std::string_view trimmed = texts::TrimBlanks(given);
    std::string base = trimmed.empty() ? usual_ : std::string(trimmed);
    std::string name = base;
    for (int number = 2; !taken_.insert(platform::LowerCase(name)).second; ++number) {
      name = base + " (" + std::to_string(number) + ')';
    }
    return name;
  }

 private:
  std::string usual_;
  std::unordered_set<std::string> taken_;
};

std::vector<interchange::ShownRow> RowsOf(const CurveSource& source, const CurveReading& reading,
                                          const ImportChoices& choices) {
  if (reading.text.isJson || interchange::IsJson(source.name, source.bytes)) {
    return interchange::FirstLines(source.bytes);
  }
  if (!reading.fault) {
    return interchange::FirstRows(source.bytes, reading.text.encoding, reading.text.separator);
  }
  if (reading.fault->kind == FaultKind::NoText) return {};
  const auto encoding = choices.encoding.value_or(interchange::GuessEncoding(source.bytes));
  const char separator =
      choices.separator
          ? *choices.separator
          : interchange::SeparatorOf(source.bytes, encoding, choices.decimalSign.value_or('\0'));
  return interchange::FirstRows(source.bytes, encoding, separator);
}

}  // namespace

std::optional<tables::CurveTableEntry> FoundCurve::Entry() const {
  const auto* const chosen = std::get_if<curves::ChosenPoints>(&table);
  if (chosen == nullptr) return std::nullopt;
  return interchange::EntryOf(curve, chosen->points);
}

CurveReading ReadCurveText(const CurveSource& source, const ImportChoices& choices,
                           interchange::Surplus surplus) {
  CurveReading reading;
  auto read = interchange::ReadCurves(source.name, source.bytes, choices);
  if (const interchange::Fault* const fault = interchange::FaultOf(read)) {
    reading.fault = *fault;
  } else {
    reading.text = std::get<interchange::ImportedText>(std::move(read));
  }
  reading.rows = RowsOf(source, reading, choices);
  Names names(WithoutSuffix(source.name));
  for (ImportedCurve& curve : reading.text.curves) {
    FoundCurve found = {names.NameFor(curve.name), curve.points.size(), {}, {}};
    found.table = interchange::PointsForTable(curve, surplus);
    curve.points = {};
    found.curve = std::move(curve);
    reading.found.push_back(std::move(found));
  }
  reading.text.curves.clear();
  return reading;
}

interchange::JsonLibrary LibraryOf(const std::vector<NamedCurve>& curves) {
  interchange::JsonLibrary library;
  for (const auto& [name, found] : curves) {
    std::optional<tables::CurveTableEntry> entry = found->Entry();
    if (!entry) continue;
    // An entry of a library under its own name keeps its very line.
    if (found->curve.stored && name == entry->name) {
      library.entries.push_back(*found->curve.stored);
      continue;
    }
    entry->name = name;
    library.entries.push_back(interchange::NewEntry(*std::move(entry)));
  }
  return library;
}

void PutIntoGrid(const tables::CurveTableEntry& entry, Session& session) {
  editor::ShowPoints(session.table.grid, entry.points, session.localeDecimalSeparator);
  session.modes.milliseconds = entry.milliseconds;
  session.modes.absoluteValues = entry.absoluteValues;
  if (entry.instrument != tables::Instrument::None) session.instrument = entry.instrument;
  session.table.tableModified = true;
}

ShownEntry EntryInChart(const tables::CurveTableEntry& entry, const Session& session) {
  const editor::OverlayTable table = {entry.name, entry.points, entry.absoluteValues,
                                      entry.milliseconds};
  editor::ValueModes modes = session.modes;
  editor::ConvertedCurve converted = editor::Converted(table, modes);
  ShownEntry shown;
  if (converted.fault == editor::OverlayFault::NoPickup) {
    shown.areConverted = false;
    modes.absoluteValues = entry.absoluteValues;
    converted = editor::Converted(table, modes);
  }
  shown.curve = std::move(converted.curve);
  return shown;
}

}  // namespace zentab::app
