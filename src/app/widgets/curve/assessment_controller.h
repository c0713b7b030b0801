#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "app/curve_assessment.h"
#include "app/session.h"
#include "app/widgets/files/kept_forms.h"

class QAction;
class QMenu;

namespace zentab::editor {
class ToleranceBand;
}

namespace zentab::app {

class AssessmentPanel;
class ChartPanel;
class CurveController;
class LibraryController;

/// Holds the table against a reference as long as its panel is shown, and keeps limits and
/// reference for the next time.
class AssessmentController : public QObject {
  Q_OBJECT

 public:
  /// What the list has selected.
  using SelectedEntry = std::function<std::optional<std::size_t>()>;

  struct Parts {
    Session& session;
    KeptForms forms;
    LibraryController& library;
    ChartPanel& chart;
    CurveController& curves;
    SelectedEntry selected;
  };

  explicit AssessmentController(Parts parts);

  /// Adds the switch for the panel.
  void AddTo(QMenu& menu);

 public Q_SLOTS:
  /// The table, its modes or the texts are others.
  void Refresh();
  void RefreshTexts();

 Q_SIGNALS:
  /// There is another result, null when there is none, against the reference of that name.
  void Assessed(const zentab::app::GridAssessment* result, const std::string& reference);
  /// A point was chosen, by its row of the grid.
  void RowChosen(int row);

 private:
  void Show(bool shown);
  void UseSelectedEntry();
  void UseCurve(const FormValues& values);
  void Begin();
  void KeepLimits();
  void Copy();
  [[nodiscard]] bool IsShown() const;
  void ShowResult(const GridAssessment& result);
  void ShowFault(const std::string& text);

  Parts parts_;
  AssessmentPanel* panel_;
  editor::ToleranceBand* band_;
  QAction* switch_ = nullptr;
  std::optional<ChosenReference> reference_;
  std::string copied_;  // what Copy gives; empty while there is no result
};

}  // namespace zentab::app
