#pragma once

#include <QMainWindow>

namespace zentab::app {

/// A caption without its access key: "Re&move" gives "Remove", and "删除(&M)" the two characters.
[[nodiscard]] QString PlainCaption(QString caption);

/// The same of a command, as the title of its window has it: without the ellipsis.
[[nodiscard]] QString PlainTitle(const QString& caption);

/// Gives every control of the main window that takes the focus a name and a description for screen
/// readers. The name is its caption, that of its label or, for controls without either, a text of
/// the catalogue; the description is its tooltip, which the catalogue has as well. The field of an
/// open cell is called by its row and column.
class AccessibleNames : public QObject {
  Q_OBJECT

 public:
  explicit AccessibleNames(QMainWindow& form);

  /// Captions or tooltips are others.
  void Refresh();

 private:
  QMainWindow& form_;
};

}  // namespace zentab::app
