#pragma once

#include <QObject>
#include <vector>

class QWidget;

namespace zentab::app {

/// Takes entries that are dragged from the list onto a widget.
class EntryDrop : public QObject {
  Q_OBJECT

 public:
  explicit EntryDrop(QWidget& target);

 Q_SIGNALS:
  /// Entries were dropped, by their places among all names.
  void Dropped(const std::vector<std::size_t>& entries);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zentab::app
