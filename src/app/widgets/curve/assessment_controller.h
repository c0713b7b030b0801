#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "app/curve_assessment.h"
#include "app/session.h"
#include "platform/settings_store.h"
#include "tables/table_listing.h"

class QAction;
class QMenu;

namespace zentab::editor {
class ToleranceBand;
}

namespace zentab::app {

class AssessmentPanel;
class ChartPanel;
class CurveController;
class ResponsiveFiles;

/// Holds the table against a reference as long as its panel is shown, and keeps limits and
/// reference for the next time.
class AssessmentController : public QObject {
  Q_OBJECT

 public:
  /// What the list has selected.
  using SelectedEntry = std::function<std::optional<std::size_t>()>;

  struct Parts {
    Session& session;
    ResponsiveFiles& files;
    platform::SettingsStore& store;
    std::string title;  // the program's, under which the values are kept
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
  /// The entry could not be read; `text` says so in one line.
  void Failed(const QString& text);
  /// A point was chosen, by its row of the grid.
  void RowChosen(int row);

 private:
  void Show(bool shown);
  void UseSelectedEntry();
  void UseCurve(const FormValues& values);
  void Begin();
  void Keep(const char* form, const FormValues& values);
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
