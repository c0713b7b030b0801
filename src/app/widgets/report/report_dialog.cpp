#include "app/widgets/report/report_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

namespace zentab::app {
namespace {

constexpr QSize kReportSize(640, 360);
constexpr int kSpace = 12;

template <class Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QLatin1String(name));
  return control;
}

QLabel* LabelOf(QWidget* control, const std::string& caption, QWidget* parent) {
  auto* const label = new QLabel(QString::fromStdString(caption), parent);
  label->setBuddy(control);
  return label;
}

}  // namespace

ReportDialog::ReportDialog(const Choice& choice, const texts::CatalogueTexts& texts,
                           const ReportSettings& settings, QWidget* parent)
    : QDialog(parent),
      hasAssessment_(choice.hasAssessment),
      withAssessment_(settings.withAssessment),
      entries_(choice.names, nullptr) {
  entries_.Reload();
  setObjectName(QStringLiteral("FormReport"));
  setWindowTitle(QString::fromStdString(texts.output.heading));
  resize(kReportSize);
  auto* const panels = new QHBoxLayout;
  panels->setSpacing(2 * kSpace);
  panels->addWidget(BuildChoice(choice, texts.output), 1);
  panels->addWidget(BuildSettings(texts.output, settings), 1);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(kSpace, kSpace, kSpace, kSpace);
  layout->setSpacing(kSpace);
  layout->addLayout(panels, 1);
  layout->addLayout(BuildButtons(texts));
  Refresh();
}

QWidget* ReportDialog::BuildChoice(const Choice& choice, const texts::OutputTexts& texts) {
  auto* const place = new QWidget(this);
  grid_ = Named(new QRadioButton(QString::fromStdString(texts.gridTable), place), "OptionGrid");
  library_ = Named(new QRadioButton(QString::fromStdString(texts.entries), place), "OptionEntries");
  list_ = Named(new QListView(place), "ListEntries");
  list_->setModel(&entries_);
  list_->setItemDelegate(new RoomyRows(list_));
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->setUniformItemSizes(true);
  list_->setTextElideMode(Qt::ElideRight);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setAccessibleName(library_->text().remove('&'));
  grid_->setEnabled(choice.hasTable);
  library_->setEnabled(!choice.names.empty());
  (choice.hasTable ? grid_ : library_)->setChecked(true);
  connect(grid_, &QRadioButton::toggled, this, &ReportDialog::Refresh);
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ReportDialog::Refresh);
  auto* const layout = new QVBoxLayout(place);
  layout->setContentsMargins({});
  layout->addWidget(grid_);
  layout->addWidget(library_);
  layout->addWidget(list_, 1);
  return place;
}

QWidget* ReportDialog::BuildSettings(const texts::OutputTexts& texts,
                                     const ReportSettings& settings) {
  auto* const place = new QWidget(this);
  header_ = Named(new QPlainTextEdit(place), "TextHeader");
  header_->setTabChangesFocus(true);
  header_->setLineWrapMode(QPlainTextEdit::NoWrap);
  // Room for all lines and a bar below them.
  header_->setFixedHeight(static_cast<int>(kMostHeaderLines + 2) *
                          header_->fontMetrics().lineSpacing());
  QStringList lines;
  for (const std::string& line : settings.headerLines) lines += QString::fromStdString(line);
  header_->setPlainText(lines.join('\n'));
  paper_ = Named(new QComboBox(place), "ComboPaper");
  paper_->addItems({QStringLiteral("A4"), QString::fromStdString(texts.letter)});
  paper_->setCurrentIndex(static_cast<int>(settings.paper));
  assessment_ =
      Named(new QCheckBox(QString::fromStdString(texts.withAssessment), place), "CheckAssessment");
  connect(assessment_, &QCheckBox::clicked, this, [this](bool on) { withAssessment_ = on; });
  auto* const layout = new QVBoxLayout(place);
  layout->setContentsMargins({});
  layout->addWidget(LabelOf(header_, texts.headerLines, place));
  layout->addWidget(header_);
  auto* const paper = new QHBoxLayout;
  paper->addWidget(LabelOf(paper_, texts.paper, place));
  paper->addWidget(paper_, 1);
  layout->addLayout(paper);
  layout->addWidget(assessment_);
  layout->addStretch(1);
  return place;
}

QLayout* ReportDialog::BuildButtons(const texts::CatalogueTexts& texts) {
  struct Row {
    const char* name;
    const std::string& caption;
    void (ReportDialog::*wanted)();
  };
  const Row rows[] = {{"CommandPreview", texts.output.preview, &ReportDialog::PreviewWanted},
                      {"CommandSave", texts.output.savePdf, &ReportDialog::SaveWanted},
                      {"CommandPrint", texts.output.print, &ReportDialog::PrintWanted}};
  auto* const layout = new QHBoxLayout;
  layout->addStretch(1);
  for (const Row& row : rows) {
    auto* const button =
        Named(new QPushButton(QString::fromStdString(row.caption), this), row.name);
    connect(button, &QPushButton::clicked, this, row.wanted);
    outputs_.push_back(button);
    layout->addWidget(button);
  }
  outputs_.back()->setDefault(true);
  auto* const close =
      Named(new QPushButton(QString::fromStdString(texts.program.close), this), "CommandClose");
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  layout->addWidget(close);
  return layout;
}

std::vector<std::size_t> ReportDialog::Entries() const {
  std::vector<std::size_t> places;
  if (IsOnGrid()) return places;
  for (const QModelIndex& index : list_->selectionModel()->selectedRows()) {
    places.push_back(entries_.EntryOf(index.row()));
  }
  // In the order of the list, whatever was clicked first.
  std::sort(places.begin(), places.end());
  return places;
}

bool ReportDialog::IsOnGrid() const { return grid_->isChecked(); }

ReportSettings ReportDialog::Settings() const {
  return {HeaderLines(header_->toPlainText().toStdString()),
          static_cast<Paper>(paper_->currentIndex()), withAssessment_};
}

void ReportDialog::Refresh() {
  list_->setEnabled(!IsOnGrid());
  const bool canAssess = IsOnGrid() && hasAssessment_;
  assessment_->setEnabled(canAssess);
  assessment_->setChecked(canAssess && withAssessment_);
  const bool hasContent = IsOnGrid() ? grid_->isEnabled() : list_->selectionModel()->hasSelection();
  for (QPushButton* const button : outputs_) button->setEnabled(hasContent);
}

}  // namespace zentab::app
