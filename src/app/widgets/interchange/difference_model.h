#pragma once

#include <QAbstractListModel>
#include <vector>

#include "interchange/library_comparison.h"

namespace zentab::app {

/// The differences of two libraries, or those of them whose names hold a text: a row each, with a
/// sign of its kind and a mark whether it is chosen.
class DifferenceModel : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  /// None of them is chosen at first.
  void Show(std::vector<interchange::EntryDifference> differences);
  /// Letters are compared without case; an empty text shows all.
  void SetFilter(const QString& text);
  /// Chooses all rows that are shown, or none of them.
  void ChooseShown(bool isChosen);
  [[nodiscard]] Qt::CheckState ShownState() const;

  [[nodiscard]] const std::vector<interchange::EntryDifference>& All() const {
    return differences_;
  }
  [[nodiscard]] std::vector<interchange::EntryDifference> Chosen() const;
  [[nodiscard]] std::size_t ChosenCount() const { return chosenCount_; }
  /// Null where there is no such row.
  [[nodiscard]] const interchange::EntryDifference* At(int row) const;

 private:
  void Choose(std::size_t place, bool isChosen);

  std::vector<interchange::EntryDifference> differences_;
  std::vector<std::string> names_;
  std::vector<std::size_t> shown_;  // places among the differences
  std::vector<bool> isChosen_;
  std::size_t chosenCount_ = 0;
};

}  // namespace zentab::app
