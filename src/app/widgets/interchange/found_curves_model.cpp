#include "app/widgets/interchange/found_curves_model.h"

#include <map>

#include "app/session_texts.h"
#include "app/widgets/library/entry_list_model.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

constexpr int kNameColumn = 0;
constexpr int kPointsColumn = 1;
constexpr int kFoundColumns = 3;

}  // namespace

FoundCurvesModel::FoundCurvesModel(const Session& session, QObject* parent)
    : QAbstractTableModel(parent), session_(session) {}

int FoundCurvesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int FoundCurvesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kFoundColumns;
}

QString FoundCurvesModel::Text(const Row& row, int column) const {
  const FoundCurve& curve = *row.curve;
  if (column == kNameColumn) return ShownName(row.name);
  const auto* const table = std::get_if<curves::ChosenPoints>(&curve.table);
  QString count = QString::number(curve.pointCount);
  if (column == kPointsColumn) {
    if (table == nullptr || table->points.size() == curve.pointCount) return count;
    return QStringLiteral("%1 → %2").arg(count).arg(table->points.size());
  }
  if (table == nullptr) return QString::fromStdString(session_.texts.curveImport.noTable);
  if (table->points.size() == curve.pointCount || table->deviation == 0.0) return {};
  return QString::fromStdString(FixedNumber(table->deviation * texts::kPercent, 2, session_) +
                                " %");
}

QVariant FoundCurvesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  const bool isName = index.column() == kNameColumn;
  if (role == Qt::EditRole && isName) return QString::fromStdString(row.name);
  if (role == Qt::DisplayRole) return Text(row, index.column());
  if (role == Qt::CheckStateRole && isName) return row.isChosen ? Qt::Checked : Qt::Unchecked;
  if (role == Qt::TextAlignmentRole && !isName) return int{Qt::AlignRight | Qt::AlignVCenter};
  return {};
}

QVariant FoundCurvesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  const texts::CurveImportTexts& texts = session_.texts.curveImport;
  const std::string* const captions[kFoundColumns] = {&texts.nameHeading, &texts.pointsHeading,
                                                      &texts.deviationHeading};
  return QString::fromStdString(*captions[section]);
}

Qt::ItemFlags FoundCurvesModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (index.column() != kNameColumn) return flags;
  return flags | Qt::ItemIsUserCheckable | Qt::ItemIsEditable;
}

bool FoundCurvesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || index.column() != kNameColumn) return false;
  Row& row = rows_[static_cast<std::size_t>(index.row())];
  if (role == Qt::CheckStateRole) row.isChosen = value.toInt() == Qt::Checked;
  if (role == Qt::EditRole) row.name = value.toString().trimmed().toStdString();
  Q_EMIT dataChanged(index, index, {role});
  return true;
}

void FoundCurvesModel::Show(const std::vector<FoundCurve>& found) {
  std::map<std::string, Row> former;
  for (Row& row : rows_) former.emplace(row.curve->name, std::move(row));
  beginResetModel();
  rows_.clear();
  for (const FoundCurve& curve : found) {
    const auto known = former.find(curve.name);
    const bool isKnown = known != former.end();
    rows_.push_back(
        {&curve, isKnown ? known->second.name : curve.name, !isKnown || known->second.isChosen});
  }
  endResetModel();
}

std::vector<NamedCurve> FoundCurvesModel::Chosen() const {
  std::vector<NamedCurve> chosen;
  for (const Row& row : rows_) {
    if (row.isChosen) chosen.push_back({row.name, row.curve});
  }
  return chosen;
}

const FoundCurve* FoundCurvesModel::CurveAt(int row) const {
  return row >= 0 && row < rowCount() ? rows_[static_cast<std::size_t>(row)].curve : nullptr;
}

}  // namespace zentab::app
