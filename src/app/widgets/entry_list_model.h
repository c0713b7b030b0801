#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStyledItemDelegate>
#include <string>
#include <vector>

namespace zentab::app {

/// An entry's name as one short line: a damaged file may hold a name of any length and content.
[[nodiscard]] QString ShownName(const std::string& name);

/// The names of the table file's entries, one row each.
class EntryListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  EntryListModel(const std::vector<std::string>& names, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  /// The names have changed.
  void Reload();

 private:
  const std::vector<std::string>& names_;
  int rows_ = 0;  // what the view was told last
};

/// Rows with room for accents above capitals.
class RoomyRows : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex&) const override;
};

}  // namespace zentab::app
