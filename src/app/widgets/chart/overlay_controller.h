#pragma once

#include <QObject>
#include <optional>
#include <vector>

#include "app/session.h"
#include "editor/overlay_curve.h"

class QAction;
class QMenu;

namespace zentab::editor {
class CurveChart;
class CurveLegend;
class DifferencePanel;
class OverlayCurves;
}  // namespace zentab::editor

namespace zentab::app {

class LibraryController;
class LibraryPanel;
class ResponsiveFiles;
class UserDialogs;
class ChartPanel;

/// Further curves in the chart: entries of the active table file and of others, their legend, and
/// the difference of all curves from one of them.
class OverlayController : public QObject {
  Q_OBJECT

 public:
  OverlayController(Session& session, ResponsiveFiles& files, LibraryController& library,
                    UserDialogs& dialogs, ChartPanel& panel, const LibraryPanel& list);

  /// Adds the entries for it at the end of the View menu, and one that stands in the menu of the
  /// list as well.
  void AddTo(QMenu& view);

 public Q_SLOTS:
  /// The value modes or the texts are others.
  void Refresh();
  /// Entries of the active table file, by their places among all names.
  void AddEntries(const std::vector<std::size_t>& entries);
  void AddSelectedEntries();
  /// Entries that the user chooses from a file that he chooses. What cannot be read is said as of
  /// the library's own entries.
  void AddFromFile();
  void RemoveAll();

 private:
  struct Overlay {
    editor::OverlayTable table;
    int number;  // of its pen
    bool isOn = true;
    editor::ConvertedCurve shown = {};

    [[nodiscard]] bool IsShown() const { return isOn && shown.fault == editor::OverlayFault::None; }
  };

  void Add(const std::string& name, const std::string& line);
  void Remove(int row);
  void Switch(int row, bool on);
  void TakeReference(int row);
  void ShowMenu(const QPoint& place);
  void Show();
  void ShowLegend();
  void ShowDifference();
  [[nodiscard]] int FreeNumber() const;

  Session& session_;
  ResponsiveFiles& files_;
  LibraryController& library_;
  const LibraryPanel& list_;
  UserDialogs& dialogs_;
  editor::CurveChart& chart_;
  editor::CurveLegend& legend_;
  editor::DifferencePanel& differences_;
  editor::OverlayCurves* drawn_;
  QMenu* legendMenu_;
  QAction* difference_ = nullptr;  // once there is a menu
  std::vector<Overlay> overlays_;  // in the order of the legend, behind the grid's own curve
  int reference_ = 0;              // a row of the legend
};

}  // namespace zentab::app
