// The CPU time of editing: a character typed into a cell, leaving the cell with Enter, and a step
// back in a history of 10,000, each with everything that has to be drawn for it. The window keeps
// its recovery file meanwhile.

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <cmath>
#include <ctime>

#include "app/widgets/main_window.h"
#include "app/widgets/qt_user_dialogs.h"
#include "editor/grid_points.h"
#include "editor/widgets/curve_grid_view.h"
#include "platform/paths.h"

namespace {

using namespace zentab;

struct OpenWindow {
  QTemporaryDir recovery;
  app::Session session;
  std::unique_ptr<platform::SettingsStore> store = platform::UserSettingsStore();
  app::QtUserDialogs dialogs{session};
  std::unique_ptr<app::MainWindow> window;
  editor::CurveGridView* grid = nullptr;

  OpenWindow() {
    session.localeDecimalSeparator = ".";
    for (int row = 1; row <= editor::kLastRow; ++row) {
      session.table.grid.SetCell(row, 1, std::to_string(1 + row));
      session.table.grid.SetCell(row, 2, std::to_string(std::lround(30000.0 / row)));
    }
    window = std::make_unique<app::MainWindow>(app::MainWindowParts{session,
                                                                    {},
                                                                    "Zentab",
                                                                    *store,
                                                                    platform::SystemFiles(),
                                                                    dialogs,
                                                                    platform::ExecutablePath(),
                                                                    recovery.path().toStdString()});
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

// The Enter key that leaves a cell whose time was changed and brings the chart up to date.
void EnterAfterChange(benchmark::State& state) {
  const OpenWindow open;
  const auto row = static_cast<int>(state.range(0));
  const QModelIndex cell = open.grid->model()->index(row - 1, 1);
  bool back = false;
  for (auto _ : state) {
    open.grid->setCurrentIndex(cell);
    open.grid->GridEdit(editor::kOpenWithText);
    back ? Press(Qt::Key_Backspace, {}) : Press(Qt::Key_5, QStringLiteral("5"));
    back = !back;
    const std::clock_t begin = std::clock();
    Press(Qt::Key_Return, QStringLiteral("\r"));
    state.SetIterationTime(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
  }
}

// There and back again at the end of a long history. The limit is 5 ms for each of the two.
void UndoAndRedo(benchmark::State& state) {
  const OpenWindow open;
  for (int step = 0; step < 10'000; ++step) {
    open.grid->GridEdit(editor::kOpenWithText);
    open.grid->InsertIntoText(QStringLiteral("5"));
    open.grid->GridEdit(editor::kOpenWithText);
    open.grid->ReplaceText(QString::number(step), editor::EditStep::Typing);
  }
  open.grid->CloseEditor();
  bool back = false;
  for (auto _ : state) {
    open.window->findChild<QAction*>(back ? QStringLiteral("m_redo") : QStringLiteral("m_undo"))
        ->trigger();
    back = !back;
    QApplication::processEvents();
  }
}

}  // namespace

BENCHMARK(UndoAndRedo)->Unit(benchmark::kMicrosecond)->MinTime(0.5);
BENCHMARK(TypeCharacter)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(EnterAfterChange)
    ->Name("EnterAfterChange/inside_the_axes")
    ->Arg(13)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime()
    ->MinTime(0.5);
BENCHMARK(EnterAfterChange)
    ->Name("EnterAfterChange/axes_change")
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime()
    ->MinTime(0.5);

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
