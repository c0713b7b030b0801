#include "app/widgets/chart/limits_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/widgets/dialog_buttons.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr double kRoughly = 5e-4;  // of a number that is only proposed

// The number of a field, the one of `otherwise` where it is empty; nothing for any other text.
std::optional<double> NumberIn(const QLineEdit& field, double otherwise,
                               std::string_view separator) {
  const std::string text = field.text().trimmed().toStdString();
  if (text.empty()) return otherwise;
  return texts::WholeNumber(texts::FileNumber(text, separator));
}

}  // namespace

LimitsDialog::LimitsDialog(const LimitsQuestion& question, const Session& session, QWidget* parent)
    : QDialog(parent), question_(question), session_(session) {
  setObjectName(QStringLiteral("FormLimits"));
  const texts::ChartTexts& texts = session.texts.chart;
  setWindowTitle(QString::fromStdString(texts.limitsTitle));
  auto* const grid = new QGridLayout;
  loads_ = AddRow(*grid, "TextLoad", question.loadLabel, question.limits.loads, question.loads);
  times_ = AddRow(*grid, "TextTime", question.timeLabel, question.limits.times, question.times);
  auto* const hint = new QLabel(QString::fromStdString(texts.limitsHint), this);
  hint->setForegroundRole(QPalette::PlaceholderText);
  QDialogButtonBox* const buttons = MakeDialogButtons(session, *this);
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  for (const QLineEdit* const field : {loads_.from, loads_.to, times_.from, times_.to}) {
    connect(field, &QLineEdit::textChanged, this,
            [this, ok] { ok->setEnabled(Limits().has_value()); });
  }
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(hint);
  layout->addWidget(buttons);
}

LimitsDialog::Fields LimitsDialog::AddRow(QGridLayout& grid, const char* name, const QString& label,
                                          const std::optional<editor::Range>& limits,
                                          const editor::Range& inView) {
  const int row = grid.rowCount();
  const auto number = [this](double value, double tolerance) {
    return QString::fromStdString(
        texts::ShortText(value, tolerance, session_.localeDecimalSeparator));
  };
  const auto add = [&](const char* end, int column, const QString& caption, double proposed) {
    auto* const field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name) + QLatin1String(end));
    // A number is read whole in the smallest dialog.
    field->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    field->setPlaceholderText(number(proposed, std::abs(proposed) * kRoughly));
    field->setAccessibleName(caption.contains(label) ? caption : label + ' ' + caption);
    field->setAccessibleDescription(windowTitle());
    auto* const said = new QLabel(caption, this);
    said->setBuddy(field);
    grid.addWidget(said, row, column);
    grid.addWidget(field, row, column + 1);
    return field;
  };
  const texts::ChartTexts& texts = session_.texts.chart;
  const QString from = QString::fromStdString(texts.limitsFrom).replace(QLatin1String("%1"), label);
  const Fields fields{add("From", 0, from, inView.minimum),
                      add("To", 2, QString::fromStdString(texts.limitsTo), inView.maximum)};
  if (limits) {
    fields.from->setText(number(limits->minimum, 0.0));
    fields.to->setText(number(limits->maximum, 0.0));
  }
  return fields;
}

bool LimitsDialog::Read(const Fields& fields, const editor::Range& inView, bool logarithmic,
                        std::optional<editor::Range>& limits) const {
  if (fields.from->text().trimmed().isEmpty() && fields.to->text().trimmed().isEmpty()) return true;
  const std::string& separator = session_.localeDecimalSeparator;
  const std::optional<double> from = NumberIn(*fields.from, inView.minimum, separator);
  const std::optional<double> to = NumberIn(*fields.to, inView.maximum, separator);
  if (!from || !to || !(*from < *to) || (logarithmic && !(*from > 0.0))) return false;
  limits = editor::Range{*from, *to};
  return true;
}

std::optional<AxisLimits> LimitsDialog::Limits() const {
  AxisLimits limits;
  const bool areAnswers = Read(loads_, question_.loads, question_.logarithmic.load, limits.loads) &&
                          Read(times_, question_.times, question_.logarithmic.time, limits.times);
  return areAnswers ? std::optional(limits) : std::nullopt;
}

}  // namespace zentab::app
