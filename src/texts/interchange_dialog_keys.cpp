#include "texts/key_table.h"

namespace zentab::texts {

const std::vector<KeyRow>& CurveImportRows() {
  using T = CurveImportTexts;
  static const std::vector<KeyRow> rows = {
      {"TAKE.ENCODING", CurveImportField{&T::encoding}},
      {"TAKE.SEPARATOR", CurveImportField{&T::separator}},
      {"TAKE.DECIMAL", CurveImportField{&T::decimalSign}},
      {"TAKE.HEADER", CurveImportField{&T::header}},
      {"TAKE.COLUMN.LOAD", CurveImportField{&T::loadColumn}},
      {"TAKE.COLUMN.TIME", CurveImportField{&T::timeColumn}},
      {"TAKE.UNIT.LOAD", CurveImportField{&T::loadUnit}},
      {"TAKE.UNIT.TIME", CurveImportField{&T::timeUnit}},
      {"TAKE.SURPLUS", CurveImportField{&T::surplus}},
      {"TAKE.GUESSED", CurveImportField{&T::guessed}},
      {"TAKE.DETECT", CurveImportField{&T::detect}},
      {"TAKE.ALLTIMES", CurveImportField{&T::allTimes}},
      {"TAKE.SIGN.COMMA", CurveImportField{&T::comma}},
      {"TAKE.SIGN.SEMICOLON", CurveImportField{&T::semicolon}},
      {"TAKE.SIGN.TAB", CurveImportField{&T::tab}},
      {"TAKE.SIGN.BAR", CurveImportField{&T::bar}},
      {"TAKE.SIGN.BLANKS", CurveImportField{&T::blanks}},
      {"TAKE.SIGN.POINT", CurveImportField{&T::point}},
      {"TAKE.FLAG.YES", CurveImportField{&T::yes}},
      {"TAKE.FLAG.NO", CurveImportField{&T::no}},
      {"TAKE.CYCLES.50", CurveImportField{&T::cycles50}},
      {"TAKE.CYCLES.60", CurveImportField{&T::cycles60}},
      {"TAKE.THIN", CurveImportField{&T::thin}},
      {"TAKE.KEEPFIRST", CurveImportField{&T::cut}},
      {"TAKE.COLUMN.NUMBER", CurveImportField{&T::column}},
      {"TAKE.ROWS", CurveImportField{&T::rows}},
      {"TAKE.FOUND", CurveImportField{&T::found}},
      {"TAKE.HEADING.NAME", CurveImportField{&T::nameHeading}},
      {"TAKE.HEADING.POINTS", CurveImportField{&T::pointsHeading}},
      {"TAKE.HEADING.DEVIATION", CurveImportField{&T::deviationHeading}},
      {"TAKE.NOTABLE", CurveImportField{&T::noTable}},
      {"TAKE.BUTTON.GRID", CurveImportField{&T::intoGrid}},
      {"TAKE.BUTTON.ADD", CurveImportField{&T::addEntries}},
      {"TAKE.READING", CurveImportField{&T::reading}},
      {"TAKE.FIRSTOF", CurveImportField{&T::cutTo}},
      {"TAKE.OWNUNITS", CurveImportField{&T::ownUnits}},
      {"TAKE.NAME.TAKEN", CurveImportField{&T::nameTaken}},
      {"TAKE.NAME.TWICE", CurveImportField{&T::nameTwice}},
      {"TAKE.NAME.MISSING", CurveImportField{&T::nameMissing}},
      {"TAKE.ADDED", CurveImportField{&T::added}},
      {"TAKE.NOTREAD", CurveImportField{&T::notRead}},
      {"TAKE.NOCLIPBOARD", CurveImportField{&T::noClipboard}},
      {"TAKE.CLIPBOARD", CurveImportField{&T::clipboard}},
      {"TAKE.FILES", CurveImportField{&T::files}},
      {"TAKE.ALLFILES", CurveImportField{&T::allFiles}},
  };
  return rows;
}

const std::vector<KeyRow>& ComparisonRows() {
  using T = ComparisonTexts;
  static const std::vector<KeyRow> rows = {
      {"F1.MENU.5.TAKE", Caption{"m_impcurves"}, true},
      {"F1.MENU.5.PASTE", Caption{"m_pastecurves"}, true},
      {"F1.MENU.5.AGAINST", Caption{"m_cmplibrary"}, true},
      {"AGAINST.COMPARING", ComparisonField{&T::comparing}},
      {"AGAINST.SAME", ComparisonField{&T::same}},
      {"AGAINST.COUNTS", ComparisonField{&T::counts}},
      {"AGAINST.CHOSEN", ComparisonField{&T::chosen}},
      {"AGAINST.FILTER", ComparisonField{&T::filter}},
      {"AGAINST.ALL", ComparisonField{&T::chooseAll}},
      {"AGAINST.LIST", ComparisonField{&T::list}},
      {"AGAINST.TAKE", ComparisonField{&T::takeOver}},
      {"AGAINST.OWN", ComparisonField{&T::own}},
      {"AGAINST.POINTS", ComparisonField{&T::points}},
      {"AGAINST.OTHERPOINTS", ComparisonField{&T::otherPoints}},
      {"AGAINST.LOADS", ComparisonField{&T::loads}},
      {"AGAINST.TIMES", ComparisonField{&T::times}},
      {"AGAINST.INSTRUMENT", ComparisonField{&T::instrument}},
      {"AGAINST.NOINSTRUMENT", ComparisonField{&T::noInstrument}},
      {"AGAINST.NAME", ComparisonField{&T::name}},
      {"AGAINST.CHANGE", ComparisonField{&T::change}},
      {"AGAINST.ADDED", ComparisonField{&T::onlyThere}},
      {"AGAINST.REMOVED", ComparisonField{&T::onlyHere}},
      {"AGAINST.DONE", ComparisonField{&T::done}},
      {"AGAINST.STALE", ComparisonField{&T::stale}},
      {"AGAINST.ITSELF", ComparisonField{&T::itself}},
      {"AGAINST.NOCURVE", ComparisonField{&T::noCurve}},
  };
  return rows;
}

}  // namespace zentab::texts
