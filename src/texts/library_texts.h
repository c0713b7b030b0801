#pragma once

#include <string>

namespace zentab::texts {

/// What the commands on the library as a whole say; "%1" and so on are filled in.
struct LibraryTexts {
  std::string noRecent = "None yet";
  std::string notCreated = "The table file was not created";
  std::string notCopied = "The table file was not copied";
  std::string copied = "Copied to %1";
  std::string noBackup = "This table file has no backup yet";
};

}  // namespace zentab::texts
