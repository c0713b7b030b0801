#include "editor/widgets/curve_grid_model.h"

#include <algorithm>
#include <utility>

#include "texts/template_text.h"

namespace zentab::editor {
namespace {

// More than any column has room for. Pasted by mistake, a text of megabytes would be laid out
// again with every repaint.
constexpr std::size_t kLongestShown = 1000;

const texts::PointTexts& UsualWords() {
  static const texts::PointTexts words;
  return words;
}

bool Concerns(const CellFault& fault, int row, int column) {
  return fault.row == row && fault.column == column;
}

}  // namespace

CurveGridModel::CurveGridModel(const CurveGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), words_(&UsualWords()) {}

int CurveGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kLastRow - kFirstRow + 1;
}

int CurveGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kTimeColumn - kLoadColumn + 1;
}

QVariant CurveGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const int row = index.row() + kFirstRow;
  const int column = index.column() + kLoadColumn;
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(grid_.Cell(row, column).substr(0, kLongestShown));
    case Qt::TextAlignmentRole:
      return int{Qt::AlignRight | Qt::AlignVCenter};
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return IsAtFault(row, column) ? FaultWords(row, column) : QVariant();
    case Qt::AccessibleTextRole:
      return SpokenCell(row, column);
    case kFaultRole:
      return IsAtFault(row, column);
    default:
      return {};
  }
}

bool CurveGridModel::IsAtFault(int row, int column) const {
  return std::any_of(faults_.begin(), faults_.end(), [row, column](const CellFault& fault) {
    return Concerns(fault, row, column);
  });
}

QString CurveGridModel::FaultWords(int row, int column) const {
  const std::string cell = grid_.Cell(row, column).substr(0, kLongestShown);
  QStringList lines;
  for (const CellFault& fault : faults_) {
    if (!Concerns(fault, row, column)) continue;
    lines.append(QString::fromStdString(FaultText(*words_, fault, cell)));
  }
  return lines.join('\n');
}

QString CurveGridModel::SpokenCell(int row, int column) const {
  const std::string cell = grid_.Cell(row, column).substr(0, kLongestShown);
  const std::string& spoken = column == kLoadColumn ? words_->loadCell : words_->timeCell;
  return QString::fromStdString(texts::ExpandTemplate(
      spoken, {}, {grid_.Cell(row, 0), cell.empty() ? words_->emptyCell : cell}));
}

QString CurveGridModel::FieldName(int row, int column) const {
  const std::string& name = column == kLoadColumn ? words_->loadField : words_->timeField;
  return QString::fromStdString(texts::ExpandTemplate(name, {}, {grid_.Cell(row, 0)}));
}

void CurveGridModel::SetWords(const texts::PointTexts& words) { words_ = &words; }

void CurveGridModel::ShowFaults(std::vector<CellFault> faults) {
  if (faults == faults_) return;
  const std::vector<CellFault> before = std::exchange(faults_, std::move(faults));
  const auto has = [](const std::vector<CellFault>& all, const CellFault& fault) {
    return std::find(all.begin(), all.end(), fault) != all.end();
  };
  const auto show = [this](const CellFault& fault) {
    const QModelIndex cell = index(fault.row - kFirstRow, fault.column - kLoadColumn);
    Q_EMIT dataChanged(cell, cell, {kFaultRole, Qt::ToolTipRole, Qt::AccessibleDescriptionRole});
  };
  for (const CellFault& fault : before) {
    if (!has(faults_, fault)) show(fault);
  }
  for (const CellFault& fault : faults_) {
    if (!has(before, fault)) show(fault);
  }
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
