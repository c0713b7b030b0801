#pragma once

#include <QObject>

#include "app/session.h"
#include "app/widgets/files/kept_forms.h"
#include "editor/edit_step.h"

class QMenu;
class QMenuBar;

namespace zentab::editor {
class CurveChart;
class PreviewCurve;
}  // namespace zentab::editor

namespace zentab::app {

class CurveDialog;

/// The dialogs of the Curve menu: opens them beside the chart and puts into the grid what is
/// confirmed. Each begins with the values that it was confirmed with last.
class CurveController : public QObject {
  Q_OBJECT

 public:
  CurveController(Session& session, KeptForms forms, editor::CurveChart& chart, QWidget& window);

  /// Adds the menu with its commands.
  QMenu* AddMenu(QMenuBar& bar) const;

 public Q_SLOTS:
  void StandardCurve();
  void FitCurve();
  void ThinOut();
  void Resample();

  /// Opens the dialog for standard curves to choose one as a reference; ReferenceChosen tells.
  void ChooseReference();

 Q_SIGNALS:
  /// What was said of the command before is over, and an open cell editor closes.
  void CommandBegun();
  /// The table is about to change, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// The grid holds other points.
  void TableChanged();
  void ReferenceChosen(const zentab::app::FormValues& values);

 private:
  [[nodiscard]] CurveDialog* MakeStandardDialog();
  [[nodiscard]] QString TitleOf(const char* action) const;
  void Open(CurveDialog* dialog, editor::EditStep step, const char* form, const QString& title);

  Session& session_;
  KeptForms forms_;
  editor::CurveChart& chart_;
  QWidget& window_;
  editor::PreviewCurve* preview_;
};

}  // namespace zentab::app
