#pragma once

#include <QIcon>
#include <QMap>
#include <QPalette>

#include "app/widgets/library/entry_list_model.h"

namespace zentab::app {

/// Rows of entries with a small mark in front of the name: the unit of the entry's instrument, A or
/// V, nothing without one.
class EntryRows : public RoomyRows {
  Q_OBJECT

 public:
  using RoomyRows::RoomyRows;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  // A mark in the colours and the size that it was drawn with.
  struct DrawnMark {
    QIcon icon;
    qint64 palette = 0;
    int height = 0;
    qreal scale = 0.0;
  };

  mutable QMap<int, DrawnMark> marks_;  // by the instrument
};

}  // namespace zentab::app
