#pragma once

#include "app/session.h"
#include "app/widgets/user_dialogs.h"
#include "tables/table_writer.h"

class QWidget;

namespace zentab::editor {
class CurveChart;
class PreviewCurve;
}  // namespace zentab::editor

namespace zentab::app {

class HistoryController;
class LibraryController;
class ResponsiveFiles;

/// What the commands on files of other programs and on other libraries work with.
struct InterchangeParts {
  Session& session;
  ResponsiveFiles& files;
  tables::TableWriter& writer;
  UserDialogs& dialogs;
  LibraryController& library;
  HistoryController& history;
  editor::CurveChart& chart;
  QWidget& window;
};

}  // namespace zentab::app
