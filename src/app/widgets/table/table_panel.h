#pragma once

#include <QWidget>

#include "editor/widgets/curve_grid_view.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace zentab::app {

/// The middle of the main window: the instrument choice `Frame1`, the value modes, the grid over
/// the whole height and the clipboard commands under it. A container of controls: what they do is
/// wired elsewhere.
class TablePanel : public QWidget {
  Q_OBJECT

 public:
  TablePanel(editor::WorkingTable& table, QWidget* parent);

  QRadioButton* option1 = nullptr;  // Current
  QRadioButton* option2 = nullptr;  // Voltage
  QRadioButton* option3 = nullptr;  // the third choice
  QCheckBox* check1 = nullptr;      // Absolute values
  QCheckBox* check2 = nullptr;      // time unit is mS
  QLineEdit* text2 = nullptr;       // pickup value
  QLineEdit* text3 = nullptr;       // time multiplier
  QLabel* labelText2 = nullptr;     // of the pickup field
  QLabel* label3 = nullptr;         // the load column's caption by the value mode
  QLabel* label2 = nullptr;         // the time column's
  QPushButton* command7 = nullptr;  // Import Clipboard data
  QPushButton* command8 = nullptr;  // Export
  QPushButton* command9 = nullptr;  // Clear
  editor::CurveGridView* grid = nullptr;

  /// Clipboard commands and instrument choices without a caption offer nothing; those that have
  /// got one are shown.
  void HideButtonsWithoutCaption();

 private:
  [[nodiscard]] QGroupBox* BuildInstruments();
  [[nodiscard]] QWidget* BuildModes();
  [[nodiscard]] QWidget* BuildColumnLabels();
  [[nodiscard]] QWidget* BuildClipboard();
};

}  // namespace zentab::app
