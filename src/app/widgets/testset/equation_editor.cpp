#include "app/widgets/testset/equation_editor.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "app/equation_words.h"
#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/equation/equation_field.h"
#include "app/widgets/qt_text.h"
#include "editor/widgets/chart/chart_colours.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using texts::EquationStage;

// In the order of the tabs, which is that of the stages.
struct StageRow {
  EquationStage stage;
  std::string texts::WorkbenchTexts::*name;
};
constexpr StageRow kStages[] = {
    {EquationStage::Difference, &texts::WorkbenchTexts::differenceEquations},
    {EquationStage::Filter, &texts::WorkbenchTexts::filterEquations},
    {EquationStage::Value, &texts::WorkbenchTexts::valueEquations},
};
constexpr int kListRows = 5;
constexpr int kLineRoom = 4;

}  // namespace

EquationEditor::EquationEditor(const Session& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      stages_(new QTabBar(this)),
      list_(new QListWidget(this)),
      caption_(new QLabel(this)),
      field_(new EquationField(session, TimeTestVariables(session), this)),
      remark_(new QLabel(this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  BuildList();
  BuildField();
  ShowStage();
}

void EquationEditor::BuildList() {
  const texts::WorkbenchTexts& texts = session_.texts.workbench;
  auto* const label = new QLabel(ToQt(texts.equations), this);
  label->setBuddy(list_);
  stages_->setObjectName(QStringLiteral("TabStages"));
  stages_->setDrawBase(false);
  stages_->setExpanding(false);
  stages_->setAccessibleName(PlainCaption(label->text()));
  for (const StageRow& row : kStages) stages_->addTab(ToQt(texts.*row.name));
  list_->setObjectName(QStringLiteral("ListEquations"));
  list_->setAccessibleName(PlainCaption(label->text()));
  list_->setTextElideMode(Qt::ElideRight);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setMinimumHeight(kListRows * (fontMetrics().height() + kLineRoom));
  auto* const head = new QHBoxLayout;
  head->addWidget(label);
  head->addStretch(1);
  head->addWidget(stages_);
  static_cast<QVBoxLayout*>(layout())->addLayout(head);
  static_cast<QVBoxLayout*>(layout())->addWidget(list_, 1);
  connect(stages_, &QTabBar::currentChanged, this, &EquationEditor::ShowStage);
  connect(list_, &QListWidget::currentRowChanged, this, &EquationEditor::ShowEquation);
}

void EquationEditor::BuildField() {
  const texts::WorkbenchTexts& texts = session_.texts.workbench;
  field_->setObjectName(QStringLiteral("Field_equation"));
  field_->SetTakesReturn(true);
  caption_->setBuddy(field_);
  remark_->setObjectName(QStringLiteral("LabelRemark"));
  remark_->setWordWrap(true);
  remark_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  remark_->setMinimumHeight(fontMetrics().lineSpacing());
  auto* const row = new QHBoxLayout;
  row->addWidget(caption_);
  row->addWidget(field_, 1);
  auto* const buttons = new QHBoxLayout;
  const auto button = [&](const char* name, const std::string& caption) {
    auto* const made = new QPushButton(ToQt(caption), this);
    made->setObjectName(QLatin1String(name));
    made->setAutoDefault(false);
    buttons->addWidget(made);
    return made;
  };
  try_ = button("CommandTry", texts.tryIt);
  write_ = button("CommandWrite", texts.write);
  revert_ = button("CommandRevert", texts.revert);
  buttons->addStretch(1);
  auto* const content = static_cast<QVBoxLayout*>(layout());
  content->addLayout(row);
  content->addWidget(remark_);
  content->addLayout(buttons);
  const auto wanted = [this] { Q_EMIT TryWanted(Shown()); };
  connect(field_, &QLineEdit::textChanged, this, &EquationEditor::TakeText);
  connect(field_, &EquationField::Confirmed, this, wanted);
  connect(try_, &QPushButton::clicked, this, wanted);
  connect(write_, &QPushButton::clicked, this,
          [this] { Q_EMIT WriteWanted(Shown(), TextOf(Shown())); });
  connect(revert_, &QPushButton::clicked, this,
          [this] { field_->setText(ToQt(EquationOf(session_.texts.equations, Shown()))); });
}

EquationId EquationEditor::Shown() const {
  return {kStages[stages_->currentIndex()].stage,
          static_cast<std::size_t>(std::max(list_->currentRow(), 0)) + 1};
}

const std::string& EquationEditor::TextOf(EquationId equation) const {
  const auto draft = drafts_.find(equation);
  return draft != drafts_.end() ? draft->second : EquationOf(session_.texts.equations, equation);
}

bool EquationEditor::IsDraft(EquationId equation) const { return drafts_.contains(equation); }

std::string EquationEditor::NameOf(EquationId equation) const {
  const auto row = std::ranges::find(kStages, equation.stage, &StageRow::stage);
  return session_.texts.workbench.*row->name + ' ' + std::to_string(equation.number);
}

texts::EquationTexts EquationEditor::Equations() const {
  texts::EquationTexts equations = session_.texts.equations;
  const std::vector<EquationWord> variables = TimeTestVariables(session_);
  for (const auto& [equation, text] : drafts_) {
    if (CheckEquation(session_, text, variables).isFault) continue;
    equations[static_cast<std::size_t>(equation.stage)][equation.number] = text;
  }
  return equations;
}

void EquationEditor::TakeDrafts(const DraftTexts& drafts) {
  drafts_ = drafts;
  std::erase_if(drafts_, [this](const auto& draft) {
    return draft.second == EquationOf(session_.texts.equations, draft.first);
  });
  ShowStage();
}

void EquationEditor::Choose(EquationId equation) {
  const auto row = std::ranges::find(kStages, equation.stage, &StageRow::stage);
  stages_->setCurrentIndex(static_cast<int>(row - std::begin(kStages)));
  list_->setCurrentRow(static_cast<int>(equation.number) - 1);
}

void EquationEditor::ShowStage() {
  {
    const QSignalBlocker quiet(list_);
    const int row = std::max(list_->currentRow(), 0);
    list_->clear();
    for (int number = 1; number <= texts::kEquations; ++number) new QListWidgetItem(list_);
    list_->setCurrentRow(row);
  }
  for (std::size_t number = 1; number <= texts::kEquations; ++number) {
    ShowRow({Shown().stage, number});
  }
  ShowEquation();
}

void EquationEditor::ShowRow(EquationId equation) {
  QListWidgetItem* const item = list_->item(static_cast<int>(equation.number) - 1);
  const std::string& text = TextOf(equation);
  const std::string shown = text.empty() ? session_.texts.workbench.noEquation : text;
  const QString mark = QLatin1String(IsDraft(equation) ? " *" : "");
  item->setText(QStringLiteral("%1%2   %3").arg(equation.number).arg(mark, ToQt(shown)));
  item->setToolTip(ToQt(text));
  item->setForeground(palette().brush(text.empty() ? QPalette::PlaceholderText : QPalette::Text));
}

void EquationEditor::ShowEquation() {
  const QSignalBlocker quiet(field_);
  const std::string number = std::to_string(Shown().number);
  caption_->setText(ToQt(Expanded(session_, session_.texts.workbench.equation, {number})));
  field_->setAccessibleName(PlainCaption(caption_->text()));
  field_->setText(ToQt(TextOf(Shown())));
  field_->Check();
  Refresh();
}

void EquationEditor::TakeText() {
  const EquationId equation = Shown();
  const std::string text(texts::TrimBlanks(field_->text().toStdString()));
  if (text == EquationOf(session_.texts.equations, equation)) {
    drafts_.erase(equation);
  } else {
    drafts_[equation] = text;
  }
  ShowRow(equation);
  Refresh();
  Q_EMIT Changed();
}

void EquationEditor::Refresh() {
  const EquationId equation = Shown();
  const EquationRemark& remark = field_->Remark();
  const bool canBeKept = CanBeKept(TextOf(equation));
  const std::string& told =
      canBeKept || remark.isFault ? remark.text : session_.texts.workbench.cannotKeep;
  Say(ToQt(told), remark.isFault || !canBeKept);
  try_->setEnabled(!remark.isFault);
  write_->setEnabled(IsDraft(equation) && !remark.isFault && canBeKept);
  revert_->setEnabled(IsDraft(equation));
}

void EquationEditor::Say(const QString& text, bool isFailure) {
  QPalette colours = palette();
  if (isFailure) {
    colours.setColor(QPalette::WindowText, editor::FailureOn(palette().color(QPalette::Window)));
  }
  remark_->setPalette(colours);
  remark_->setText(text);
}

void EquationEditor::TakeWritten(EquationId equation, const std::string& told) {
  drafts_.erase(equation);
  ShowStage();
  Say(ToQt(told), false);
  Q_EMIT Changed();
}

void EquationEditor::TellFailure(const QString& told) { Say(told, true); }

}  // namespace zentab::app
