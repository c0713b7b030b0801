#pragma once

#include <QObject>

class QWidget;

namespace zentab::app {

/// Takes a table file, or a file with curves of another program, that is dropped anywhere on a
/// window.
class TableFileDrop : public QObject {
  Q_OBJECT

 public:
  explicit TableFileDrop(QWidget& window);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void Dropped(const QString& path);
  void CurvesDropped(const QString& path);
};

}  // namespace zentab::app
