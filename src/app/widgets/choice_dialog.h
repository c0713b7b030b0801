#pragma once

#include <QDialog>
#include <vector>

#include "app/session.h"
#include "app/widgets/user_dialogs.h"

class QButtonGroup;

namespace zentab::app {

/// Asks for one answer to each of some questions, all at once: radio buttons in a frame each.
class ChoiceDialog : public QDialog {
  Q_OBJECT

 public:
  ChoiceDialog(const ChoiceQuestion& question, const Session& session, QWidget* parent);

  /// The numbers of the answers, from 0, one for each question.
  [[nodiscard]] std::vector<std::size_t> Answers() const;

 private:
  std::vector<QButtonGroup*> groups_;
};

}  // namespace zentab::app
