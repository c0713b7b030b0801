#include "app/entry_summary.h"

#include <algorithm>
#include <optional>

#include "app/session_texts.h"
#include "tables/entry_line.h"
#include "texts/number_text.h"
#include "texts/template_text.h"

namespace zentab::app {
namespace {

struct Span {
  double least;
  double most;
};

// Of the cells that are numbers.
std::optional<Span> RangeOf(const tables::ParsedEntry& entry,
                            std::string tables::CurvePoint::*cell) {
  std::optional<Span> range;
  for (const tables::CurvePoint& point : entry.points) {
    const std::optional<double> number = texts::WholeNumber(point.*cell);
    if (!number) continue;
    range = range ? Span{std::min(range->least, *number), std::max(range->most, *number)}
                  : Span{*number, *number};
  }
  return range;
}

std::string RangeText(const Session& session, const std::string& text,
                      const std::optional<Span>& range, const std::string& unit) {
  if (!range) return {};
  const auto shown = [&](double number) {
    return texts::NumberText(number, session.localeDecimalSeparator);
  };
  const std::string said =
      texts::ExpandTemplate(text, {}, {shown(range->least), shown(range->most), unit});
  // There may be no unit.
  return '\n' + std::string(texts::TrimBlanks(said));
}

}  // namespace

std::string SummaryOf(const Session& session, std::string_view name, std::string_view line) {
  const texts::LibraryTexts& texts = session.texts.library;
  const tables::ParsedEntry entry = tables::ParseEntryLine(line);
  const tables::Instrument instrument = entry.instrument.value_or(tables::Instrument::None);
  const texts::InstrumentTexts& words =
      session.texts.instruments.at(static_cast<std::size_t>(instrument));
  std::string summary(name);
  if (instrument != tables::Instrument::None && !words.name.empty()) summary += '\n' + words.name;
  const std::string& points = texts::ForCount(entry.pointCount, texts.onePoint, texts.points);
  summary += '\n' + (entry.points.empty()
                         ? texts.noPoints
                         : texts::ExpandTemplate(points, {}, {std::to_string(entry.pointCount)}));
  const bool isAbsolute = entry.absoluteValues.value_or(false);
  summary += RangeText(session, isAbsolute ? texts.loads : texts.multiples,
                       RangeOf(entry, &tables::CurvePoint::load), words.unit);
  summary += RangeText(session, texts.times, RangeOf(entry, &tables::CurvePoint::time),
                       entry.milliseconds.value_or(false) ? "ms" : "s");
  return summary;
}

}  // namespace zentab::app
