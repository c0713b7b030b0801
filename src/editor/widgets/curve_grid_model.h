#pragma once

#include <QAbstractTableModel>

#include "editor/curve_grid.h"

namespace zentab::editor {

/// The points of a CurveGrid for a table view: its rows 1..26 and columns 1..2 are the view's
/// rows 0..25 and columns 0..1; headings and row numbers are the view's headers.
class CurveGridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  CurveGridModel(const CurveGrid& grid, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  /// One cell of the grid has a new text; no cell outside the points does.
  void ShowCell(int row, int column);
  /// All of them and the headings have.
  void ShowAll();

 private:
  const CurveGrid& grid_;
};

}  // namespace zentab::editor
