#include "app/widgets/interchange/curve_import_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <unordered_set>

#include "app/session_texts.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/interchange/found_curves_model.h"
#include "app/widgets/interchange/reading_fields.h"
#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/qt_text.h"
#include "app/widgets/window_font.h"
#include "editor/widgets/chart/preview_curve.h"
#include "platform/character_case.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr QSize kImportSize(560, 620);
constexpr int kColumnWidth = 84;
constexpr int kTableRowRoom = 6;

void MakeReadOnly(QTableView& table) {
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setSelectionMode(QAbstractItemView::SingleSelection);
  table.setTabKeyNavigation(false);
  table.setWordWrap(false);
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kTableRowRoom);
}

}  // namespace

CurveImportDialog::CurveImportDialog(const Session& session, editor::PreviewCurve& preview,
                                     QWidget* parent)
    : QDialog(parent),
      session_(session),
      preview_(preview),
      model_(new FoundCurvesModel(session, this)),
      count_(new QLabel(this)),
      outcome_(new QLabel(this)) {
  setObjectName(QStringLiteral("FormImportCurves"));
  setAttribute(Qt::WA_DeleteOnClose);
  setFont(parent->font());
  setWindowModality(Qt::WindowModal);
  auto* const layout = new QVBoxLayout(this);
  auto* const forms = new QHBoxLayout;
  layout->addLayout(forms);
  fields_ = new ReadingFields(session, *forms, this);
  // Behind the fields, where Tab comes to them.
  rows_ = new QTableWidget(this);
  curves_ = new QTableView(this);
  BuildRows(*layout);
  BuildCurves(*layout);
  outcome_->setObjectName(QStringLiteral("LabelOutcome"));
  outcome_->setWordWrap(true);
  // Two lines always: a message does not move the buttons.
  outcome_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  outcome_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  layout->addWidget(outcome_);
  BuildButtons(*layout);
  curves_->setFocus();
  connect(fields_, &ReadingFields::Changed, this, &CurveImportDialog::ChoicesChanged);
  connect(this, &QDialog::finished, this, [this] { preview_.Hide(); });
  resize(kImportSize);
}

void CurveImportDialog::BuildRows(QBoxLayout& layout) {
  auto* const label = new QLabel(ToQt(session_.texts.curveImport.rows), this);
  label->setBuddy(rows_);
  rows_->setObjectName(QStringLiteral("TableRows"));
  rows_->setAccessibleName(label->text());
  rows_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MakeReadOnly(*rows_);
  layout.addWidget(label);
  layout.addWidget(rows_, 3);
}

void CurveImportDialog::BuildCurves(QBoxLayout& layout) {
  curves_->setObjectName(QStringLiteral("TableCurves"));
  curves_->setAccessibleName(ToQt(session_.texts.curveImport.nameHeading));
  curves_->setModel(model_);
  MakeReadOnly(*curves_);
  curves_->verticalHeader()->hide();
  curves_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  curves_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  curves_->horizontalHeader()->setHighlightSections(false);
  count_->setObjectName(QStringLiteral("LabelCount"));
  connect(model_, &QAbstractItemModel::dataChanged, this, &CurveImportDialog::ShowChosen);
  connect(curves_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &CurveImportDialog::ShowCurrent);
  layout.addWidget(count_);
  layout.addWidget(curves_, 2);
}

void CurveImportDialog::BuildButtons(QBoxLayout& layout) {
  auto* const box = new QDialogButtonBox(this);
  const auto add = [&](const char* name, const std::string& caption,
                       QDialogButtonBox::ButtonRole role) {
    QPushButton* const button = box->addButton(ToQt(caption), role);
    button->setObjectName(QLatin1String(name));
    return button;
  };
  const texts::CurveImportTexts& texts = session_.texts.curveImport;
  add_ = add("CommandAdd", texts.addEntries, QDialogButtonBox::ActionRole);
  grid_ = add("CommandGrid", texts.intoGrid, QDialogButtonBox::ActionRole);
  QPushButton* const cancel =
      add("CommandCancel", session_.texts.program.cancel, QDialogButtonBox::RejectRole);
  // Enter must not choose one of two for the user.
  for (QPushButton* const button : {add_, grid_, cancel}) button->setAutoDefault(false);
  connect(add_, &QPushButton::clicked, this, &CurveImportDialog::LibraryWanted);
  connect(grid_, &QPushButton::clicked, this, &CurveImportDialog::GridWanted);
  connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout.addWidget(box);
}

interchange::ImportChoices CurveImportDialog::Choices() const { return fields_->Choices(); }

interchange::Surplus CurveImportDialog::Surplus() const { return fields_->Surplus(); }

std::vector<NamedCurve> CurveImportDialog::Chosen() const { return model_->Chosen(); }

std::optional<tables::CurveTableEntry> CurveImportDialog::CurrentEntry() const {
  const FoundCurve* const curve = model_->CurveAt(curves_->currentIndex().row());
  return curve == nullptr ? std::nullopt : curve->Entry();
}

void CurveImportDialog::ShowReading() {
  add_->setEnabled(false);
  grid_->setEnabled(false);
  outcome_->setText(ToQt(session_.texts.curveImport.reading));
}

void CurveImportDialog::Tell(const QString& text) { outcome_->setText(text); }

void CurveImportDialog::Show(std::shared_ptr<const CurveReading> reading) {
  const int row = std::max(curves_->currentIndex().row(), 0);
  fields_->Show(*reading);
  model_->Show(reading->found);
  reading_ = std::move(reading);
  const int width =
      fontMetrics().horizontalAdvance(QStringLiteral("2000000 → 26")) + 2 * kTableRowRoom;
  curves_->setColumnWidth(1, width);
  curves_->setColumnWidth(2, width);
  curves_->selectRow(std::min(row, model_->rowCount() - 1));
  ShowRows();
  ShowChosen();
}

void CurveImportDialog::ShowRows() {
  const interchange::ImportedText& text = reading_->text;
  int columns = 0;
  rows_->clear();
  rows_->setRowCount(static_cast<int>(reading_->rows.size()));
  for (const interchange::ShownRow& row : reading_->rows) {
    columns = std::max(columns, static_cast<int>(row.cells.size()));
  }
  rows_->setColumnCount(columns);
  QStringList headings;
  const bool isRead = !reading_->fault && !text.isJson;
  for (int column = 0; column < columns; ++column) {
    const QString number = QString::number(column + 1);
    const bool isLoad = isRead && static_cast<int>(text.load) == column;
    const bool isTime = isRead && static_cast<int>(text.time) == column;
    const texts::ProgramTexts& texts = session_.texts.program;
    const std::string& kind = isLoad ? texts.loadHeading : texts.timeHeading;
    headings += isLoad || isTime ? number + QLatin1String(": ") + ToQt(kind) : number;
  }
  rows_->setHorizontalHeaderLabels(headings);
  QStringList lines;
  for (int at = 0; at < rows_->rowCount(); ++at) {
    const interchange::ShownRow& row = reading_->rows[static_cast<std::size_t>(at)];
    lines += QString::number(row.line);
    for (std::size_t cell = 0; cell < row.cells.size(); ++cell) {
      rows_->setItem(at, static_cast<int>(cell), new QTableWidgetItem(ShownName(row.cells[cell])));
    }
    const bool isFaulty = reading_->fault && reading_->fault->line == row.line;
    if (isFaulty) rows_->selectRow(at);
  }
  rows_->setVerticalHeaderLabels(lines);
  rows_->horizontalHeader()->setDefaultSectionSize(static_cast<int>(kColumnWidth * TextScale()));
  rows_->horizontalHeader()->setStretchLastSection(columns == 1);
  rows_->horizontalHeader()->setVisible(columns > 1);
}

std::string CurveImportDialog::CurrentText(const FoundCurve& curve) const {
  if (const curves::Fault* const fault = curves::FaultOf(curve.table)) {
    return curves::FaultText(*fault, session_.texts.curve, session_.localeDecimalSeparator);
  }
  const auto& table = std::get<curves::ChosenPoints>(curve.table);
  const std::string kept = std::to_string(table.points.size());
  const std::string all = std::to_string(curve.pointCount);
  const texts::CurveDialogTexts& texts = session_.texts.curveDialogs;
  if (table.points.size() == curve.pointCount) return Expanded(session_, texts.count, {all});
  if (fields_->Surplus() == interchange::Surplus::Cut) {
    return Expanded(session_, session_.texts.curveImport.cutTo, {kept, all});
  }
  const std::string percent = FixedNumber(table.deviation * texts::kPercent, 2, session_);
  return Expanded(session_, texts.thinned, {kept, all, percent});
}

// Why the chosen curves cannot be entries of the library.
std::string CurveImportDialog::NameFault(const std::vector<NamedCurve>& chosen) const {
  const texts::CurveImportTexts& texts = session_.texts.curveImport;
  std::unordered_set<std::string> folded;
  std::vector<std::string> names;
  for (const NamedCurve& each : chosen) {
    if (each.name.empty()) return texts.nameMissing;
    if (!folded.insert(platform::LowerCase(each.name)).second) {
      return Expanded(session_, texts.nameTwice, {each.name});
    }
    names.push_back(each.name);
  }
  const std::optional<std::string> taken = session_.listing.FirstTaken(names);
  return taken ? Expanded(session_, texts.nameTaken, {*taken}) : std::string();
}

void CurveImportDialog::ShowChosen() {
  const std::vector<NamedCurve> chosen = model_->Chosen();
  const std::string count = std::to_string(reading_->found.size());
  const std::string marked = std::to_string(chosen.size());
  count_->setText(ToQt(Expanded(session_, session_.texts.curveImport.found, {count, marked})));
  const bool areTables = std::ranges::all_of(
      chosen, [](const NamedCurve& each) { return curves::FaultOf(each.curve->table) == nullptr; });
  nameFault_ = NameFault(chosen);
  add_->setEnabled(!chosen.empty() && areTables && nameFault_.empty());
  ShowCurrent();
}

void CurveImportDialog::ShowCurrent() {
  if (reading_ == nullptr) return;
  const std::optional<tables::CurveTableEntry> entry = CurrentEntry();
  grid_->setEnabled(entry.has_value());
  if (reading_->fault) {
    preview_.Hide();
    outcome_->setText(ToQt(interchange::FaultText(*reading_->fault, session_.texts.interchange)));
    return;
  }
  const FoundCurve* const curve = model_->CurveAt(curves_->currentIndex().row());
  std::string text = curve == nullptr ? std::string() : CurrentText(*curve);
  editor::ChartCurve shown;
  if (entry) {
    ShownEntry inChart = EntryInChart(*entry, session_);
    shown = std::move(inChart.curve);
    if (!inChart.areConverted) {
      text += "\n" + Expanded(session_, session_.texts.curveImport.ownUnits,
                              {LoadUnitOf(entry->absoluteValues, entry->instrument, session_)});
    }
  }
  preview_.Show(shown);
  outcome_->setText(ToQt(nameFault_.empty() ? text : text + "\n" + nameFault_));
}

}  // namespace zentab::app
