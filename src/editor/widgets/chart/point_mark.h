#pragma once

#include <QColor>
#include <QWidget>

namespace zentab::editor {

/// The dot on the grid's current point: a small window of its own, so that moving it draws nothing
/// but its surroundings.
class PointMark : public QWidget {
 public:
  explicit PointMark(QWidget* parent);

  void SetColour(const QColor& colour);
  /// Puts its middle at a place of the parent, between whole pixels as well.
  void PlaceAt(const QPointF& place);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
  QPointF middle_;
};

}  // namespace zentab::editor
