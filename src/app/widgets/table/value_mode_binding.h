#pragma once

#include <QObject>
#include <optional>

#include "app/session.h"
#include "editor/edit_step.h"

class QLineEdit;

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
  /// Another step has begun: what is typed from now on is one of its own.
  void EndTyping() { typing_.reset(); }
  /// The multiplier is left, or used while it is still being typed: a button's access key leaves
  /// the focus where it is.
  void LeaveMultiplier() const;

 Q_SIGNALS:
  /// One of them is about to change by the user's hand, in one step.
  void AboutToChange(zentab::editor::EditStep step);
  /// The user changed one of them.
  void Changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Take();
  void TakeMultiplier();
  void FollowField(QLineEdit* field, editor::EditStep step);

  Session& session_;
  TablePanel& panel_;
  bool showing_ = false;
  std::optional<editor::EditStep> typing_;  // in a field that has not been left since
};

}  // namespace zentab::app
