#include "app/widgets/library/entry_list_model.h"

#include <QMimeData>
#include <algorithm>

#include "app/entry_filter.h"

namespace zentab::app {
namespace {

constexpr qsizetype kLongestShown = 200;

const QString& EntriesType() {
  static const QString type = QStringLiteral("application/x-zentab-entries");
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
  if (text.size() > kLongestShown || length < name.size()) {
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

int EntryListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

QModelIndex EntryListModel::index(int row, int column, const QModelIndex& parent) const {
  const bool isRow = row >= 0 && row < rows_ && column == 0 && !parent.isValid();
  return isRow ? createIndex(row, column) : QModelIndex();
}

QVariant EntryListModel::data(const QModelIndex& index, int role) const {
  // Views ask for their current row also when there is none, as Ctrl+C does in an empty list.
  if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rows_) return {};
  const std::size_t entry = EntryOf(index.row());
  if (entry >= names_.size()) return {};
  return ShownName(names_[entry]);
}

Qt::ItemFlags EntryListModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractListModel::flags(index);
  return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

QStringList EntryListModel::mimeTypes() const { return {EntriesType()}; }

QMimeData* EntryListModel::mimeData(const QModelIndexList& indexes) const {
  QByteArrayList places;
  for (const QModelIndex& place : indexes) places += QByteArray::number(EntryOf(place.row()));
  auto* const dragged = new QMimeData;
  dragged->setData(EntriesType(), places.join(' '));
  return dragged;
}

void EntryListModel::Reload() { Show(filter_); }

void EntryListModel::SetFilter(const QString& text) { Show(text.toStdString()); }

void EntryListModel::Show(std::string filter) {
  std::vector<std::size_t> shown;
  if (!filter.empty()) shown = EntriesNamedLike(names_, filter, keepAlive_);
  beginResetModel();
  filter_ = std::move(filter);
  shown_ = std::move(shown);
  rows_ = static_cast<int>(filter_.empty() ? names_.size() : shown_.size());
  endResetModel();
}

std::size_t EntryListModel::EntryOf(int row) const {
  const auto place = static_cast<std::size_t>(row);
  return filter_.empty() ? place : shown_[place];
}

int EntryListModel::RowFrom(std::size_t entry) const {
  if (filter_.empty()) return static_cast<int>(std::min<std::size_t>(entry, names_.size()));
  const auto found = std::lower_bound(shown_.begin(), shown_.end(), entry);
  return static_cast<int>(found - shown_.begin());
}

QSize RoomyRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + 6};
}

}  // namespace zentab::app
