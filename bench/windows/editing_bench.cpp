// The CPU time of editing: a character typed into a cell, and leaving the cell with Enter, each
// with everything that has to be drawn for it.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>

#include "app/widgets/main_window.h"
#include "app/widgets/qt_user_dialogs.h"
#include "editor/grid_points.h"
#include "editor/widgets/curve_grid_view.h"

namespace {

using namespace zentab;

struct OpenWindow {
  app::Session session;
  std::unique_ptr<platform::SettingsStore> store = platform::UserSettingsStore();
  app::QtUserDialogs dialogs;
  std::unique_ptr<app::MainWindow> window;
  editor::CurveGridView* grid = nullptr;

  OpenWindow() {
    session.localeDecimalSeparator = ".";
    for (int row = 1; row <= editor::kLastRow; ++row) {
      session.table.grid.SetCell(row, 1, std::to_string(1 + row));
      session.table.grid.SetCell(row, 2, std::to_string(30.0 / row));
    }
    window = std::make_unique<app::MainWindow>(app::MainWindowParts{
        session, {}, "Zentab", *store, platform::SystemFiles(), dialogs});
    window->Load();
    window->show();
    grid = window->findChild<editor::CurveGridView*>();
    window->activateWindow();
    QApplication::processEvents();
    grid->setFocus();
    grid->GridEdit(editor::kOpenWithText);
    QApplication::processEvents();
  }
};

void Press(Qt::Key key, const QString& text) {
  QWidget* const field = QApplication::focusWidget();
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QApplication::sendEvent(field, &press);
  // All of the drawing that the key leads to.
  QApplication::sendPostedEvents();
  QApplication::processEvents();
}

void TypeCharacter(benchmark::State& state) {
  const OpenWindow open;
  bool back = false;
  for (auto _ : state) {
    back ? Press(Qt::Key_Backspace, {}) : Press(Qt::Key_5, QStringLiteral("5"));
    back = !back;
  }
}

void ChangePointAndLeaveWithEnter(benchmark::State& state) {
  const OpenWindow open;
  bool back = false;
  for (auto _ : state) {
    back ? Press(Qt::Key_Backspace, {}) : Press(Qt::Key_5, QStringLiteral("5"));
    Press(Qt::Key_Return, QStringLiteral("\r"));
    if (open.session.table.grid.Row() == editor::kLastRow) {
      // The walk starts over, now taking away what it added.
      open.grid->setCurrentIndex(open.grid->model()->index(0, 0));
      open.grid->GridEdit(editor::kOpenWithText);
      back = !back;
    }
  }
}

}  // namespace

BENCHMARK(TypeCharacter)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(ChangePointAndLeaveWithEnter)->Unit(benchmark::kMicrosecond)->MinTime(1.0);

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
