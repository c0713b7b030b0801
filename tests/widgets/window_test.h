#pragma once

#include <QFile>
#include <QStatusBar>
#include <utility>

#include "editor/widgets/curve_grid_view.h"
#include "widgets/window_fixture.h"

namespace zentab::app {

/// The rows of one "[section]" of tests/data/commands.txt, split into fields at tabs; lines
/// beginning with "#" are remarks.
inline QList<QStringList> RowsIn(const char* section) {
  QFile file(QStringLiteral(PICTURES "/../commands.txt"));
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) qFatal("there are no rows");
  QList<QStringList> rows;
  const QString all = QString::fromUtf8(file.readAll());
  const QString begun = all.section(QStringLiteral("\n[%1]\n").arg(QLatin1String(section)), 1);
  for (const QString& row : begun.section(QLatin1String("\n["), 0, 0).split('\n')) {
    if (!row.isEmpty() && !row.startsWith('#')) rows += row.split('\t');
  }
  return rows;
}

/// Tests that have a window each, which their cleanup() throws away.
class WindowTest : public QObject {
 protected:
  std::unique_ptr<WindowFixture> made_;

  /// An active window; what the fixture takes goes to it.
  template <typename... Parts>
  WindowFixture& Make(Parts&&... parts) {
    made_ = std::make_unique<WindowFixture>(std::forward<Parts>(parts)...);
    made_->Activate();
    return *made_;
  }
  [[nodiscard]] editor::CurveGridView& Grid() const {
    return *made_->Find<editor::CurveGridView>("MSFlexGrid1");
  }
  [[nodiscard]] bool EditorOpen() const { return made_->Find<QWidget>("Text11")->isVisible(); }
  [[nodiscard]] QString SaidBelow() const { return made_->window->statusBar()->currentMessage(); }
  [[nodiscard]] QStringList Points() const { return made_->Points(); }
  /// "2;10|4;5"
  [[nodiscard]] QString PointRow() const { return Points().join('|').replace('\t', ';'); }
  [[nodiscard]] bool Enabled(const char* name) const {
    return made_->Find<QWidget>(name)->isEnabled();
  }
  [[nodiscard]] bool Checked(const char* name) const {
    return made_->Find<QAbstractButton>(name)->isChecked();
  }
};

}  // namespace zentab::app
