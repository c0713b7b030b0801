#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStyledItemDelegate>
#include <string>
#include <vector>

#include "app/entry_order.h"
#include "tables/table_listing.h"

class QMimeData;

namespace zentab::app {

/// The entries that are dragged, by their places among all names; none of other data.
[[nodiscard]] std::vector<std::size_t> EntriesIn(const QMimeData& data);

/// An entry's name as one short line: a damaged file may hold a name of any length and content.
[[nodiscard]] QString ShownName(const std::string& name);

/// The names of a table file's entries, one row each, or those of them that hold a text. Those of a
/// listing tell their instruments and can be renamed and put in order as well.
class EntryListModel : public QAbstractListModel {
  Q_OBJECT

 public:
  /// The role of an entry's instrument, as an int; nothing where none is known.
  static constexpr int kInstrumentRole = Qt::UserRole;

  EntryListModel(const std::vector<std::string>& names, QObject* parent);
  EntryListModel(const tables::TableListing& listing, QObject* parent);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  /// Asked for every row whenever the list is laid out.
  [[nodiscard]] QModelIndex index(int row, int column = 0,
                                  const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  /// Only tells what was typed.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  /// Names can be dragged to where EntriesIn understands them.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  [[nodiscard]] QStringList mimeTypes() const override;
  [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;

  /// The names have changed.
  void Reload();
  /// Shows only the names that hold the text, letters compared without case; all for an empty one.
  void SetFilter(const QString& text);
  /// Shows the names in an order, now and whenever they have changed.
  void SetOrder(EntryOrder order);
  [[nodiscard]] bool IsInFileOrder() const { return order_ == EntryOrder::File; }
  /// Whether the rows are all names as the file has them.
  [[nodiscard]] bool IsWholeFile() const { return filter_.empty() && order_ == EntryOrder::File; }

  /// Called again and again while the names are looked through; events that it runs meet the rows
  /// as they were.
  void SetKeepAlive(tables::KeepAlive keepAlive) { keepAlive_ = std::move(keepAlive); }

  /// The place of a row's name among all names.
  [[nodiscard]] std::size_t EntryOf(int row) const;
  /// The row of the name at a place, or of the next one in the file that is shown; rowCount()
  /// behind the last.
  [[nodiscard]] int RowFrom(std::size_t entry) const;

 Q_SIGNALS:
  /// A name was typed for an entry, as it was shown.
  void NameTyped(const zentab::tables::EntryMark& entry, const QString& name);

 private:
  struct Rows {
    std::vector<std::size_t> shown;  // the places of the names that are shown, unless all are
    std::vector<int> rowOf;          // of each place, with an order; kNoRow where it is not shown
  };

  [[nodiscard]] Rows RowsOf(const std::string& filter, EntryOrder order) const;
  void Show(std::string filter, EntryOrder order);

  const std::vector<std::string>& names_;
  const tables::TableListing* listing_ = nullptr;
  tables::KeepAlive keepAlive_;
  std::string filter_;
  EntryOrder order_ = EntryOrder::File;
  Rows places_;
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
