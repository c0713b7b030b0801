#pragma once

#include <string>

namespace zentab::texts {

/// What stands on the pages of a report. "%1", "%2" and "%3" are what the text is about.
struct ReportTexts {
  std::string contents = "Contents";
  std::string name = "Name";
  std::string points = "Points";
  std::string page = "Page";
  std::string pageOf = "Page %1 of %2";
  std::string unnamed = "Unnamed table";
  std::string edited = "%1 (edited, not stored)";
  std::string file = "File";
  std::string date = "Date";
  std::string loads = "Loads";
  std::string relativeLoads = "Multiples of the pickup value";
  std::string absoluteLoads = "Absolute values";
  std::string times = "Times";
  std::string seconds = "Seconds";
  std::string milliseconds = "Milliseconds";
  std::string instrument = "Instrument";
  std::string pickup = "Pickup value";
  std::string multiplier = "Time multiplier";
  std::string row = "No.";
  std::string nominal = "Nominal (%1)";
  std::string deviation = "Deviation (ms)";
  std::string ratio = "Deviation (%%)";
  std::string limit = "Limit (ms)";
  std::string result = "Result";
  std::string reference = "Reference: %1";
  std::string percentLimit = "Limit: %1 %% of the nominal time";
  std::string millisecondLimit = "Limit: %1 ms";
  std::string bothLimits = "Limit: %1 %% of the nominal time or %2 ms, whichever is greater";
  std::string classLimit = "Limit: accuracy class %1 after IEC 60255-151";
  std::string classAndMilliseconds =
      "Limit: accuracy class %1 after IEC 60255-151 or %2 ms, whichever is greater";
  std::string loadTolerance = "Load tolerance: %1 %%";
};

/// What the window asks and says when a chart or a report goes out of the program.
struct OutputTexts {
  std::string heading = "Report";
  std::string gridTable = "Table in the &grid";
  std::string entries = "&Entries of the table file";
  std::string headerLines = "&Header lines";
  std::string paper = "P&aper";
  std::string letter = "Letter";
  std::string withAssessment = "&With the assessment";
  std::string preview = "Pre&view…";
  std::string print = "&Print…";
  std::string savePdf = "&Save as PDF…";
  std::string saveChart = "Save chart";
  std::string width = "&Width";
  std::string height = "&Height";
  std::string resolution = "&Resolution";
  std::string noCurve = "There is no curve to show";
  std::string unknownFormat = "The name of a picture ends in .png, .svg or .pdf";
  std::string tooLarge = "There is not enough memory for a picture of this size";
  std::string notWritten = "The file was not written";
  std::string notPrinted = "The printer did not take the report";
  std::string chartCopied = "The chart was copied to the clipboard";
};

}  // namespace zentab::texts
