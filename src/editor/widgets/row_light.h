#pragma once

#include <QWidget>

namespace zentab::editor {

class CurveGridView;

/// Lights up a row of the grid, and tells which one the pointer is over.
class RowLight : public QWidget {
  Q_OBJECT

 public:
  explicit RowLight(CurveGridView& grid);

  /// Lights up a row (1..26), none for 0.
  void Light(int row);

 Q_SIGNALS:
  /// The pointer has come over another row of the grid (1..26), or over none (0).
  void RowHovered(int row);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();
  void Hover(int row);

  CurveGridView& grid_;
  int row_ = 0;
  int hovered_ = 0;
};

}  // namespace zentab::editor
