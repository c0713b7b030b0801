#include "app/widgets/testset/stage_fields.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <limits>

#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/qt_text.h"
#include "app/widgets/window_font.h"
#include "editor/widgets/chart/point_cloud.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using texts::EquationStage;

constexpr int kStageWidth = 90;
constexpr int kSwatch = 10;

std::string TimeUnit(const Session& session) {
  const texts::WorkbenchTexts& texts = session.texts.workbench;
  return session.modes.milliseconds ? texts.milliseconds : texts.seconds;
}

}  // namespace

StageFields::StageFields(const Session& session, const timetest::ImportOptions& first,
                         const StageTips& tips, QWidget* parent)
    : QWidget(parent),
      session_(session),
      first_(first),
      grid_(new QGridLayout),
      timeout_(new QLineEdit(this)) {
  const texts::WorkbenchTexts& texts = session.texts.workbench;
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(grid_);
  grid_->setColumnStretch(2, 1);
  AddRow(Measured, texts.measured, nullptr);
  timeout_->setObjectName(QStringLiteral("Field_timeout"));
  timeout_->setToolTip(ToQt(texts.timeoutTip));
  const double level =
      texts::LeadingNumber(texts::SetDecimalSeparator(first.timeout, ".")).value_or(0.0);
  timeout_->setText(ToQt(texts::NumberText(level, session.localeDecimalSeparator)));
  AddRow(Timeouts, Expanded(session, texts.timeouts, {TimeUnit(session)}), timeout_);
  connect(timeout_, &QLineEdit::textChanged, this, &StageFields::Changed);
  AddNumber(Difference, texts.difference, first.differenceType, tips.difference,
            EquationStage::Difference);
  AddNumber(Filter, texts.filter, first.filterType, tips.filter, EquationStage::Filter);
  AddNumber(Mean, texts.mean, first.meanOver, tips.mean, EquationStage::Value);
  BuildLegend();
  setFocusProxy(numbers_[static_cast<std::size_t>(EquationStage::Difference)]);
}

void StageFields::AddRow(Row row, const std::string& caption, QWidget* field) {
  auto* const label = new QLabel(ToQt(caption), this);
  grid_->addWidget(label, row, 0);
  if (field != nullptr) {
    label->setBuddy(field);
    field->setAccessibleName(PlainCaption(label->text()));
    field->setFixedWidth(static_cast<int>(kStageWidth * TextScale()));
    grid_->addWidget(field, row, 1);
  }
  effects_[row] = new QLabel(this);
  effects_[row]->setObjectName(QStringLiteral("LabelEffect%1").arg(row));
  grid_->addWidget(effects_[row], row, 2);
}

QSpinBox* StageFields::AddNumber(Row row, const std::string& caption, int number,
                                 const QString& tip, EquationStage stage) {
  static constexpr const char* kNames[] = {"Field_difference", "Field_mean", "Field_filter"};
  auto* const field = new QSpinBox(this);
  field->setObjectName(QLatin1String(kNames[static_cast<std::size_t>(stage)]));
  field->setRange(std::numeric_limits<std::int16_t>::min(),
                  std::numeric_limits<std::int16_t>::max());
  field->setValue(number);
  field->setToolTip(tip);
  AddRow(row, caption, field);
  numbers_[static_cast<std::size_t>(stage)] = field;
  connect(field, &QSpinBox::valueChanged, this, [this, stage](int chosen) {
    Q_EMIT NumberChosen(stage, chosen);
    Q_EMIT Changed();
  });
  return field;
}

void StageFields::BuildLegend() {
  using Kind = editor::PointCloud::Kind;
  const texts::WorkbenchTexts& texts = session_.texts.workbench;
  const std::pair<Kind, const std::string*> rows[] = {{Kind::Measured, &texts.measured},
                                                      {Kind::Removed, &texts.legendRemoved},
                                                      {Kind::Shaped, &texts.legendShaped}};
  auto* const legend = new QHBoxLayout;
  for (const auto& [kind, text] : rows) {
    QPixmap dot(kSwatch, kSwatch);
    dot.fill(editor::PointCloud::ColourOf(kind, palette().color(QPalette::Base),
                                          palette().color(QPalette::Text)));
    auto* const swatch = new QLabel(this);
    swatch->setPixmap(dot);
    auto* const name = new QLabel(ToQt(*text), this);
    name->setForegroundRole(QPalette::PlaceholderText);
    legend->addWidget(swatch);
    legend->addWidget(name);
    legend->addSpacing(kSwatch);
  }
  legend->addStretch(1);
  grid_->addLayout(legend, Rows, 0, 1, 3);
}

timetest::ImportOptions StageFields::Options() const {
  timetest::ImportOptions options = first_;
  options.differenceType = static_cast<std::int16_t>(NumberOf(EquationStage::Difference));
  options.filterType = static_cast<std::int16_t>(NumberOf(EquationStage::Filter));
  options.meanOver = static_cast<std::int16_t>(NumberOf(EquationStage::Value));
  const std::optional<double> timeout = texts::WholeNumber(
      texts::FileNumber(timeout_->text().toStdString(), session_.localeDecimalSeparator));
  options.timeout = timeout && *timeout >= 0.0 ? texts::NumberText(*timeout, ".") : std::string();
  return options;
}

ImportFields StageFields::Fields() const {
  const auto text = [this](EquationStage stage) { return std::to_string(NumberOf(stage)); };
  return {text(EquationStage::Difference), text(EquationStage::Filter), text(EquationStage::Value)};
}

int StageFields::NumberOf(EquationStage stage) const {
  return numbers_[static_cast<std::size_t>(stage)]->value();
}

void StageFields::SetNumber(EquationId equation) {
  numbers_[static_cast<std::size_t>(equation.stage)]->setValue(static_cast<int>(equation.number));
}

std::string StageFields::Counted(const std::string& text, std::size_t count) const {
  return Expanded(session_, text, {std::to_string(count)});
}

void StageFields::Say(Row row, const std::vector<std::string>& parts) {
  QStringList texts;
  for (const std::string& part : parts) texts += ToQt(part);
  effects_[row]->setText(texts.isEmpty() ? QStringLiteral("–") : texts.join(QStringLiteral(", ")));
}

void StageFields::ShowCount(std::size_t points) {
  const texts::WorkbenchTexts& texts = session_.texts.workbench;
  Say(Measured, {Counted(texts::ForCount(points, texts.leftOne, texts.left), points)});
}

void StageFields::ShowEffects(const timetest::ImportEffects& effects) {
  const texts::WorkbenchTexts& texts = session_.texts.workbench;
  std::array<std::vector<std::string>, Rows> said;
  const auto add = [&](Row row, const std::string& text, std::size_t count) {
    if (count > 0) said[row].push_back(Counted(text, count));
  };
  const auto failed = [&](EquationStage stage) {
    return effects.failures[static_cast<std::size_t>(stage)];
  };
  add(Timeouts, texts.removed, effects.timeouts.removed.size());
  const std::string level =
      texts::NumberText(effects.timeoutLevel, session_.localeDecimalSeparator);
  said[Timeouts].push_back(Expanded(session_, texts.levelIs, {level + ' ' + TimeUnit(session_)}));
  add(Difference, texts.noValue, failed(EquationStage::Difference));
  add(Filter, texts.removed, effects.filter.removed.size());
  add(Filter, texts.moved, effects.filter.moved);
  add(Filter, texts.noValue, failed(EquationStage::Filter));
  add(Mean, texts.moved, effects.averaged);
  add(Mean, texts.noValue, failed(EquationStage::Value));
  for (const Row row : {Timeouts, Difference, Filter, Mean}) Say(row, said[row]);
}

}  // namespace zentab::app
