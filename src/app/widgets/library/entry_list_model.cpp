#include "app/widgets/library/entry_list_model.h"

#include <QMimeData>
#include <QRandomGenerator>
#include <algorithm>

#include "app/entry_filter.h"

namespace zentab::app {
namespace {

constexpr qsizetype kLongestShown = 200;
constexpr int kNoRow = -1;

// Places mean nothing in the list of another window, which is that of another process.
const QString& EntriesType() {
  static const QString type = QStringLiteral("application/x-zentab-entries-%1")
                                  .arg(QRandomGenerator::global()->generate64(), 0, 16);
  return type;
}

}  // namespace

std::vector<std::size_t> EntriesIn(const QMimeData& data) {
  std::vector<std::size_t> entries;
  for (const QByteArray& place : data.data(EntriesType()).split(' ')) {
    bool isNumber = false;
    const auto entry = place.toULongLong(&isNumber);
    if (isNumber) entries.push_back(static_cast<std::size_t>(entry));
  }
  return entries;
}

QString ShownName(const std::string& name) {
  const auto length = std::min<std::size_t>(name.size(), 4 * kLongestShown);
  QString text = QString::fromUtf8(name.data(), static_cast<qsizetype>(length));
  if (text.size() > kLongestShown) {
    text.truncate(kLongestShown);
    text.append(QChar(0x2026));
  }
  for (QChar& character : text) {
    if (!character.isPrint() && !character.isSurrogate()) character = QChar(0x00B7);
  }
  return text;
}

EntryListModel::EntryListModel(const std::vector<std::string>& names, QObject* parent)
    : QAbstractListModel(parent), names_(names) {}

EntryListModel::EntryListModel(const tables::TableListing& listing, QObject* parent)
    : EntryListModel(listing.names, parent) {
  listing_ = &listing;
}

int EntryListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QModelIndex EntryListModel::index(int row, int column, const QModelIndex& parent) const {
  const bool isRow = row >= 0 && row < rows_ && column == 0 && !parent.isValid();
  return isRow ? createIndex(row, column) : QModelIndex();
}

QVariant EntryListModel::data(const QModelIndex& index, int role) const {
  // Views ask for their current row also when there is none, as Ctrl+C does in an empty list.
  if (!index.isValid() || index.row() >= rows_) return {};
  const std::size_t entry = EntryOf(index.row());
  if (entry >= names_.size()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ShownName(names_[entry]);
    case Qt::EditRole:
      return QString::fromStdString(names_[entry]);
    case kInstrumentRole:
      if (listing_ == nullptr || entry >= listing_->instruments.size()) return {};
      return static_cast<int>(listing_->instruments[entry]);
    default:
      return {};
  }
}

bool EntryListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid() || index.row() >= rows_) return false;
  const std::size_t entry = EntryOf(index.row());
  const QString name = value.toString();
  const bool isKnown = listing_ != nullptr && entry < names_.size();
  if (!isKnown || name == QString::fromStdString(names_[entry])) return false;
  Q_EMIT NameTyped(listing_->MarkOfName(entry), name);
  return false;
}

Qt::ItemFlags EntryListModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractListModel::flags(index);
  if (!index.isValid()) return flags;
  flags |= Qt::ItemIsDragEnabled;
  return listing_ == nullptr ? flags : flags | Qt::ItemIsEditable;
}

QStringList EntryListModel::mimeTypes() const { return {EntriesType()}; }

QMimeData* EntryListModel::mimeData(const QModelIndexList& indexes) const {
  QByteArrayList places;
  for (const QModelIndex& place : indexes) places += QByteArray::number(EntryOf(place.row()));
  auto* const dragged = new QMimeData;
  dragged->setData(EntriesType(), places.join(' '));
  return dragged;
}

void EntryListModel::Reload() { Show(filter_, order_); }

void EntryListModel::SetFilter(const QString& text) { Show(text.toStdString(), order_); }

void EntryListModel::SetOrder(EntryOrder order) { Show(filter_, order); }

EntryListModel::Rows EntryListModel::RowsOf(const std::string& filter, EntryOrder order) const {
  Rows rows;
  if (!filter.empty()) rows.shown = EntriesNamedLike(names_, filter, keepAlive_);
  if (order == EntryOrder::File) return rows;
  std::vector<bool> isShown(names_.size(), filter.empty());
  for (const std::size_t place : rows.shown) isShown[place] = true;
  rows.shown = PlacesInOrder(order, *listing_, keepAlive_);
  std::erase_if(rows.shown, [&isShown](std::size_t place) { return !isShown[place]; });
  rows.rowOf.assign(names_.size(), kNoRow);
  for (std::size_t row = 0; row < rows.shown.size(); ++row) {
    rows.rowOf[rows.shown[row]] = static_cast<int>(row);
  }
  return rows;
}

void EntryListModel::Show(std::string filter, EntryOrder order) {
  Rows rows = RowsOf(filter, order);
  beginResetModel();
  filter_ = std::move(filter);
  order_ = order;
  places_ = std::move(rows);
  rows_ = static_cast<int>(IsWholeFile() ? names_.size() : places_.shown.size());
  endResetModel();
}

std::size_t EntryListModel::EntryOf(int row) const {
  const auto place = static_cast<std::size_t>(row);
  return IsWholeFile() ? place : places_.shown[place];
}

int EntryListModel::RowFrom(std::size_t entry) const {
  if (IsWholeFile()) return static_cast<int>(std::min<std::size_t>(entry, names_.size()));
  const std::vector<std::size_t>& shown = places_.shown;
  if (order_ == EntryOrder::File) {
    return static_cast<int>(std::lower_bound(shown.begin(), shown.end(), entry) - shown.begin());
  }
  const std::vector<int>& rows = places_.rowOf;
  if (entry >= rows.size()) return static_cast<int>(shown.size());
  const auto found = std::find_if(rows.begin() + static_cast<std::ptrdiff_t>(entry), rows.end(),
                                  [](int row) { return row != kNoRow; });
  return found == rows.end() ? static_cast<int>(shown.size()) : *found;
}

QSize RoomyRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + 6};
}

}  // namespace zentab::app
