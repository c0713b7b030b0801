#pragma once

#include <QAbstractListModel>
#include <QString>
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

}  // namespace zentab::app
