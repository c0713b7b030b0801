#include "app/widgets/choice_dialog.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/widgets/accessible_names.h"
#include "app/widgets/dialog_buttons.h"

namespace zentab::app {

ChoiceDialog::ChoiceDialog(const ChoiceQuestion& question, const Session& session, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("FormChoice"));
  setWindowTitle(question.title);
  auto* const layout = new QVBoxLayout(this);
  for (const Choice& choice : question.choices) {
    auto* const frame = new QGroupBox(choice.label, this);
    frame->setLayout(new QVBoxLayout);
    auto* const group = new QButtonGroup(this);
    for (std::size_t answer = 0; answer < choice.answers.size(); ++answer) {
      auto* const button = new QRadioButton(choice.answers[answer], frame);
      button->setObjectName(QStringLiteral("Choice%1_%2").arg(groups_.size() + 1).arg(answer + 1));
      button->setAccessibleName(PlainCaption(choice.answers[answer]));
      button->setAccessibleDescription(choice.label);
      group->addButton(button, static_cast<int>(answer));
      frame->layout()->addWidget(button);
    }
    if (QAbstractButton* const given = group->button(static_cast<int>(choice.given))) {
      given->setChecked(true);
      if (groups_.empty()) given->setFocus();
    }
    groups_.push_back(group);
    layout->addWidget(frame);
  }
  layout->addStretch();
  layout->addWidget(MakeDialogButtons(session, *this));
}

std::vector<std::size_t> ChoiceDialog::Answers() const {
  std::vector<std::size_t> answers;
  for (const QButtonGroup* const group : groups_) {
    answers.push_back(static_cast<std::size_t>(std::max(group->checkedId(), 0)));
  }
  return answers;
}

}  // namespace zentab::app
