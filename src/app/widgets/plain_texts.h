#pragma once

#include <QObject>

class QHelpEvent;
class QWidget;

namespace zentab::app {

/// Makes the whole program show texts as they stand, whatever they look like: captions come from
/// catalogues, names from table files, reasons from modules, and what Qt takes for markup in them
/// could be as much as an image to be read from a device. While it lives, every label turns to
/// plain text before it is laid out or shown for the first time, those of message boxes and of Qt's
/// own dialogs as well, and every tooltip is shown as plain text in lines of a readable length. So
/// a tooltip is set as it is to be read.
class PlainTexts final : public QObject {
  Q_OBJECT

 public:
  explicit PlainTexts(QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zentab::app
