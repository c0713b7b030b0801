#include "app/widgets/window_title.h"

#include <QMainWindow>

#include "platform/paths.h"

namespace zentab::app {

WindowTitle::WindowTitle(const Session& session, QMainWindow& window)
    : QObject(&window), session_(session), window_(window) {}

void WindowTitle::Refresh() {
  const bool isModified = session_.table.tableModified;
  // Whoever has set another title since has set the window's own.
  if (window_.windowTitle() != shown_) own_ = window_.windowTitle();
  const std::string file = platform::ToText(platform::ToPath(session_.tablePath).filename());
  QString name = QString::fromStdString(file);
  // A name may hold what stands for the mark.
  name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
  const QString shown =
      file.empty() ? own_ + QLatin1String("[*]") : QStringLiteral("%1 – %2[*]").arg(own_, name);
  if (std::exchange(shown_, shown) != shown || window_.windowTitle() != shown) {
    window_.setWindowTitle(shown);
  }
  if (window_.isWindowModified() != isModified) window_.setWindowModified(isModified);
}

}  // namespace zentab::app
