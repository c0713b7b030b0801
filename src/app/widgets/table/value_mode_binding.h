#pragma once

#include <QObject>

#include "app/session.h"

namespace zentab::app {

class TablePanel;

/// Keeps the value modes of the session and their controls the same.
class ValueModeBinding : public QObject {
  Q_OBJECT

 public:
  ValueModeBinding(Session& session, TablePanel& panel);

  /// The session's values changed: shows them.
  void Show();

 public Q_SLOTS:
  /// The multiplier is left, or used while it is still being typed: a button's access key leaves
  /// the focus where it is.
  void LeaveMultiplier() const;

 Q_SIGNALS:
  /// The user changed one of them.
  void Changed();

 private:
  void Take();
  void TakeMultiplier();

  Session& session_;
  TablePanel& panel_;
  bool showing_ = false;
};

}  // namespace zentab::app
