#pragma once

#include "app/session.h"
#include "tables/table_writer.h"

namespace zentab::app {

class KeptForms;
class LibraryController;
class LibraryPanel;
class ResponsiveFiles;
class UserDialogs;

/// What the commands on the entries of the list work with.
struct EntryParts {
  Session& session;
  ResponsiveFiles& files;
  tables::TableWriter& writer;
  UserDialogs& dialogs;
  KeptForms& forms;  // for the last answers
  LibraryController& library;
  LibraryPanel& panel;
};

}  // namespace zentab::app
