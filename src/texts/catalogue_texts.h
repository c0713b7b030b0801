#pragma once

#include <array>
#include <cstdint>
#include <string>

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

/// What is said of characteristics and of operations on curves: the names of the families, why
/// there is no result ("%1" is a number or a name), and what a fit leaves open.
struct CurveTexts {
  std::string iecA = "IEC standard inverse (A)";
  std::string iecB = "IEC very inverse (B)";
  std::string iecC = "IEC extremely inverse (C)";
  std::string ieeeModerately = "IEEE moderately inverse (IEC D)";
  std::string ieeeVery = "IEEE very inverse (IEC E)";
  std::string ieeeExtremely = "IEEE extremely inverse (IEC F)";
  std::string longTime = "Long-time inverse";
  std::string shortTime = "Short-time inverse";
  std::string ri = "RI, electromechanical";
  std::string i2t = "I²t";
  std::string definite = "Definite time";
  std::string overvoltage = "Overvoltage, inverse";
  std::string undervoltage = "Undervoltage, inverse";
  std::string thermal = "Thermal overload";
  std::string own = "Own k, α and c";
  std::string equation = "Equation";
  std::string tooFewPoints = "At least %1 points with different loads are needed";
  std::string badLoad = "Point %1: the load is negative or no number";
  std::string badTime = "Point %1: the time is zero, negative or no number";
  std::string equalLoads = "Two points have the same load, %1";
  std::string logarithmOfLoad = "The load %1 has no place on a logarithmic axis";
  std::string atOrBelowPickup =
      "The load %1 is at or below the pickup value, where there is no operating time";
  std::string atOrAbovePickup =
      "The load %1 is not below the pickup value, where there is no operating time";
  std::string noFiniteTime = "There is no finite operating time above zero at the load %1";
  std::string badSetting = "The value of %1 is out of its range";
  std::string badEquation = "The equation: %1";
  std::string unknownName = "The equation has the name %1; it may have v, pickup and multiplier";
  std::string badRange = "The range of loads is empty";
  std::string badPointCount = "A table has 2 to %1 points";
  std::string outsideTable = "The load %1 lies outside the points of the curve";
  std::string noCommonRange = "The two curves have no load in common";
  std::string cannotBeFitted = "The family %1 cannot be fitted";
  std::string differentLoads =
      "One of the two has absolute loads, the other multiples of the pickup value";
  std::string pickupNeeded = "Absolute loads need the pickup value";
  std::string notDetermined = "The points do not determine %1";
};

/// What the window says apart from captions of its controls.
struct ProgramTexts {
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
  std::array<std::array<std::string, kEquations + 1>, kEquationStages> equations;  // from 1
  ImportSettings import;
  ProgramTexts program;
  GraphTexts graph;
  CurveTexts curve;
  bool logSwitch = false;
};

}  // namespace zentab::texts
