#pragma once

#include "app/widgets/user_dialogs.h"

class QWidget;

namespace zentab::app {

/// The dialogs as windows in front of `parent`.
class QtUserDialogs : public UserDialogs {
 public:
  void SetParent(QWidget* parent) { parent_ = parent; }

  bool Confirm(const MessageText& message) override;
  void Inform(const MessageText& message) override;
  QString ChooseTableFile() override;

 private:
  QWidget* parent_ = nullptr;
};

}  // namespace zentab::app
