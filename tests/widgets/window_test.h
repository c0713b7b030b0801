#pragma once

#include <QFile>
#include <QStatusBar>
#include <utility>

#include "editor/widgets/curve_grid_view.h"
#include "widgets/window_fixture.h"

namespace zentab::app {

/// The rows of a file of tests/data, whose cells are apart by tabs.
inline QList<QStringList> RowsIn(const char* name) {
  QFile file(QLatin1String(PICTURES "/../") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) qFatal("there are no rows");
  QList<QStringList> rows;
  for (const QByteArray& row : file.readAll().trimmed().split('\n')) {
    rows += QString::fromUtf8(row).split('\t');
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
