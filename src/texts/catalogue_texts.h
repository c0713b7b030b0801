#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "texts/chart_texts.h"
#include "texts/curve_dialog_texts.h"
#include "texts/curve_texts.h"
#include "texts/help_texts.h"
#include "texts/interchange_dialog_texts.h"
#include "texts/interchange_texts.h"
#include "texts/library_texts.h"
#include "texts/report_texts.h"
#include "texts/workbench_texts.h"

namespace zentab::texts {

/// The texts that belong to one instrument.
struct InstrumentTexts {
  std::string name;
  std::string setGraphCaption;  // of `Command5`
  std::string setGraphTip;
  std::string pickupLabel;  // of `Text2`
  std::string pickupTip;
  std::string firstX;  // the extension points of a reference graph, as number texts
  std::string firstY;
  std::string lastX;
  std::string lastY;
  std::string unit;
};

struct MessageText {
  std::string title;
  std::string text;
};

/// The texts of the exchange dialog in one of its directions.
struct ExchangeTexts {
  std::string heading;
  std::string button;
  std::string buttonTip;
  std::string listTip;
};

enum class EquationStage { Difference, Value, Filter };
inline constexpr int kEquationStages = 3;
inline constexpr int kEquations = 10;
/// The equations by stage and number, from 1; empty where there is none.
using EquationTexts = std::array<std::array<std::string, kEquations + 1>, kEquationStages>;

/// How the import of a time test begins; its fields can overrule it.
struct ImportSettings {
  std::int16_t differenceType = 0;
  std::string filterTypeText;
  std::int16_t filterType = 0;
  std::int16_t meanOver = 0;
  std::string timeout;
  bool printTable = false;
};

/// The load and time captions of the value modes.
struct LabelTexts {
  std::string loadRelative = "Load level (× pickup)";
  std::string loadAbsolute = "Load level (%V)";
  std::string timeSeconds = "Trip time (s)";
  std::string timeMilliseconds = "Trip time (ms)";
};

/// What the window says of reference graphs. "%1" is the file, "%2" the line at fault and "%3"
/// what that line fails to be.
struct GraphTexts {
  std::string heading = "Import GRH";
  std::string unreadable = "The file %1 could not be read.";
  std::string malformed = "The file %1 is not a reference graph. Line %2: %3.";
  std::string endsEarly = "the file ends before the graph is complete";
  std::string noCount = "the number of segments is expected here";
  std::string noSegment = "the seven numbers of a segment are expected here";
  std::string notExpected = "this does not belong in a reference graph";
  std::string needsPickup = "Relative load levels need a pickup value. Choose an instrument first.";
  std::string skipped = "%1 points of the reference graph were skipped";
  std::string oneSkipped = "%1 point of the reference graph was skipped";
  std::string notWritten = "The reference graph could not be written";
  std::string noPoints = "No reference graph: row 1 has no load level or no time";
};

/// What is said of the cells of the grid. "%1" is a row's number, or a cell's text where one is
/// quoted.
struct PointTexts {
  std::string loadCell = "row %1, load %2";  // "%2" is the cell's text; read out by a screen reader
  std::string timeCell = "row %1, time %2";
  std::string emptyCell = "empty";
  std::string loadField = "row %1, load";
  std::string timeField = "row %1, time";
  std::string loadNoNumber = "the load '%1' is no number";
  std::string timeNoNumber = "the time '%1' is no number";
  std::string loadMissing = "the load is missing";
  std::string timeMissing = "the time is missing";
  std::string loadNotIncreasing = "the load does not increase";
  std::string loadDoubled = "the load is that of point %1 as well";
  std::string timeNotPositive = "the time is not above zero";
  std::string gap = "the row is empty: points below it are not stored";
  std::string faultInRow = "Row %1: %2";
  std::string faults = "%1 cells to check";
  std::string oneFault = "%1 cell to check";
};

/// What the tools on the points ask and say.
struct ToolTexts {
  std::string loadsToAbsolute = "Loads to &amperes or volts";
  std::string loadsToRelative = "Loads to &multiples of the pickup value";
  std::string timesToMilliseconds = "&Times to ms";
  std::string timesToSeconds = "&Times to s";
  std::string factor = "Factor:";
  std::string amount = "Amount:";
  std::string decimals = "Digits behind the point (0 to 15):";
  std::string pointCount = "Number of new points:";
  std::string nothingToDo = "There is nothing to change";
  std::string noRoom = "No room: points would be pushed off the last row";
  std::string noNumber = "None of the cells holds a number";
  std::string noPickup = "The pickup value is not a number above zero";
  std::string outOfRange = "A number would become too large";
  std::string noTwoPoints = "Select two rows with points, or one with a point below it";
  std::string notAdjacent = "There are other rows between the two points";
  std::string sameLoad = "The two points have the same load";
};

/// What the window says apart from captions of its controls.
struct ProgramTexts {
  std::string language = "en";            // as of files with translations: de, zh_CN
  std::string languageName = "English";   // in the language itself
  std::string loadAxis = "%1";            // "%1" stands for the load caption of the value mode
  std::string timeAxis = "%1";            // and here for its time caption
  std::string loadHeading = "LoadLevel";  // of the grid's columns
  std::string timeHeading = "Time";
  std::string entries = "%1 entries";
  std::string oneEntry = "%1 entry";
  std::string modified = "Modified";
  std::string readFailed = "The entry could not be read";
  std::string listFailed = "The table file could not be read";
  std::string catalogueFailed = "The text catalogue could not be read";
  std::string timeTestUnreadable = "The time test could not be read";
  std::string waitsForFile = "Waiting for the file…";
  std::string waitsForWriter = "Waiting: someone else is writing to the file…";
  std::string giveUp = "Give up (Esc)";
  std::string leftoverHeading = "Table file missing";
  std::string leftoverText =
      "The table file %F is missing, but %F.new, which another program has left behind, contains "
      "entries. Use it as the table file?";
  std::string leftoverKept = "What another program had left in place of the file is now its backup";
  // Why a file could not be read or written, where the system has no word for it.
  std::string groupNotKept = "the file's group would lose its access";
  std::string ownerNotKept = "the file's owner would lose their access";
  std::string accessListNotKept = "the file's access list cannot be kept";
  std::string hardLinked =
      "the file has other names (hard links), which would keep the old content";
  std::string lockedByOther = "someone else is writing to the file";
  std::string openElsewhere = "another program has the file open";
  std::string noRegularFile = "it is not a regular file";
  std::string lineTooLong = "a line of the file is too long";
  std::string givenUp = "given up";
  std::string writeFailed = "The table file could not be written";
  std::string backupFailed = "The table file was not written because no backup of it could be made";
  std::string entryChanged = "Another program has changed the entry; the list has been refreshed";
  std::string fileChanged =
      "Another program has changed the file; the list of its entries has been refreshed";
  std::string importProgress = "Importing the time test…";
  std::string noTimeTest = "The time test has no points";
  std::string selectedByRank =
      "Too many points have no difference or a very large one; the two ends and the "
      "points with the largest differences were taken";
  std::string traceFailed = "The trace of the import could not be written";
  std::string selectInstrument = "Select Instrument first";
  std::string noExchangeFile = "No file chosen";  // in the exchange dialog
  std::string chooseFile = "Choose &file…";
  std::string entriesSelected = "Selected: %1";
  std::string entriesCopied = "Copied: %1";
  std::string copyFailed = "The entries could not be copied";
  std::string close = "Close";
  std::string ok = "OK";
  std::string cancel = "Cancel";
};

/// The steps of the history that have a name.
inline constexpr std::size_t kEditSteps = 43;

/// What the history of a session says. The names of the steps stand in the order of
/// editor::EditStep.
struct HistoryTexts {
  std::string undo = "&Undo %1";  // %1: the step's name
  std::string redo = "&Redo %1";
  std::string recoveryHeading = "Unsaved table";
  std::string recoveryText =
      "The last session ended before the table in the grid was stored (table file %1, last edited "
      "%2). Bring the table back?";
  std::string recoveryEntryText =  // %3: the entry
      "The last session ended before the edits of the entry \"%3\" were stored (table file %1, "
      "last edited %2). Bring the table back?";
  std::array<std::string, kEditSteps> steps = {{
      "Typing",
      "Paste",
      "Clear",
      "Cut",
      "Read",
      "Import time test",
      "Import GRH",
      "Pickup value",
      "Time multiplier",
      "Absolute values",
      "Time unit",
      "Instrument",
      "Insert row",
      "Delete rows",
      "Move rows up",
      "Move rows down",
      "Sort by load",
      "Reverse order",
      "Scale loads",
      "Scale times",
      "Shift loads",
      "Shift times",
      "Round",
      "Convert loads",
      "Convert times",
      "Fill between points",
      "Standard curve",
      "Fit",
      "Thin out",
      "Resample",
      "Move point",
      "Add point",
      "Update entry",
      "Add new entry",
      "Remove entry",
      "Rename entry",
      "Duplicate",
      "Move entries",
      "Sort file",
      "Import entries",
      "Import curve",
      "Take over",
      "Bring back table",
  }};
};

/// All texts and switches of a catalogue that are no control's own. What no catalogue supplies
/// keeps the value it has here.
struct CatalogueTexts {
  std::array<InstrumentTexts, 4> instruments;  // 1 current, 2 voltage, 3 the third choice
  std::array<MessageText, 7> messages = {{
      {},
      {"Discard edits", "The table in the grid has unsaved edits. Discard them?"},
      {"Remove entry", "Remove the entry \"%1\" from the table file?"},
      {"Update entry", "Replace the stored entry \"%1\" with the table in the grid?"},
      {"Exit", "The table in the grid has unsaved edits. Discard them and exit?"},
      {"Add new", "The table file already contains an entry of this name. Choose another name."},
      {"Instrument", "The time test of the instrument could not be opened."},
  }};  // by the boxes' numbers, from 1
  LabelTexts labels;
  ExchangeTexts importing;
  ExchangeTexts exporting;
  EquationTexts equations;
  ImportSettings import;
  ProgramTexts program;
  GraphTexts graph;
  ChartTexts chart;
  CurveTexts curve;
  InterchangeTexts interchange;
  CurveImportTexts curveImport;
  ComparisonTexts comparison;
  CurveDialogTexts curveDialogs;
  WorkbenchTexts workbench;
  ReportTexts report;
  OutputTexts output;
  HistoryTexts history;
  LibraryTexts library;
  HelpTexts help;
  PointTexts points;
  ToolTexts tools;
  bool logSwitch = false;
};

}  // namespace zentab::texts
