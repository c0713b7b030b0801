#pragma once

#include <QLineEdit>

namespace zentab::editor {

/// The field `Text11` over an open cell, which is seen to be open by a frame in the accent colour
/// and a background of its own.
class CellField : public QLineEdit {
  Q_OBJECT

 public:
  explicit CellField(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowColours();
};

}  // namespace zentab::editor
