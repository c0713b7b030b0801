#include "app/widgets/entry_list_model.h"

namespace zentab::app {
namespace {

constexpr qsizetype kLongestShown = 200;

}  // namespace

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

QVariant EntryListModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (row >= names_.size() || role != Qt::DisplayRole) return {};
  return ShownName(names_[row]);
}

void EntryListModel::Reload() {
  beginResetModel();
  rows_ = static_cast<int>(names_.size());
  endResetModel();
}

QSize RoomyRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + 6};
}

}  // namespace zentab::app
