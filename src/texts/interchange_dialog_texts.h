#pragma once

#include <string>

namespace zentab::texts {

/// What the dialog says that imports curves of other programs; "%1" and so on are filled in.
struct CurveImportTexts {
  std::string encoding = "&Encoding";
  std::string separator = "&Separator";
  std::string decimalSign = "&Decimal sign";
  std::string header = "&Heading row";
  std::string loadColumn = "&Load column";
  std::string timeColumn = "&Time column";
  std::string loadUnit = "Load &unit";
  std::string timeUnit = "T&ime unit";
  std::string surplus = "&More than 26 points";
  std::string guessed = "%1 (detected)";
  std::string detect = "Detect";
  std::string allTimes = "every column of times";
  std::string comma = "Comma";
  std::string semicolon = "Semicolon";
  std::string tab = "Tab";
  std::string bar = "Vertical bar";
  std::string blanks = "Blanks";
  std::string point = "Point";
  std::string yes = "Yes";
  std::string no = "No";
  std::string cycles50 = "Cycles (50 Hz)";
  std::string cycles60 = "Cycles (60 Hz)";
  std::string thin = "Thin out";
  std::string cut = "Keep the first 26";
  std::string column = "Column %1";
  std::string rows = "Rows of the file";
  std::string found = "Curves found: %1, chosen: %2";
  std::string nameHeading = "Name";
  std::string pointsHeading = "Points";
  std::string deviationHeading = "Deviation";
  std::string noTable = "not possible";
  std::string intoGrid = "Into the &grid";
  std::string addEntries = "&Add to the library";
  std::string reading = "Reading…";
  std::string cutTo = "The first %1 of %2 points";
  std::string ownUnits = "Without a pickup value the chart shows its loads as they are, in %1.";
  std::string nameTaken =
      "The library already has an entry \"%1\". Double-click the name to change it.";
  std::string nameTwice = "Two of the chosen curves are called \"%1\".";
  std::string nameMissing = "One of the chosen curves has no name.";
  std::string added = "Curves added to the library: %1";
  std::string notRead = "The file could not be read";
  std::string noClipboard = "The clipboard holds no text";
  std::string clipboard = "Clipboard";
  std::string files = "Text and JSON";
  std::string allFiles = "All files";
};

/// What the dialog says that compares two libraries.
struct ComparisonTexts {
  std::string comparing = "Comparing…";
  std::string same = "Both libraries have the same entries.";
  std::string counts = "%1 added (+), %2 removed (−), %3 changed (~)";
  std::string chosen = "Chosen: %1";
  std::string filter = "Find a name";
  std::string chooseAll = "Choose &all shown";
  std::string list = "Differences";
  std::string takeOver = "&Take over";
  std::string own = "Open library";
  std::string points = "Points: %1";
  std::string otherPoints = "Points: %1, with other numbers";
  std::string loads = "Loads: %1";
  std::string times = "Times: %1";
  std::string instrument = "Instrument: %1";
  std::string noInstrument = "none";
  std::string name = "Name: %1";
  std::string change = "%1 → %2";
  std::string onlyThere = "Only in the other library; taken over, it is added.";
  std::string onlyHere = "Only in the open library; taken over, it is removed.";
  std::string done = "Taken over: %1 added, %2 removed, %3 changed";
  std::string stale = "One of the files has changed; they were compared anew.";
  std::string itself = "This is the open library itself";
  std::string noCurve = "Not every curve can be shown in the chart.";
};

}  // namespace zentab::texts
