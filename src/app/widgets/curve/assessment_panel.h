#pragma once

#include <QWidget>
#include <map>
#include <string>

#include "app/curve_assessment.h"
#include "app/session.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace zentab::app {

/// The panel under the chart that tells whether the table is within limits of a reference.
class AssessmentPanel : public QWidget {
  Q_OBJECT

 public:
  AssessmentPanel(const Session& session, QWidget* parent);

  /// Captions in the catalogue's language.
  void ShowTexts();
  void ShowReference(const std::string& name);
  void ShowResult(const GridAssessment& result);
  /// Says why there is no result.
  void ShowMessage(const std::string& text);

  void SetLimits(const FormValues& limits);
  [[nodiscard]] FormValues Limits() const;

 Q_SIGNALS:
  void LimitsChanged();
  /// The field that changed them is left.
  void LimitsEntered();
  void EntryWanted();
  void CurveWanted();
  void CopyWanted();
  void CloseWanted();
  /// A point was chosen, by its row of the grid.
  void RowChosen(int row);

 private:
  void BuildReferenceRow();
  void BuildLimitsRow();
  void BuildTable();
  QPushButton* AddButton(const char* name, void (AssessmentPanel::*signal)());
  void Fill(int at, const AssessedRow& row);

  const Session& session_;
  QLabel* referenceLabel_;
  QLabel* reference_;
  QLabel* verdict_;
  QTableWidget* table_;
  std::map<std::string, QLineEdit*> limits_;
  std::map<std::string, QLabel*> limitLabels_;
  std::map<std::string, QPushButton*> buttons_;
};

}  // namespace zentab::app
