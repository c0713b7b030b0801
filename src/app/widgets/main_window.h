#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/event_log.h"
#include "app/session.h"
#include "app/session_history.h"
#include "app/settings.h"
#include "app/widgets/files/kept_forms.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/user_dialogs.h"
#include "platform/file_layer.h"
#include "platform/settings_store.h"
#include "tables/table_writer.h"
#include "texts/ui_font.h"

class QAction;

namespace zentab::app {

class AccessibleNames;
class AssessmentController;
class AxesController;
class ChartPanel;
class CheckMarks;
class ClipboardController;
class CurveController;
class EntryWork;
class ExchangeController;
class Guide;
class HistoryController;
class InterchangeCommands;
class InstrumentController;
class LanguageMenu;
class LibraryController;
class LibraryFilesController;
class LibraryPanel;
class ReadOutController;
class RecoveryKeeper;
class ReportController;
class OverlayController;
class PointHandController;
class PointToolsController;
class PointToolsMenu;
class ReferenceGraphController;
class SessionEnd;
class StatusLine;
class TablePanel;
class TimeTestController;
class ValueModeBinding;
class WindowTexts;
class WorkbenchController;

/// What the main window works with; all of it outlives the window.
struct MainWindowParts {
  Session& session;
  Settings settings;
  std::string title;  // the program's title, under which the settings are kept
  platform::SettingsStore& store;
  platform::FileLayer& files;
  UserDialogs& dialogs;
  std::filesystem::path executable;  // beside which the default catalogue lies
  std::filesystem::path recoveryFolder =
      {};               // for tables that no library has; empty: none are kept
  int lookEvery = 500;  // milliseconds between two looks at the table file
};

/// The window `Form1`: sets up the panels and their controllers, and follows start and end.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(MainWindowParts parts);
  ~MainWindow() override;

  /// Brings up what the settings say; runs once, before the window is shown.
  void Load();
  /// The event loop is about to run: the end of the user's session and signals that ask the program
  /// to end are followed from now on.
  void ListenForEnd();
  /// Offers what former sessions have left unsaved; the window is shown.
  void OfferRecovery();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void BuildPanels();
  void BuildMenus(const MainWindowParts& parts);
  void ConnectCommands();
  void ConnectPanels();
  void ConnectLibraryFiles();
  void ConnectHistory();
  void Remember(editor::EditStep step);
  void ConnectTools();
  void ConnectCurves();
  void ConnectTimeTest();
  void ConnectInstruments();
  void ShowTable();
  void ShowEdits();
  void RefreshChart();
  void RefreshCaptions();

  Session& session_;
  Settings settings_;
  std::vector<std::filesystem::path> catalogues_;  // in the order of their application
  ResponsiveFiles files_;
  tables::TableWriter writer_;
  SessionHistory history_;
  EventLog log_;
  texts::UiFontChoice font_;
  LibraryPanel* library_;
  TablePanel* table_;
  ChartPanel* chart_;
  LibraryController* libraryController_;
  TimeTestController* timeTest_;
  WorkbenchController* workbench_ = nullptr;  // once the test is connected
  InstrumentController* instruments_;
  ReferenceGraphController* graphs_;
  ClipboardController* clipboard_;
  PointToolsController* tools_;
  ExchangeController* exchange_;
  ValueModeBinding* modes_;
  AxesController* axes_;
  PointHandController* hand_;  // takes the mouse before the crosshair follows it
  OverlayController* overlays_;
  ReadOutController* readOut_;
  StatusLine* status_;
  HistoryController* undo_;
  RecoveryKeeper* recovery_;
  ReportController* report_;
  CheckMarks* checks_;
  KeptForms forms_;
  LibraryFilesController* tableFiles_;
  InterchangeCommands* interchange_;
  EntryWork* entries_;
  CurveController* curves_;
  AssessmentController* assessment_;
  PointToolsMenu* edit_ = nullptr;  // once there is a menu bar
  Guide* guide_ = nullptr;          // likewise
  LanguageMenu* languages_ = nullptr;
  AccessibleNames* names_ = nullptr;    // once there is something to be named
  std::unique_ptr<WindowTexts> texts_;  // likewise
  SessionEnd* end_;
};

}  // namespace zentab::app
