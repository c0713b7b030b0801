#pragma once

#include <string>

namespace zentab::texts {

/// What the help menu's windows say. "%1" is a file.
struct HelpTexts {
  std::string noGuide = "The guide is not installed";
  std::string noBrowser = "No browser could be started; the guide is %1";
  std::string command = "Command";
  std::string keys = "Keys";
  std::string event = "Event";
  std::string part = "Part";
  std::string version = "Version";
  std::string licence = "Licence";
  std::string compiler = "Compiler";
  std::string logFile = "Written to %1";
  std::string noLogFile = "The event log is switched off: these lines are kept until the end only.";
  std::string copyAll = "Copy &all";
  std::string close = "&Close";
  std::string guide = "&Guide";
};

}  // namespace zentab::texts
