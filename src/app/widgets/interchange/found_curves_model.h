#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "app/curve_text.h"

namespace zentab::app {

/// The curves of a text of another program, a row each: a name that can be changed, with a mark
/// whether the curve is chosen, the number of its points, and how far a table deviates from them.
class FoundCurvesModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  FoundCurvesModel(const Session& session, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  /// Shows other curves; names and marks stay where the curves' proposed names do.
  void Show(const std::vector<FoundCurve>& found);

  /// The chosen curves under the names that they have now.
  [[nodiscard]] std::vector<NamedCurve> Chosen() const;
  [[nodiscard]] const FoundCurve* CurveAt(int row) const;

 private:
  struct Row {
    const FoundCurve* curve;
    std::string name;
    bool isChosen;
  };

  [[nodiscard]] QString Text(const Row& row, int column) const;

  const Session& session_;
  std::vector<Row> rows_;
};

}  // namespace zentab::app
