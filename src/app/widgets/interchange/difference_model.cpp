#include "app/widgets/interchange/difference_model.h"

#include <algorithm>

#include "app/entry_filter.h"
#include "app/widgets/library/entry_list_model.h"

namespace zentab::app {
namespace {

// In the order of interchange::Difference.
constexpr const char* kSigns[] = {"+", "−", "~"};

}  // namespace

int DifferenceModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant DifferenceModel::data(const QModelIndex& index, int role) const {
  const interchange::EntryDifference* const difference = At(index.row());
  if (difference == nullptr) return {};
  if (role == Qt::DisplayRole) {
    return QString::fromUtf8(kSigns[static_cast<std::size_t>(difference->kind)]) +
           QStringLiteral("  ") + ShownName(difference->name);
  }
  if (role != Qt::CheckStateRole) return {};
  return isChosen_[shown_[static_cast<std::size_t>(index.row())]] ? Qt::Checked : Qt::Unchecked;
}

Qt::ItemFlags DifferenceModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractListModel::flags(index);
  return index.isValid() ? flags | Qt::ItemIsUserCheckable : flags;
}

void DifferenceModel::Choose(std::size_t place, bool isChosen) {
  if (isChosen_[place] == isChosen) return;
  isChosen_[place] = isChosen;
  isChosen ? ++chosenCount_ : --chosenCount_;
}

bool DifferenceModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || At(index.row()) == nullptr) return false;
  Choose(shown_[static_cast<std::size_t>(index.row())], value.toInt() == Qt::Checked);
  Q_EMIT dataChanged(index, index, {role});
  return true;
}

void DifferenceModel::Show(std::vector<interchange::EntryDifference> differences) {
  differences_ = std::move(differences);
  names_.clear();
  for (const interchange::EntryDifference& each : differences_) names_.push_back(each.name);
  isChosen_.assign(differences_.size(), false);
  chosenCount_ = 0;
  SetFilter({});
}

void DifferenceModel::SetFilter(const QString& text) {
  std::vector<std::size_t> shown = EntriesNamedLike(names_, text.toStdString(), {});
  beginResetModel();
  shown_ = std::move(shown);
  endResetModel();
}

void DifferenceModel::ChooseShown(bool isChosen) {
  if (shown_.empty()) return;
  for (const std::size_t place : shown_) Choose(place, isChosen);
  Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
}

Qt::CheckState DifferenceModel::ShownState() const {
  const auto chosen = std::ranges::count_if(
      shown_, [this](std::size_t place) { return static_cast<bool>(isChosen_[place]); });
  if (chosen == 0) return Qt::Unchecked;
  return chosen == std::ssize(shown_) ? Qt::Checked : Qt::PartiallyChecked;
}

std::vector<interchange::EntryDifference> DifferenceModel::Chosen() const {
  std::vector<interchange::EntryDifference> chosen;
  for (std::size_t place = 0; place < differences_.size(); ++place) {
    if (isChosen_[place]) chosen.push_back(differences_[place]);
  }
  return chosen;
}

const interchange::EntryDifference* DifferenceModel::At(int row) const {
  return row >= 0 && row < rowCount() ? &differences_[shown_[static_cast<std::size_t>(row)]]
                                      : nullptr;
}

}  // namespace zentab::app
