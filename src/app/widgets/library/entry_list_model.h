#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStyledItemDelegate>
#include <string>
#include <vector>

#include "tables/table_listing.h"

class QMimeData;

namespace zentab::app {

/// The entries that are dragged, by their places among all names; none of other data.
[[nodiscard]] std::vector<std::size_t> EntriesIn(const QMimeData& data);

/// An entry's name as one short line: a damaged file may hold a name of any length and content.
[[nodiscard]] QString ShownName(const std::string& name);

/// The names of a table file's entries, one row each, or those of them that hold a text.
class EntryListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  EntryListModel(const std::vector<std::string>& names, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  /// Asked for every row whenever the list is laid out.
  [[nodiscard]] QModelIndex index(int row, int column = 0,
                                  const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  /// Names can be dragged to where EntriesIn understands them.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QStringList mimeTypes() const override;
  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;

  /// The names have changed.
  void Reload();
  /// Shows only the names that hold the text, letters compared without case; all for an empty one.
  void SetFilter(const QString& text);

  /// Called again and again while the names are looked through; events that it runs meet the rows
  /// as they were.
  void SetKeepAlive(tables::KeepAlive keepAlive) { keepAlive_ = std::move(keepAlive); }

  /// The place of a row's name among all names.
  [[nodiscard]] std::size_t EntryOf(int row) const;
  /// The row of the name at a place, or of the next one that is shown; rowCount() behind the last.
  [[nodiscard]] int RowFrom(std::size_t entry) const;

 private:
  void Show(std::string filter);

  const std::vector<std::string>& names_;
  tables::KeepAlive keepAlive_;
  std::string filter_;
  std::vector<std::size_t> shown_;  // with a filter, the places of the names that are shown
  int rows_ = 0;                    // what the view was told last
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
