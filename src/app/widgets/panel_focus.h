#pragma once

#include <QList>
#include <QWidget>

namespace zentab::app {

/// A line in the accent colour over the panel that has the focus, so that it is seen where the keys
/// go. It lies in the margin above the panels.
class PanelFocus : public QWidget {
  Q_OBJECT

 public:
  /// `frame` holds the panels, with a margin above them.
  PanelFocus(QWidget* frame, QList<QWidget*> panels);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Place();

  QList<QWidget*> panels_;
};

}  // namespace zentab::app
