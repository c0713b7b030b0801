#pragma once

#include <QStyledItemDelegate>

namespace zentab::editor {

/// Draws the cells of the grid, with a small warning triangle at the left of those at fault.
class FaultMarks : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace zentab::editor
