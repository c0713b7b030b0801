#pragma once

#include <string>

namespace zentab::texts {

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
  std::string noPoint = "At least one point is needed";
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

}  // namespace zentab::texts
