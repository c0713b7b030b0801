#pragma once

#include <QObject>
#include <string>

#include "app/kept_axes.h"
#include "app/session.h"
#include "app/widgets/user_dialogs.h"
#include "editor/chart_axes.h"

class QMenu;

namespace zentab::editor {
class CurveChart;
class PickupLine;
}  // namespace zentab::editor

namespace zentab::app {

class ResponsiveFiles;

/// Gives the chart the axes that the user wants for the active table file, and their titles, and
/// keeps them in the settings.
class AxesController : public QObject {
  Q_OBJECT

 public:
  AxesController(Session& session, ResponsiveFiles& files, platform::SettingsStore& store,
                 std::string title, UserDialogs& dialogs, editor::CurveChart& chart);

  [[nodiscard]] const editor::ChartAxes& Axes() const { return axes_; }

  /// Adds the entries for the axes at the end of the View menu.
  void AddTo(QMenu& view);

  /// The user wants other axes.
  void Change(const editor::ChartAxes& axes);
  /// Lets the user give the limits.
  void AskLimits();

 public Q_SLOTS:
  /// The active table file, the value modes or the texts are others.
  void Refresh();

 Q_SIGNALS:
  /// Axes() are others than before.
  void Changed();
  /// Which of the axes are to be logarithmic.
  void KindsWanted(zentab::editor::AxisKinds kinds);

 private:
  void Show();

  Session& session_;
  ResponsiveFiles& files_;
  platform::SettingsStore& store_;
  std::string title_;
  UserDialogs& dialogs_;
  editor::CurveChart& chart_;
  editor::PickupLine* pickupLine_;
  KeptAxes kept_;
  editor::ChartAxes axes_;
};

}  // namespace zentab::app
