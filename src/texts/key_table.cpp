#include "texts/key_table.h"

namespace zentab::texts {
namespace {

using I = InstrumentTexts;
using M = MessageText;
using L = LabelTexts;
using P = ProgramTexts;
using G = GraphTexts;
using H = HistoryTexts;
using Q = PointTexts;
using T = ToolTexts;
using X = ExchangeTexts;
using C = CatalogueTexts;
using S = ImportSettings;

// The chart's captions are expanded whenever they are shown: the value mode is part of them.
const std::vector<KeyRow>& WindowRows() {
  static const std::vector<KeyRow> rows = {
      {"F1.HEADING.TEXT", Caption{"Form1"}, kExpanded},
      {"F1.LABEL1.TEXT", Caption{"Label1"}, kExpanded},
      {"F1.LABEL2.TEXT", ProgramField{&P::loadAxis}},
      {"F1.LABEL3.TEXT", ProgramField{&P::timeAxis}},
      {"F1.COMMAND1.TEXT", Caption{"Command1"}, kExpanded},
      {"F1.COMMAND1.TIP", Tooltip{"Command1"}, kExpanded},
      {"F1.COMMAND2.TEXT", Caption{"Command2"}, kExpanded},
      {"F1.COMMAND2.TIP", Tooltip{"Command2"}, kExpanded},
      {"F1.COMMAND3.TEXT", Caption{"Command3"}, kExpanded},
      {"F1.COMMAND3.TIP", Tooltip{"Command3"}, kExpanded},
      {"F1.COMMAND4.TEXT", Caption{"Command4"}, kExpanded},
      {"F1.COMMAND4.TIP", Tooltip{"Command4"}, kExpanded},
      {"F1.COMMAND7.TEXT", Caption{"Command7"}, kExpanded},
      {"F1.COMMAND7.TIP", Tooltip{"Command7"}, kExpanded},
      {"F1.COMMAND8.TEXT", Caption{"Command8"}, kExpanded},
      {"F1.COMMAND8.TIP", Tooltip{"Command8"}, kExpanded},
      {"F1.COMMAND9.TEXT", Caption{"Command9"}, kExpanded},
      {"F1.COMMAND9.TIP", Tooltip{"Command9"}, kExpanded},
      {"F1.INSTRUMENTS.TEXT", FrameCaption{"Frame1"}, kExpanded},
      {"F1.INSTRUMENTS.TIP", Tooltip{"Frame1"}, kExpanded},
      {"F1.CURRENT.BUTTON.TEXT", Caption{"Option1"}, kExpanded},
      {"F1.VOLTAGE.BUTTON.TEXT", Caption{"Option2"}, kExpanded},
      {"F1.INSTRUMENT1.TEXT", Caption{"Option1"}, kExpanded},
      {"F1.INSTRUMENT2.TEXT", Caption{"Option2"}, kExpanded},
      {"F1.INSTRUMENT3.TEXT", Caption{"Option3"}, kExpanded},
      {"", NamesFromCaptions{}},
      {"F1.INSTRUMENT1.UNIT", InstrumentField{1, &I::unit}, kExpanded},
      {"F1.INSTRUMENT2.UNIT", InstrumentField{2, &I::unit}, kExpanded},
      {"F1.INSTRUMENT3.UNIT", InstrumentField{3, &I::unit}, kExpanded},
      {"F1.COMMAND5.TEXT", InstrumentField{1, &I::setGraphCaption}},
      {"F1.COMMAND5.TIP", InstrumentField{1, &I::setGraphTip}},
      {"F1.COMMAND5.TEXT2", InstrumentField{2, &I::setGraphCaption}},
      {"F1.COMMAND5.TIP2", InstrumentField{2, &I::setGraphTip}},
      {"F1.COMMAND5.TEXT3", InstrumentField{3, &I::setGraphCaption}},
      {"F1.COMMAND5.TIP3", InstrumentField{3, &I::setGraphTip}},
      {"F1.COMMAND6.TEXT", Caption{"Command6", true}, kExpanded},
      {"F1.COMMAND6.TIP", Tooltip{"Command6"}, kExpanded},
      {"F1.LIST1.TIP", Tooltip{"List1"}, kExpanded},
      {"F1.TEXT1.TIP", Tooltip{"Text1"}, kExpanded},
      {"F1.TEXT2.TIP", InstrumentField{1, &I::pickupTip}},
      {"F1.TEXT2.TIP2", InstrumentField{2, &I::pickupTip}},
      {"F1.TEXT2.TIP3", InstrumentField{3, &I::pickupTip}},
      {"F1.SPREADSHEET1.TIP", Tooltip{"MSFlexGrid1"}, kExpanded},
      {"F1.CHARTSPACE1.TIP", Tooltip{"MSChart1"}, kExpanded},
      {"F1.MSGBOX1.HEAD", MessageField{1, &M::title}},
      {"F1.MSGBOX1.TXT", MessageField{1, &M::text}},
      {"F1.MSGBOX2.HEAD", MessageField{2, &M::title}},
      {"F1.MSGBOX2.TXT", MessageField{2, &M::text}},
      {"F1.MSGBOX3.HEAD", MessageField{3, &M::title}},
      {"F1.MSGBOX3.TXT", MessageField{3, &M::text}},
      {"F1.MSGBOX4.HEAD", MessageField{4, &M::title}},
      {"F1.MSGBOX4.TXT", MessageField{4, &M::text}},
      {"F1.MSGBOX5.HEAD", MessageField{5, &M::title}},
      {"F1.MSGBOX5.TXT", MessageField{5, &M::text}},
      {"F1.MSGBOX6.HEAD", MessageField{6, &M::title}},
      {"F1.MSGBOX6.TXT", MessageField{6, &M::text}},
  };
  return rows;
}

const std::vector<KeyRow>& ModeRows() {
  static const std::vector<KeyRow> rows = {
      {"LAST.X", InstrumentField{1, &I::lastX}},
      {"LAST.X2", InstrumentField{2, &I::lastX}},
      {"LAST.X3", InstrumentField{3, &I::lastX}},
      {"LAST.Y", InstrumentField{1, &I::lastY}},
      {"LAST.Y2", InstrumentField{2, &I::lastY}},
      {"LAST.Y3", InstrumentField{3, &I::lastY}},
      {"FIRST.X", InstrumentField{1, &I::firstX}},
      {"FIRST.X2", InstrumentField{2, &I::firstX}},
      {"FIRST.X3", InstrumentField{3, &I::firstX}},
      {"FIRST.Y", InstrumentField{1, &I::firstY}},
      {"FIRST.Y2", InstrumentField{2, &I::firstY}},
      {"FIRST.Y3", InstrumentField{3, &I::firstY}},
      {"F1.CHECK1.TIP", Tooltip{"Check1"}, kExpanded},
      {"F1.CHECK1.TEXT", Caption{"Check1", true}, kExpanded},
      {"F1.LOGGFILE", SwitchOn{&C::logSwitch}},
      {"TIME.MS.TEXT", Caption{"Check2", true}},
      {"TIME.MS.TIP", Tooltip{"Check2", true}},
      {"LOAD.LABEL.REL.TEXT", LabelField{&L::loadRelative}},
      {"LOAD.LABEL.ABS.TEXT", LabelField{&L::loadAbsolute}},
      {"TIME.LABEL.S.TEXT", LabelField{&L::timeSeconds}},
      {"TIME.LABEL.MS.TEXT", LabelField{&L::timeMilliseconds}},
      {"TIME.MULT.TIP", Tooltip{"Text3"}},
      {"TIME.MULT.ENABLE", ShownIfTrue{"Text3", "LabelText3"}},
      {"F2.IMPORT.HEADING", ExchangeField{&C::importing, &X::heading}},
      {"F2.IMPORT.BUTTON.TEXT", ExchangeField{&C::importing, &X::button}},
      {"F2.IMPORT.BUTTON.TIP", ExchangeField{&C::importing, &X::buttonTip}},
      {"F2.IMPORT.LIST.TIP", ExchangeField{&C::importing, &X::listTip}},
      {"F2.EXPORT.HEADING", ExchangeField{&C::exporting, &X::heading}},
      {"F2.EXPORT.BUTTON.TEXT", ExchangeField{&C::exporting, &X::button}},
      {"F2.EXPORT.BUTTON.TIP", ExchangeField{&C::exporting, &X::buttonTip}},
      {"F2.EXPORT.LIST.TIP", ExchangeField{&C::exporting, &X::listTip}},
      {"F1.MENU.1.HEADING", Caption{"m_opt"}, kExpanded},
      {"F1.MENU.1.ACTIVEFILE", Caption{"m_act"}, kExpanded},
      {"F1.MENU.1.EXPORT", Caption{"m_exp"}, kExpanded},
      {"F1.MENU.1.IMPORT", Caption{"m_imp"}, kExpanded},
  };
  return rows;
}

const std::vector<KeyRow>& ImportRows() {
  static const std::vector<KeyRow> rows = {
      {"F1.IMPORT.TIMETEST.BUTTON.ENABLE", ShownIfAboveZero{"Command10"}},
      {"F1.IMPORT.TIMETEST.BUTTON.TEXT", Caption{"Command10"}},
      {"F1.IMPORT.TIMETEST.BUTTON.TIP", Tooltip{"Command10"}},
      {"DIFF.TYPE", ImportField{"Text4", "LabelText4", &S::differenceType, nullptr}},
      {"FILTER.TYPE", ImportField{"Text5", "LabelText5", &S::filterType, &S::filterTypeText}},
      {"LABEL.SELECTION.TEXT", Caption{"LabelText4"}},
      {"LABEL.FILTER.TEXT", Caption{"LabelText5"}},
  };
  return rows;
}

// Texts of controls and messages that came later than the catalogues of the test-set suite.
const std::vector<KeyRow>& OwnRows() {
  static const std::vector<KeyRow> rows = {
      {"LANGUAGE.CODE", ProgramField{&P::language}},
      {"LANGUAGE.NAME", ProgramField{&P::languageName}},
      {"F1.PICKUP.LABEL", InstrumentField{1, &I::pickupLabel}, kExpanded},
      {"F1.PICKUP.LABEL2", InstrumentField{2, &I::pickupLabel}, kExpanded},
      {"F1.PICKUP.LABEL3", InstrumentField{3, &I::pickupLabel}, kExpanded},
      {"F1.MULTIPLIER.LABEL", Caption{"LabelText3"}, kExpanded},
      {"LABEL.MEAN.TEXT", Caption{"LabelText6"}},
      {"DIFF.FIELD.TIP", Tooltip{"Text4"}},
      {"FILTER.FIELD.TIP", Tooltip{"Text5"}},
      {"MEAN.FIELD.TIP", Tooltip{"Text6"}},
      {"F1.OPTION1.HINT", Tooltip{"Option1"}, kExpanded},
      {"F1.OPTION2.HINT", Tooltip{"Option2"}, kExpanded},
      {"F1.OPTION3.HINT", Tooltip{"Option3"}, kExpanded},
      {"F1.PICKUP.EMPTY.TIP", ProgramField{&P::selectInstrument}},
      {"F1.FILTER.FIELD", Placeholder{"TextFilter"}, kExpanded},
      {"F1.FILTER.TIP", Tooltip{"TextFilter"}, kExpanded},
      {"F1.NEWNAME.FIELD", Placeholder{"Text1"}, kExpanded},
      {"F1.NEWNAME.HINT", Caption{"LabelText1"}, kExpanded},
      {"GRID.LOAD.HEADING", ProgramField{&P::loadHeading}},
      {"GRID.TIME.HEADING", ProgramField{&P::timeHeading}},
      {"F1.CHART.EMPTY", Caption{"LabelChart"}, kExpanded},
      {"F1.MENU.1.EXIT", Caption{"m_exit"}, kExpanded},
      {"F1.MENU.2.HEADING", Caption{"m_view"}, kExpanded},
      {"F1.MENU.2.LOGARITHMIC", Caption{"m_log"}, kExpanded},
      {"F1.MENU.2.WHOLECURVE", Caption{"m_fit"}, kExpanded},
  };
  return rows;
}

// What the status bar and the message boxes say that came later, too.
const std::vector<KeyRow>& MessageRows() {
  static const std::vector<KeyRow> rows = {
      {"STATUS.ENTRIES", ProgramField{&P::entries}},
      {"STATUS.ENTRY.ONE", ProgramField{&P::oneEntry}},
      {"STATUS.MODIFIED", ProgramField{&P::modified}},
      {"STATUS.READ.FAILED", ProgramField{&P::readFailed}},
      {"STATUS.LIST.FAILED", ProgramField{&P::listFailed}},
      {"STATUS.CATALOGUE.FAILED", ProgramField{&P::catalogueFailed}},
      {"STATUS.TIMETEST.FAILED", ProgramField{&P::timeTestUnreadable}},
      {"STATUS.WAIT.FILE", ProgramField{&P::waitsForFile}},
      {"STATUS.WAIT.WRITER", ProgramField{&P::waitsForWriter}},
      {"STATUS.GIVE.UP", ProgramField{&P::giveUp}},
      {"LEFTOVER.HEAD", ProgramField{&P::leftoverHeading}},
      {"LEFTOVER.TXT", ProgramField{&P::leftoverText}},
      {"STATUS.LEFTOVER", ProgramField{&P::leftoverKept}},
      {"FILE.GROUP", ProgramField{&P::groupNotKept}},
      {"FILE.OWNER", ProgramField{&P::ownerNotKept}},
      {"FILE.ACL", ProgramField{&P::accessListNotKept}},
      {"FILE.LINKED", ProgramField{&P::hardLinked}},
      {"FILE.LOCKED", ProgramField{&P::lockedByOther}},
      {"FILE.OPEN", ProgramField{&P::openElsewhere}},
      {"FILE.KIND", ProgramField{&P::noRegularFile}},
      {"FILE.LINE", ProgramField{&P::lineTooLong}},
      {"FILE.GIVEN.UP", ProgramField{&P::givenUp}},
      {"STATUS.WRITE.FAILED", ProgramField{&P::writeFailed}},
      {"STATUS.BACKUP.FAILED", ProgramField{&P::backupFailed}},
      {"STATUS.ENTRY.CHANGED", ProgramField{&P::entryChanged}},
  };
  return rows;
}

const std::vector<KeyRow>& GraphAndExchangeRows() {
  static const std::vector<KeyRow> rows = {
      {"GRH.IMPORT.HEADING", GraphField{&G::heading}},
      {"GRH.IMPORT.UNREADABLE", GraphField{&G::unreadable}},
      {"GRH.IMPORT.MALFORMED", GraphField{&G::malformed}},
      {"GRH.IMPORT.PICKUP", GraphField{&G::needsPickup}},
      {"GRH.LINE.END", GraphField{&G::endsEarly}},
      {"GRH.LINE.COUNT", GraphField{&G::noCount}},
      {"GRH.LINE.SEGMENT", GraphField{&G::noSegment}},
      {"GRH.LINE.OTHER", GraphField{&G::notExpected}},
      {"STATUS.GRH.SKIPPED", GraphField{&G::skipped}},
      {"STATUS.GRH.ONE", GraphField{&G::oneSkipped}},
      {"STATUS.GRH.FAILED", GraphField{&G::notWritten}},
      {"STATUS.GRH.EMPTY", GraphField{&G::noPoints}},
      {"STATUS.TIMETEST.EMPTY", ProgramField{&P::noTimeTest}},
      {"STATUS.TIMETEST.RANKED", ProgramField{&P::selectedByRank}},
      {"STATUS.TRACE.FAILED", ProgramField{&P::traceFailed}},
      {"TIMETEST.PROGRESS.TEXT", ProgramField{&P::importProgress}},
      {"F2.NOFILE.TEXT", ProgramField{&P::noExchangeFile}},
      {"F2.CHOOSE.TEXT", ProgramField{&P::chooseFile}},
      {"F2.SELECTED.TEXT", ProgramField{&P::entriesSelected}},
      {"F2.COPIED.TEXT", ProgramField{&P::entriesCopied}},
      {"F2.COPY.FAILED", ProgramField{&P::copyFailed}},
      {"F2.FILE.CHANGED", ProgramField{&P::fileChanged}},
      {"F2.CLOSE.TEXT", ProgramField{&P::close}},
      {"MSGBOX.BUTTON.OK", ProgramField{&P::ok}},
      {"MSGBOX.BUTTON.CANCEL", ProgramField{&P::cancel}},
  };
  return rows;
}

// What can be taken back.
const std::vector<KeyRow>& HistoryRows() {
  static const std::vector<KeyRow> rows = {
      {"EDIT.UNDO", HistoryField{&H::undo}},
      {"EDIT.REDO", HistoryField{&H::redo}},
      {"EDIT.BRINGBACK", Caption{"m_back"}, kExpanded},
      {"RECOVERY.HEAD", HistoryField{&H::recoveryHeading}},
      {"RECOVERY.TXT", HistoryField{&H::recoveryText}},
      {"RECOVERY.ENTRY.TXT", HistoryField{&H::recoveryEntryText}},
  };
  return rows;
}

// The menus of editing and of the panels, and the names that only screen readers say.
const std::vector<KeyRow>& MenuRows() {
  static const std::vector<KeyRow> rows = {
      {"F1.MENU.3.HEADING", Caption{"m_edit"}, kExpanded},
      {"F1.MENU.3.CUT", Caption{"m_cut"}, kExpanded},
      {"F1.MENU.3.COPY", Caption{"m_copy"}, kExpanded},
      {"F1.MENU.3.PASTE", Caption{"m_paste"}, kExpanded},
      {"F1.MENU.3.CLEAR", Caption{"m_clear"}, kExpanded},
      {"F1.MENU.3.INSERT", Caption{"m_ins"}, kExpanded},
      {"F1.MENU.3.DELETE", Caption{"m_del"}, kExpanded},
      {"F1.MENU.3.UP", Caption{"m_up"}, kExpanded},
      {"F1.MENU.3.DOWN", Caption{"m_down"}, kExpanded},
      {"F1.MENU.3.FILL", Caption{"m_fill"}, kExpanded},
      {"F1.MENU.3.SORT", Caption{"m_sort"}, kExpanded},
      {"F1.MENU.3.REVERSE", Caption{"m_rev"}, kExpanded},
      {"F1.MENU.3.CALCULATE", Caption{"m_calc"}, kExpanded},
      {"F1.MENU.3.SCALE.LOADS", Caption{"m_scl"}, kExpanded},
      {"F1.MENU.3.SCALE.TIMES", Caption{"m_sct"}, kExpanded},
      {"F1.MENU.3.SHIFT.LOADS", Caption{"m_shl"}, kExpanded},
      {"F1.MENU.3.SHIFT.TIMES", Caption{"m_sht"}, kExpanded},
      {"F1.MENU.3.ROUND", Caption{"m_rnd"}, kExpanded},
      {"F1.MENU.3.NEXT", Caption{"m_next"}, kExpanded},
      {"F1.MENU.2.GO.LIST", Caption{"m_golist"}, kExpanded},
      {"F1.MENU.2.GO.GRID", Caption{"m_gogrid"}, kExpanded},
      {"F1.MENU.2.GO.CHART", Caption{"m_gochart"}, kExpanded},
      {"F1.MENU.2.NEXTPANEL", Caption{"m_panel"}, kExpanded},
      {"F1.MENU.2.FORMERPANEL", Caption{"m_panelback"}, kExpanded},
      {"F1.GRID.SPOKEN", SpokenName{"MSFlexGrid1"}, kExpanded},
      {"F1.CHART.SPOKEN", SpokenName{"MSChart1"}, kExpanded},
      {"F1.FILTER.SPOKEN", SpokenName{"TextFilter"}, kExpanded},
      {"F1.NEWNAME.SPOKEN", SpokenName{"Text1"}, kExpanded},
  };
  return rows;
}

constexpr std::array<const char*, kEditSteps> kStepKeys = {
    "STEP.TYPING",        "STEP.PASTE",       "STEP.CLEAR",       "STEP.CUT",
    "STEP.READ",          "STEP.TIMETEST",    "STEP.GRAPH",       "STEP.PICKUP",
    "STEP.MULTIPLIER",    "STEP.ABSOLUTE",    "STEP.UNIT",        "STEP.INSTRUMENT",
    "STEP.ROW.INSERT",    "STEP.ROW.DELETE",  "STEP.ROW.UP",      "STEP.ROW.DOWN",
    "STEP.SORT",          "STEP.REVERSE",     "STEP.SCALE.LOADS", "STEP.SCALE.TIMES",
    "STEP.SHIFT.LOADS",   "STEP.SHIFT.TIMES", "STEP.ROUND",       "STEP.CONVERT.LOADS",
    "STEP.CONVERT.TIMES", "STEP.FILL",        "STEP.CURVE",       "STEP.FIT",
    "STEP.THIN",          "STEP.RESAMPLE",    "STEP.POINT.MOVE",  "STEP.POINT.ADD",
    "STEP.UPDATE",        "STEP.ADDNEW",      "STEP.REMOVE",      "STEP.ENTRY.RENAME",
    "STEP.ENTRY.COPY",    "STEP.ENTRY.MOVE",  "STEP.FILE.SORT",   "STEP.IMPORT",
    "STEP.TAKECURVE",     "STEP.TAKEOVER",    "STEP.BRINGBACK",
};

// What is said of the points and asked by the tools on them.
const std::vector<KeyRow>& PointRows() {
  static const std::vector<KeyRow> rows = {
      {"CELL.LOAD.SPOKEN", PointField{&Q::loadCell}},
      {"CELL.TIME.SPOKEN", PointField{&Q::timeCell}},
      {"CELL.EMPTY.SPOKEN", PointField{&Q::emptyCell}},
      {"CELL.LOAD.FIELD", PointField{&Q::loadField}},
      {"CELL.TIME.FIELD", PointField{&Q::timeField}},
      {"CHECK.LOAD.NUMBER", PointField{&Q::loadNoNumber}},
      {"CHECK.TIME.NUMBER", PointField{&Q::timeNoNumber}},
      {"CHECK.LOAD.MISSING", PointField{&Q::loadMissing}},
      {"CHECK.TIME.MISSING", PointField{&Q::timeMissing}},
      {"CHECK.LOAD.ORDER", PointField{&Q::loadNotIncreasing}},
      {"CHECK.LOAD.DOUBLED", PointField{&Q::loadDoubled}},
      {"CHECK.TIME.ZERO", PointField{&Q::timeNotPositive}},
      {"CHECK.ROW.EMPTY", PointField{&Q::gap}},
      {"STATUS.CHECK.ROW", PointField{&Q::faultInRow}},
      {"STATUS.CHECK.CELLS", PointField{&Q::faults}},
      {"STATUS.CHECK.ONE", PointField{&Q::oneFault}},
      {"STATUS.CHECK.TIP", Tooltip{"StatusCheck"}, kExpanded},
      {"TOOL.LOADS.ABSOLUTE", ToolField{&T::loadsToAbsolute}},
      {"TOOL.LOADS.RELATIVE", ToolField{&T::loadsToRelative}},
      {"TOOL.TIMES.MS", ToolField{&T::timesToMilliseconds}},
      {"TOOL.TIMES.SECONDS", ToolField{&T::timesToSeconds}},
      {"TOOL.ASK.FACTOR", ToolField{&T::factor}},
      {"TOOL.ASK.AMOUNT", ToolField{&T::amount}},
      {"TOOL.ASK.DECIMALS", ToolField{&T::decimals}},
      {"TOOL.ASK.COUNT", ToolField{&T::pointCount}},
      {"TOOL.NOTHING", ToolField{&T::nothingToDo}},
      {"TOOL.NO.ROOM", ToolField{&T::noRoom}},
      {"TOOL.NO.NUMBER", ToolField{&T::noNumber}},
      {"TOOL.NO.PICKUP", ToolField{&T::noPickup}},
      {"TOOL.OUT.OF.RANGE", ToolField{&T::outOfRange}},
      {"TOOL.NO.POINTS", ToolField{&T::noTwoPoints}},
      {"TOOL.NOT.ADJACENT", ToolField{&T::notAdjacent}},
      {"TOOL.SAME.LOAD", ToolField{&T::sameLoad}},
  };
  return rows;
}

void Append(std::vector<KeyRow>& table, const std::vector<KeyRow>& rows) {
  table.insert(table.end(), rows.begin(), rows.end());
}

std::vector<KeyRow> AllRows() {
  std::vector<KeyRow> table;
  Append(table, WindowRows());
  Append(table, ModeRows());
  Append(table, ImportRows());
  const std::pair<const char*, EquationStage> equations[] = {
      {"DIFF.EQUATION.", EquationStage::Difference},
      {"VALUE.EQUATION.", EquationStage::Value},
      {"FILTER.EQUATION.", EquationStage::Filter}};
  for (const auto& [prefix, stage] : equations) {
    for (std::size_t slot = 1; slot <= kEquations; ++slot) {
      table.push_back({prefix + std::to_string(slot), EquationSlot{stage, slot}});
    }
  }
  table.push_back({"VALUE.MEAN.OVER", ImportField{"Text6", "LabelText6", &S::meanOver, nullptr}});
  table.push_back({"TIMEOUT.VALUE", TimeoutText{}});
  table.push_back({"TABLE.PRINT", TraceSwitch{}});
  Append(table, OwnRows());
  Append(table, CurveRows());
  Append(table, InterchangeRows());
  Append(table, CurveImportRows());
  Append(table, ComparisonRows());
  Append(table, CurveDialogRows());
  Append(table, CurveMenuRows());
  Append(table, LibraryRows());
  Append(table, HelpRows());
  Append(table, WorkbenchRows());
  Append(table, OutputRows());
  Append(table, ReportRows());
  Append(table, MessageRows());
  Append(table, GraphAndExchangeRows());
  Append(table, HistoryRows());
  for (std::size_t step = 0; step < kStepKeys.size(); ++step) {
    table.push_back({kStepKeys[step], StepName{step}});
  }
  Append(table, MenuRows());
  Append(table, PointRows());
  Append(table, ChartRows());
  return table;
}

}  // namespace

const std::vector<KeyRow>& KeyTable() {
  static const std::vector<KeyRow> table = AllRows();
  return table;
}

}  // namespace zentab::texts
