#pragma once

#include <QDialog>
#include <optional>

#include "app/session.h"
#include "app/widgets/user_dialogs.h"

class QLineEdit;

namespace zentab::app {

/// Asks for one number, written with the user's decimal separator, "," or ".". It can only be
/// confirmed with a number that answers the question.
class NumberDialog : public QDialog {
  Q_OBJECT

 public:
  NumberDialog(const NumberQuestion& question, const Session& session, QWidget* parent);

  /// What stands in the field; nothing where it is no answer.
  [[nodiscard]] std::optional<double> Number() const;

 private:
  NumberQuestion::Rule accepts_;
  const Session& session_;
  QLineEdit* field_;
};

}  // namespace zentab::app
