#pragma once

#include <QWidget>

class QAction;
class QMenuBar;
class QToolButton;

namespace zentab::app {

/// The most used commands of the menus as buttons, in the free corner of the menu bar: they take no
/// room of their own. Each stands for its action; the Tab key passes them over, as menus and keys
/// lead to the same.
class QuickCommands : public QWidget {
  Q_OBJECT

 public:
  /// The menu bar's window has the actions already.
  explicit QuickCommands(QMenuBar& bar);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void FollowFont();
  QToolButton* AddButton(QAction& action, const QString& icon);
};

}  // namespace zentab::app
