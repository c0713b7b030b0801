#pragma once

#include <QDialog>
#include <vector>

#include "app/difference_text.h"

class QBoxLayout;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace zentab::editor {
class OverlayCurves;
class PreviewCurve;
}  // namespace zentab::editor

namespace zentab::app {

class DifferenceModel;

/// What another library has that the open one has not alike: a list to choose from, and the current
/// difference in words and as two curves in the chart.
class ComparisonDialog : public QDialog {
  Q_OBJECT

 public:
  /// The curves in the chart: the open library's and the other one's.
  struct Curves {
    editor::OverlayCurves& own;
    editor::PreviewCurve& other;
  };

  ComparisonDialog(const Session& session, Curves curves, const QString& otherName,
                   QWidget* parent);

  /// The files are at work.
  void ShowBusy();
  void Show(std::vector<interchange::EntryDifference> differences, const QString& remark);
  /// Says why nothing was done.
  void Tell(const QString& text);

  [[nodiscard]] std::vector<interchange::EntryDifference> Chosen() const;
  /// The difference whose row is current; null where none is.
  [[nodiscard]] const interchange::EntryDifference* Current() const;
  /// Shows the entries of the current difference.
  void ShowEntry(const ComparedEntry& entry);

 Q_SIGNALS:
  void CurrentChanged();
  void TakeOverWanted();

 private:
  void BuildList(QBoxLayout& layout);
  void BuildEntry(QBoxLayout& layout, const QString& otherName);
  void BuildButtons(QBoxLayout& layout);
  QLabel* AddSample(QBoxLayout& layout, const QString& name);
  void ShowChosen();
  void ChooseShown();
  void HideCurves();

  const Session& session_;
  Curves drawn_;
  DifferenceModel* model_;
  QLabel* counts_;
  QLineEdit* filter_;
  QListView* list_;
  QCheckBox* all_;
  QLabel* ownSample_ = nullptr;
  QLabel* otherSample_ = nullptr;
  QLabel* entry_;
  QLabel* outcome_;
  QPushButton* take_ = nullptr;
};

}  // namespace zentab::app
