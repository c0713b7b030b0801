#pragma once

#include <QAbstractTableModel>

#include <vector>

#include "editor/curve_grid.h"
#include "editor/point_checks.h"

namespace zentab::editor {

/// The points of a CurveGrid for a table view: its rows 1..26 and columns 1..2 are the view's
/// rows 0..25 and columns 0..1; headings and row numbers are the view's headers. What is wrong with
/// a cell is its tooltip, and a screen reader is told the row, the column and the text.
class CurveGridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// Whether something is wrong with a cell, as a bool.
  static constexpr int kFaultRole = Qt::UserRole;

  CurveGridModel(const CurveGrid& grid, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

  /// What cells are called and what is wrong with them, in words that outlive the model.
  void SetWords(const texts::PointTexts& words);
  /// These cells are at fault now, and no others.
  void ShowFaults(std::vector<CellFault> faults);

  /// What the field for a cell's text is called.
  [[nodiscard]] QString FieldName(int row, int column) const;

  /// One cell of the grid has a new text; no cell outside the points does.
  void ShowCell(int row, int column);
  /// All of them and the headings have.
  void ShowAll();

 private:
  [[nodiscard]] bool IsAtFault(int row, int column) const;
  [[nodiscard]] QString FaultWords(int row, int column) const;
  [[nodiscard]] QString SpokenCell(int row, int column) const;

  const CurveGrid& grid_;
  const texts::PointTexts* words_;
  std::vector<CellFault> faults_;
};

}  // namespace zentab::editor
