#include "app/difference_text.h"

#include <algorithm>
#include <array>

#include "app/curve_text.h"
#include "app/session_texts.h"
#include "interchange/entry_meaning.h"

namespace zentab::app {
namespace {

using interchange::Difference;
using tables::CurveTableEntry;

std::string LoadsText(const CurveTableEntry& entry, const Session& session) {
  return LoadUnitOf(entry.absoluteValues, entry.instrument, session);
}

std::string TimesText(const CurveTableEntry& entry, const Session&) {
  return entry.milliseconds ? "ms" : "s";
}

std::string InstrumentText(const CurveTableEntry& entry, const Session& session) {
  if (entry.instrument == tables::Instrument::None) return session.texts.comparison.noInstrument;
  return session.texts.instruments[static_cast<std::size_t>(entry.instrument)].name;
}

std::string NameText(const CurveTableEntry& entry, const Session&) { return entry.name; }

std::string PointsText(const CurveTableEntry& entry, const Session&) {
  return std::to_string(entry.points.size());
}

struct Setting {
  std::string texts::ComparisonTexts::*label;
  std::string (*text)(const CurveTableEntry&, const Session&);
};
using D = texts::ComparisonTexts;
constexpr std::array kComparedSettings = {
    Setting{&D::name, NameText}, Setting{&D::points, PointsText}, Setting{&D::loads, LoadsText},
    Setting{&D::times, TimesText}, Setting{&D::instrument, InstrumentText}};

bool HaveOtherNumbers(const ComparedEntry& entry) {
  CurveTableEntry alike = entry.own;
  alike.points = entry.other.points;
  return entry.own.points.size() == entry.other.points.size() &&
         !interchange::SayTheSame(alike, entry.own);
}

}  // namespace

std::vector<std::string> DifferenceLines(Difference kind, const ComparedEntry& entry,
                                         const Session& session) {
  const texts::ComparisonTexts& texts = session.texts.comparison;
  std::vector<std::string> lines;
  if (kind != Difference::Changed) {
    const bool isAdded = kind == Difference::Added;
    lines.push_back(isAdded ? texts.onlyThere : texts.onlyHere);
    for (const Setting& setting : kComparedSettings) {
      if (setting.label == &D::name) continue;
      const std::string text = setting.text(isAdded ? entry.other : entry.own, session);
      lines.push_back(Expanded(session, texts.*setting.label, {text}));
    }
    return lines;
  }
  for (const Setting& setting : kComparedSettings) {
    const std::string own = setting.text(entry.own, session);
    const std::string other = setting.text(entry.other, session);
    if (own == other) continue;
    const std::string change = Expanded(session, texts.change, {own, other});
    lines.push_back(Expanded(session, texts.*setting.label, {change}));
  }
  if (HaveOtherNumbers(entry)) {
    const std::string count = std::to_string(entry.own.points.size());
    lines.push_back(Expanded(session, texts.otherPoints, {count}));
  }
  return lines;
}

std::string CountsText(const Session& session, const std::string& text,
                       const std::vector<interchange::EntryDifference>& differences) {
  std::array<std::size_t, 3> counts = {};  // in the order of Difference
  for (const auto& difference : differences) ++counts[static_cast<std::size_t>(difference.kind)];
  return Expanded(
      session, text,
      {std::to_string(counts[0]), std::to_string(counts[1]), std::to_string(counts[2])});
}

std::string SomeNames(const std::vector<interchange::EntryDifference>& differences) {
  constexpr std::size_t kMost = 5;
  std::string names;
  for (std::size_t at = 0; at < std::min(differences.size(), kMost); ++at) {
    if (at > 0) names += ", ";
    names += differences[at].name;
  }
  if (differences.size() > kMost) names += ", …";
  return names;
}

}  // namespace zentab::app
