#pragma once

#include <string>

namespace zentab::texts {

/// What the dialogs of the Curve menu and the assessment say; "%1" and so on are filled in.
struct CurveDialogTexts {
  std::string multiples = "× pickup";
  std::string amperes = "A";
  std::string volts = "V";
  std::string amperesOrVolts = "A or V";
  std::string family = "&Characteristic";
  std::string ownName = "&Name";
  std::string keepOwn = "&Keep";
  std::string multiplier = "Time &multiplier";
  std::string k = "k (s)";
  std::string alpha = "α";
  std::string c = "c (s)";
  std::string definiteTime = "Operating time (s)";
  std::string timeAtPickup = "Time at the pickup value (s)";
  std::string tau = "Heating time constant τ (s)";
  std::string previous = "Previous load (× pickup)";
  std::string factor = "Factor k (× pickup)";
  std::string equation = "Time in s, of v, pickup and multiplier";
  std::string equationHint = "v is the load in the table's unit (%1).";
  std::string start = "Picks up at (× pickup)";
  std::string minimumTime = "Minimum time (s)";
  std::string maximumTime = "Maximum time (s)";
  std::string stepMultiple = "Definite time from (× pickup)";
  std::string stepTime = "Its time (s)";
  std::string limitsHeading = "As the relay builds it";
  std::string loadsHeading = "Points";
  std::string spacing = "&Loads";
  std::string logarithmic = "Logarithmically spaced";
  std::string linear = "Evenly spaced";
  std::string best = "Where the lines deviate least";
  std::string given = "Given";
  std::string from = "&From (%1)";
  std::string to = "&To (%1)";
  std::string points = "&Number of points";
  std::string loads = "Loads (%1)";
  std::string count = "%1 points";
  std::string deviation = "%1 points, the lines between them deviate by up to %2 %";
  std::string noNumber = "%1: a number is needed";
  std::string noNumbers = "%1: numbers are needed, with blanks or ; between them";
  std::string pickupFree = "Fit the &pickup value as well";
  std::string fitFamily = "Characteristic";
  std::string fitMultiplier = "TMS";
  std::string fitPickup = "Pickup";
  std::string fitRms = "RMS %";
  std::string fitLargest = "Max. %";
  std::string fitPoints = "P&oints that count";
  std::string fitPoint = "%1:  %2,  %3 s";
  std::string fitUse = "OK puts the times of the chosen characteristic into the table.";
  std::string fitBelow = "It does not operate at %1 of the points; they are left out.";
  std::string fitBelowOne = "It does not operate at one of the points, which is left out.";
  std::string thinPoints = "Points to &keep";
  std::string thinned = "%1 of %2 points, the lines between them deviate by up to %3 %";
  std::string reference = "Reference:";
  std::string noReference = "none chosen";
  std::string useEntry = "Selected entry";
  std::string useCurve = "Standard curve…";
  std::string percent = "Limit %";
  std::string milliseconds = "or ms";
  std::string assignedError = "Class";
  std::string factors = "Factors";
  std::string factorsTip =
      "From which multiple of the pickup value on the class counts how many times, as in 2:2.5 "
      "5:1.5 10:1";
  std::string loadPercent = "Load ± %";
  std::string copy = "Copy";
  std::string close = "Close";
  std::string columnLoad = "Load";
  std::string columnMultiple = "× pickup";
  std::string columnMeasured = "Measured";
  std::string columnNominal = "Nominal";
  std::string columnDeviation = "Dev. ms";
  std::string columnPercent = "Dev. %";
  std::string columnLimit = "Limit ms";
  std::string columnVerdict = "Verdict";
  std::string passed = "passed";
  std::string failed = "failed";
  std::string outside = "outside";
  std::string allPassed = "Assessment passed: all %1 points are within the limits";
  std::string onePassed = "Assessment passed: the point is within the limits";
  std::string notPassed =
      "Assessment not passed. Points within the limits: %1, beyond them: %2, outside the "
      "reference: %3";
  std::string largest = "Largest deviation: %1 %%";
  std::string chooseReference =
      "Choose what to assess against: the selected entry or a standard curve.";
  std::string badLimit = "%1: a number from 0 up is needed";
  std::string badFactors = "%1: pairs such as 2:2.5 are needed, by increasing multiples";
  std::string panelName = "Assessment";
};

}  // namespace zentab::texts
