#pragma once

#include <QDialog>
#include <vector>

class QAbstractItemModel;
class QLabel;
class QListView;
class QPushButton;

namespace zentab::exchange {

/// The window `Form2`: the entries that can be copied, of which the user selects some, and the
/// button that copies them. A container of controls: what they do is wired elsewhere.
class ExchangeDialog : public QDialog {
  Q_OBJECT

 public:
  /// Lists the rows of `entries`, which outlives the dialog.
  ExchangeDialog(QAbstractItemModel& entries, QWidget* parent);

  QListView* list1 = nullptr;
  QPushButton* command1 = nullptr;    // Execute
  QLabel* outcome = nullptr;          // how many are selected, what became of a copy
  QPushButton* fileButton = nullptr;  // chooses another file
  QPushButton* closeButton = nullptr;
  bool isAtWork = false;  // with files: it cannot be closed now

  /// For every row of the list, whether it is selected.
  [[nodiscard]] std::vector<bool> SelectedRows() const;
  [[nodiscard]] int SelectedCount() const;

  void done(int result) override;

 Q_SIGNALS:
  /// The dialog came up: the file has to be chosen.
  void Opened();
  void SelectionChanged();
  /// The dialog closes; it still has its place.
  void Closing();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  bool opened_ = false;
};

}  // namespace zentab::exchange
