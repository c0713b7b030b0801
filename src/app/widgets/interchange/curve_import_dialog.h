#pragma once

#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "app/curve_text.h"

class QBoxLayout;
class QLabel;
class QPushButton;
class QTableView;
class QTableWidget;

namespace zentab::editor {
class PreviewCurve;
}

namespace zentab::app {

class FoundCurvesModel;
class ReadingFields;

/// A text of another program: its first rows, how it is read, and the curves that it has then. The
/// current one is shown in the chart.
class CurveImportDialog : public QDialog {
  Q_OBJECT

 public:
  CurveImportDialog(const Session& session, editor::PreviewCurve& preview, QWidget* parent);

  /// How the text is to be read.
  [[nodiscard]] interchange::ImportChoices Choices() const;
  [[nodiscard]] interchange::Surplus Surplus() const;

  /// The text is being read.
  void ShowReading();
  void Show(std::shared_ptr<const CurveReading> reading);
  /// Says why nothing was done.
  void Tell(const QString& text);

  /// The chosen curves, under their names.
  [[nodiscard]] std::vector<NamedCurve> Chosen() const;
  /// The table of the current one.
  [[nodiscard]] std::optional<tables::CurveTableEntry> CurrentEntry() const;

 Q_SIGNALS:
  /// The text is to be read in another way.
  void ChoicesChanged();
  void GridWanted();
  void LibraryWanted();

 private:
  void BuildRows(QBoxLayout& layout);
  void BuildCurves(QBoxLayout& layout);
  void BuildButtons(QBoxLayout& layout);
  void ShowRows();
  void ShowCurrent();
  void ShowChosen();
  [[nodiscard]] std::string NameFault(const std::vector<NamedCurve>& chosen) const;
  [[nodiscard]] std::string CurrentText(const FoundCurve& curve) const;

  const Session& session_;
  editor::PreviewCurve& preview_;
  std::string
      nameFault_;  // why the chosen curves cannot be entries of the library; empty: they can
  std::shared_ptr<const CurveReading> reading_;
  ReadingFields* fields_;
  QTableWidget* rows_;
  FoundCurvesModel* model_;
  QTableView* curves_;
  QLabel* count_;
  QLabel* outcome_;
  QPushButton* add_ = nullptr;
  QPushButton* grid_ = nullptr;
};

}  // namespace zentab::app
