// The CPU time of editing: a character typed into a cell, leaving the cell with Enter, and a step
// back in a history of 10,000, each with everything that has to be drawn for it. The window keeps
// its recovery file meanwhile. Then a frame of what the mouse does in the chart with 50 further
// curves in it; the limit is 8 ms.

#include <benchmark/benchmark.h>

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <cmath>
#include <ctime>

#include "app/widgets/chart/overlay_controller.h"
#include "app/widgets/main_window.h"
#include "app/widgets/qt_user_dialogs.h"
#include "bench/speed_reporter.h"
#include "editor/grid_points.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/curve_grid_view.h"
#include "platform/paths.h"

namespace {

using namespace zentab;

constexpr double kFrameLimit = 8.0;  // ms

struct OpenWindow {
  QTemporaryDir recovery;
  app::Session session;
  std::unique_ptr<platform::SettingsStore> store = platform::UserSettingsStore();
  app::QtUserDialogs dialogs{session};
  std::unique_ptr<app::MainWindow> window;
  editor::CurveGridView* grid = nullptr;

  /// With so many further curves in the chart.
  explicit OpenWindow(int overlays = 0) {
    session.localeDecimalSeparator = ".";
    if (overlays > 0) session.tablePath = WriteCurves(overlays).toStdString();
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
    for (int curve = 0; curve < overlays; ++curve) {
      window->findChild<app::OverlayController*>()->AddEntries({static_cast<std::size_t>(curve)});
    }
    QApplication::processEvents();
  }

 private:
  // A table file of curves of 26 points.
  [[nodiscard]] QString WriteCurves(int count) const {
    QFile file(recovery.filePath(QStringLiteral("curves.dat")));
    if (!file.open(QIODevice::WriteOnly)) std::abort();
    for (int curve = 0; curve < count; ++curve) {
      QByteArray line = "{\"Curve " + QByteArray::number(curve) + "\"\t";
      for (int row = 1; row <= editor::kLastRow; ++row) {
        line += '(' + QByteArray::number(1 + row) + ';' +
                QByteArray::number((30000.0 + 400.0 * curve) / row) + ')';
      }
      file.write(line + " 001}\r\n");
    }
    return file.fileName();
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

// The Enter key that leaves a cell whose time was changed and brings the chart up to date, and the
// assessment where its panel is open.
void EnterAfterChange(benchmark::State& state) {
  const auto assessed = state.range(1) != 0;
  const OpenWindow open(assessed ? 1 : 0);
  if (assessed) {
    auto& list = *open.window->findChild<QListView*>(QStringLiteral("List1"));
    list.setCurrentIndex(list.model()->index(0, 0));
    open.window->findChild<QAction*>(QStringLiteral("m_assess"))->trigger();
    if (open.window->findChild<QTableWidget*>()->rowCount() == 0) std::abort();
  }
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
  state.counters["most ms"] = 5.0;
}

void MoveMouse(QWidget& chart, const QPointF& place, Qt::MouseButtons buttons) {
  QMouseEvent move(QEvent::MouseMove, place, chart.mapToGlobal(place), Qt::NoButton, buttons, {});
  QApplication::sendEvent(&chart, &move);
  QApplication::sendPostedEvents();
  QApplication::processEvents();
}

void CrosshairFrame(benchmark::State& state) {
  const OpenWindow open(static_cast<int>(state.range(0)));
  auto& chart = *open.window->findChild<editor::CurveChart*>();
  QApplication::processEvents();
  const QRect area = chart.axisRect()->rect();
  int place = 0;
  for (auto _ : state) {
    place = (place + 7) % area.width();
    MoveMouse(chart, QPointF(area.left() + place, area.center().y()), Qt::NoButton);
  }
  state.counters["most ms"] = kFrameLimit;
}

// The view, moved up and down by the mouse.
void PanFrame(benchmark::State& state) {
  const OpenWindow open(static_cast<int>(state.range(0)));
  auto& chart = *open.window->findChild<editor::CurveChart*>();
  QApplication::processEvents();
  const QRectF area(chart.axisRect()->rect());
  const QPointF place = area.bottomLeft() + QPointF(20, -60);
  QMouseEvent press(QEvent::MouseButtonPress, place, chart.mapToGlobal(place), Qt::LeftButton,
                    Qt::LeftButton, {});
  QApplication::sendEvent(&chart, &press);
  int step = 0;
  for (auto _ : state) {
    step = (step + 3) % 50;
    MoveMouse(chart, place + QPointF(step, step - 25), Qt::LeftButton);
  }
  state.counters["most ms"] = kFrameLimit;
}

// The view, made larger and smaller by the wheel.
void ZoomFrame(benchmark::State& state) {
  const OpenWindow open(static_cast<int>(state.range(0)));
  auto& chart = *open.window->findChild<editor::CurveChart*>();
  QApplication::processEvents();
  const QPointF place(chart.axisRect()->rect().center());
  bool back = false;
  for (auto _ : state) {
    QWheelEvent turn(place, chart.mapToGlobal(place), {}, QPoint(0, back ? -120 : 120),
                     Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&chart, &turn);
    QApplication::sendPostedEvents();
    QApplication::processEvents();
    back = !back;
  }
  state.counters["most ms"] = kFrameLimit;
}

// The point in the middle of the curve, dragged up and down; with the panel of differences, too.
void DragFrame(benchmark::State& state) {
  const OpenWindow open(static_cast<int>(state.range(0)));
  auto& chart = *open.window->findChild<editor::CurveChart*>();
  if (state.range(1) != 0) {
    open.window->findChild<QAction*>(QStringLiteral("m_difference"))->trigger();
  }
  QApplication::processEvents();
  const editor::ChartPoint& point = chart.Curve().points.at(12);
  const QPointF place(chart.xAxis->coordToPixel(point.load), chart.yAxis->coordToPixel(point.time));
  QMouseEvent press(QEvent::MouseButtonPress, place, chart.mapToGlobal(place), Qt::LeftButton,
                    Qt::LeftButton, {});
  QApplication::sendEvent(&chart, &press);
  int step = 0;
  for (auto _ : state) {
    step = (step + 3) % 100;
    MoveMouse(chart, place + QPointF(0, step - 50), Qt::LeftButton);
  }
  state.counters["most ms"] = kFrameLimit;
}

}  // namespace

BENCHMARK(CrosshairFrame)->Arg(50)->Unit(benchmark::kMicrosecond)->MinTime(0.5);
BENCHMARK(DragFrame)
    ->ArgNames({"overlays", "differences"})
    ->Args({0, 0})
    ->Args({50, 0})
    ->Args({50, 1})
    ->Unit(benchmark::kMicrosecond)
    ->MinTime(0.5);
BENCHMARK(UndoAndRedo)->Unit(benchmark::kMicrosecond)->MinTime(0.5);
BENCHMARK(TypeCharacter)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(PanFrame)->Arg(50)->Unit(benchmark::kMicrosecond)->MinTime(0.5);
BENCHMARK(ZoomFrame)->Arg(50)->Unit(benchmark::kMicrosecond)->MinTime(0.5);
// Row 13 lies inside the axes, row 1 changes them.
BENCHMARK(EnterAfterChange)
    ->ArgNames({"row", "assessed"})
    ->ArgsProduct({{13, 1}, {0, 1}})
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime()
    ->MinTime(0.5);

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  return bench::RunBenchmarks(argc, argv);
}
