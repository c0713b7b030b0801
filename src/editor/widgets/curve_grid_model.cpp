#include "editor/widgets/curve_grid_model.h"

namespace zentab::editor {
namespace {

// More than any column has room for. Pasted by mistake, a text of megabytes would be laid out
// again with every repaint.
constexpr std::size_t kLongestShown = 1000;

}  // namespace

CurveGridModel::CurveGridModel(const CurveGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {}

int CurveGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kLastRow - kFirstRow + 1;
}

int CurveGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kTimeColumn - kLoadColumn + 1;
}

QVariant CurveGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) {
    const std::string& cell = grid_.Cell(index.row() + kFirstRow, index.column() + kLoadColumn);
    return QString::fromStdString(cell.substr(0, kLongestShown));
  }
  if (role == Qt::TextAlignmentRole) return int{Qt::AlignRight | Qt::AlignVCenter};
  return {};
}

QVariant CurveGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool columns = orientation == Qt::Horizontal;
  const int sections = columns ? columnCount() : rowCount();
  if (role != Qt::DisplayRole || section < 0 || section >= sections) return {};
  return QString::fromStdString(columns ? grid_.Cell(0, section + kLoadColumn)
                                        : grid_.Cell(section + kFirstRow, 0));
}

void CurveGridModel::ShowCell(int row, int column) {
  const QModelIndex cell = index(row - kFirstRow, column - kLoadColumn);
  if (cell.isValid()) Q_EMIT dataChanged(cell, cell, {Qt::DisplayRole});
}

void CurveGridModel::ShowAll() {
  Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::DisplayRole});
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

}  // namespace zentab::editor
