#pragma once

#include <QObject>
#include <QPoint>

#include "app/session.h"

namespace zentab::app {

class EntryListModel;
class EntryListView;
class ResponsiveFiles;

/// The tooltip of an entry: its instrument, the number of its points and their range. The entry's
/// line is read when the tooltip is asked for, and nobody waits for it.
class EntryTips : public QObject {
  Q_OBJECT

 public:
  EntryTips(const Session& session, ResponsiveFiles& files, EntryListView& list);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show(std::size_t entry, const QString& text);

  const Session& session_;
  ResponsiveFiles& files_;
  EntryListView& list_;
  QPoint place_;  // on the screen, where the tooltip was asked for last
};

}  // namespace zentab::app
