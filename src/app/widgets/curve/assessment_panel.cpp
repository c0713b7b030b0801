#include "app/widgets/curve/assessment_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/assessment_texts.h"
#include "app/standard_curve.h"
#include "app/widgets/qt_text.h"
#include "app/widgets/window_font.h"
#include "editor/widgets/chart/chart_colours.h"

namespace zentab::app {
namespace {

constexpr int kAssessmentColumns = static_cast<int>(AssessedRow::kNumbers) + 1;
constexpr int kLimitWidth = 56;
constexpr int kFactorsWidth = 120;
constexpr int kLeastHeight = 120;
constexpr int kUsualHeight = 230;

}  // namespace

AssessmentPanel::AssessmentPanel(const Session& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      referenceLabel_(new QLabel(this)),
      reference_(new QLabel(this)),
      verdict_(new QLabel(this)),
      table_(new QTableWidget(0, kAssessmentColumns, this)) {
  setObjectName(QStringLiteral("PanelAssessment"));
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 4, 0, 0);
  verdict_->setObjectName(QStringLiteral("LabelVerdict"));
  verdict_->setWordWrap(true);
  QFont bold = verdict_->font();
  bold.setBold(true);
  verdict_->setFont(bold);
  BuildReferenceRow();
  BuildLimitsRow();
  layout->addWidget(verdict_);
  BuildTable();
  ShowTexts();
}

QPushButton* AssessmentPanel::AddButton(const char* name, void (AssessmentPanel::*signal)()) {
  auto* const button = new QPushButton(this);
  button->setObjectName(QLatin1String(name));
  connect(button, &QPushButton::clicked, this, signal);
  buttons_[name] = button;
  return button;
}

void AssessmentPanel::BuildReferenceRow() {
  auto* const row = new QHBoxLayout;
  reference_->setObjectName(QStringLiteral("LabelReference"));
  reference_->setTextFormat(Qt::PlainText);
  // A long name gives way, not the window.
  reference_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->addWidget(referenceLabel_);
  row->addWidget(reference_, 1);
  row->addWidget(AddButton("CommandUseEntry", &AssessmentPanel::EntryWanted));
  row->addWidget(AddButton("CommandUseCurve", &AssessmentPanel::CurveWanted));
  row->addSpacing(12);
  row->addWidget(AddButton("CommandCopyAssessment", &AssessmentPanel::CopyWanted));
  row->addWidget(AddButton("CommandCloseAssessment", &AssessmentPanel::CloseWanted));
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void AssessmentPanel::BuildLimitsRow() {
  auto* const row = new QHBoxLayout;
  for (const char* const name : {"percent", "ms", "class", "factors", "load"}) {
    auto* const label = new QLabel(this);
    auto* const field = new QLineEdit(this);
    field->setObjectName(QLatin1String("Limit_") + QLatin1String(name));
    const int width = name == std::string_view("factors") ? kFactorsWidth : kLimitWidth;
    field->setMaximumWidth(static_cast<int>(width * TextScale()));
    label->setBuddy(field);
    limits_[name] = field;
    limitLabels_[name] = label;
    row->addWidget(label);
    row->addWidget(field);
    connect(field, &QLineEdit::textChanged, this, &AssessmentPanel::LimitsChanged);
    // It comes once per Enter and departure, changed or not.
    connect(field, &QLineEdit::editingFinished, this, [this, field] {
      if (field->isModified()) Q_EMIT LimitsEntered();
      field->setModified(false);
    });
  }
  row->addStretch(1);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void AssessmentPanel::BuildTable() {
  table_->setObjectName(QStringLiteral("TableAssessment"));
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setMinimumHeight(kLeastHeight);
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  connect(table_, &QTableWidget::currentCellChanged, this, [this](int row) {
    if (const QTableWidgetItem* const item = table_->verticalHeaderItem(row)) {
      Q_EMIT RowChosen(item->text().toInt());
    }
  });
  static_cast<QVBoxLayout*>(layout())->addWidget(table_, 1);
  resize(width(), kUsualHeight);
}

void AssessmentPanel::ShowTexts() {
  const texts::CurveDialogTexts& texts = session_.texts.curveDialogs;
  referenceLabel_->setText(ToQt(texts.reference));
  const std::pair<const char*, const std::string*> captions[] = {
      {"CommandUseEntry", &texts.useEntry},
      {"CommandUseCurve", &texts.useCurve},
      {"CommandCopyAssessment", &texts.copy},
      {"CommandCloseAssessment", &texts.close}};
  for (const auto& [name, text] : captions) buttons_[name]->setText(ToQt(*text));
  const std::pair<const char*, const std::string*> labels[] = {{"percent", &texts.percent},
                                                               {"ms", &texts.milliseconds},
                                                               {"class", &texts.assignedError},
                                                               {"factors", &texts.factors},
                                                               {"load", &texts.loadPercent}};
  for (const auto& [name, text] : labels) {
    limitLabels_[name]->setText(ToQt(*text));
    limits_[name]->setAccessibleName(ToQt(*text));
  }
  limits_["factors"]->setToolTip(ToQt(texts.factorsTip));
  table_->setAccessibleName(ToQt(texts.panelName));
  QStringList headings;
  for (const std::string& heading : AssessmentHeadings(session_)) headings.append(ToQt(heading));
  table_->setHorizontalHeaderLabels(headings);
  // Where there is no room for all headings the table scrolls.
  QHeaderView& header = *table_->horizontalHeader();
  int widest = 0;
  for (int column = 0; column < kAssessmentColumns; ++column) {
    widest = std::max(widest, header.sectionSizeHint(column));
  }
  header.setMinimumSectionSize(widest);
}

void AssessmentPanel::ShowReference(const std::string& name) {
  const std::string& none = session_.texts.curveDialogs.noReference;
  reference_->setText(ToQt(name.empty() ? none : name));
  reference_->setToolTip(reference_->text());
}

void AssessmentPanel::Fill(int at, const AssessedRow& row) {
  table_->setVerticalHeaderItem(at, new QTableWidgetItem(QString::number(row.row)));
  for (int column = 0; column < kAssessmentColumns; ++column) {
    const bool isVerdict = column + 1 == kAssessmentColumns;
    const std::string& text =
        isVerdict ? WordFor(row.verdict, session_) : row.numbers[static_cast<std::size_t>(column)];
    auto* const item = new QTableWidgetItem(ToQt(text));
    item->setTextAlignment((isVerdict ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    if (row.verdict == curves::Verdict::Failed) {
      item->setForeground(editor::FailureOn(palette().color(QPalette::Base)));
    } else if (row.verdict == curves::Verdict::Outside) {
      item->setForeground(palette().brush(QPalette::PlaceholderText));
    }
    table_->setItem(at, column, item);
  }
}

void AssessmentPanel::ShowResult(const GridAssessment& result) {
  const QSignalBlocker quiet(table_);
  const int chosen = table_->currentRow();
  table_->setRowCount(static_cast<int>(result.rows.size()));
  for (int at = 0; at < table_->rowCount(); ++at) {
    Fill(at, result.rows[static_cast<std::size_t>(at)]);
  }
  if (chosen >= 0 && chosen < table_->rowCount()) table_->selectRow(chosen);
  verdict_->setText(ToQt(result.verdict));
  QPalette colours = palette();
  if (!result.assessment.IsPassed()) {
    colours.setColor(QPalette::WindowText, editor::FailureOn(palette().color(QPalette::Window)));
  }
  verdict_->setPalette(colours);
}

void AssessmentPanel::ShowMessage(const std::string& text) {
  table_->setRowCount(0);
  verdict_->setPalette(palette());
  verdict_->setText(ToQt(text));
}

void AssessmentPanel::SetLimits(const FormValues& limits) {
  const QSignalBlocker quiet(this);
  for (const auto& [name, field] : limits_) field->setText(ToQt(ValueOf(limits, name)));
}

FormValues AssessmentPanel::Limits() const {
  FormValues values;
  for (const auto& [name, field] : limits_) values[name] = field->text().toStdString();
  return values;
}

}  // namespace zentab::app
