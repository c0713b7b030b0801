#include "app/widgets/library/entry_tips.h"

#include <QCursor>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

#include "app/entry_summary.h"
#include "app/library_commands.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/library/entry_list_view.h"
#include "platform/file_reader.h"
#include "texts/line_encoding.h"

namespace zentab::app {
namespace {

struct ReadLine {
  std::string text;  // UTF-8
  bool isRead = false;
};

}  // namespace

EntryTips::EntryTips(const Session& session, ResponsiveFiles& files, EntryListView& list)
    : QObject(&list), session_(session), files_(files), list_(list) {
  list.viewport()->installEventFilter(this);
}

bool EntryTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const QModelIndex index = list_.indexAt(help.pos());
  const auto* const model = static_cast<const EntryListModel*>(list_.model());
  if (!index.isValid() || files_.IsAtWork()) return QObject::eventFilter(watched, event);
  place_ = help.globalPos();
  const std::size_t entry = model->EntryOf(index.row());
  const std::size_t line = session_.listing.LineOf(entry);
  if (line >= session_.listing.lines.size()) return true;
  const tables::LineMark mark = session_.listing.lines[line];
  files_.Quietly(
      [place = PlaceOf(session_), mark, end = session_.listing.EndOf(line),
       stamp = session_.listing.stamp](platform::FileLayer& files) {
        ReadLine read;
        platform::FileReader reader(files, ActiveTableFile(files, place));
        std::string bytes;
        // What has changed since is told once the list shows it.
        read.isRead =
            !reader.Error() && reader.Stamp() == stamp && !reader.Read(mark.offset, end, bytes);
        bytes.resize(bytes.find_last_not_of("\r\n") + 1);
        read.isRead = read.isRead && tables::HashOf(bytes) == mark.hash;
        if (read.isRead) read.text = texts::DecodeLine(bytes);
        return read;
      },
      [this, entry, asked = place_](const ReadLine& read) {
        const std::vector<std::string>& names = session_.listing.names;
        if (!read.isRead || entry >= names.size() || asked != place_) return;
        const std::string name = ShownName(names[entry]).toStdString();
        Show(entry, QString::fromStdString(SummaryOf(session_, name, read.text)));
      });
  return true;
}

// Whoever points at something else by now has not asked for this.
void EntryTips::Show(std::size_t entry, const QString& text) {
  const QPoint pointed = list_.viewport()->mapFromGlobal(place_);
  const QModelIndex index = list_.indexAt(pointed);
  const auto* const model = static_cast<const EntryListModel*>(list_.model());
  if (!index.isValid() || model->EntryOf(index.row()) != entry) return;
  QToolTip::showText(place_, Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal), list_.viewport(),
                     list_.visualRect(index));
}

}  // namespace zentab::app
