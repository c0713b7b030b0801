#pragma once

#include <QObject>

class QWidget;

namespace zentab::app {

/// Takes entries that are dragged from the list onto a widget.
class EntryDrop : public QObject {
  Q_OBJECT

 public:
  explicit EntryDrop(QWidget& target);

 Q_SIGNALS:
  /// An entry was dropped, by its place among all names.
  void Dropped(std::size_t entry);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zentab::app
