#pragma once

#include <QMouseEvent>
#include <QTest>
#include <memory>

#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/curve_legend.h"
#include "editor/widgets/chart/text_box.h"
#include "widgets/window_test.h"

namespace zentab::app {

/// A window whose chart is worked with by mouse and keys, on three entries.
class ChartFixture : public WindowTest {
 protected:
  WindowFixture& Start() {
    Make(
        "{\"SI\"\t(2;10)(4;5)(8;3)(16;2) 001}\r\n"
        "{\"Amperes\"\t(10;9000)(20;4000)(80;2500) 111}\r\n"
        "{\"Zero\"\t(0;10)(4;5) 001}\r\n");
    made_->window->resize(1240, 820);
    Read(0);
    made_->Find<QLineEdit>("Text2")->clear();
    return *made_;
  }
  void Read(int row) {
    made_->session.table.tableModified = false;
    made_->Select(row);
    made_->Click("Command1");
    QCoreApplication::processEvents();
    Chart().replot();
  }
  [[nodiscard]] editor::CurveChart& Chart() const {
    return *made_->Find<editor::CurveChart>("MSChart1");
  }
  void Choose(const char* action) {
    auto* const found = made_->Find<QAction>(action);
    if (found == nullptr) qFatal("there is no %s", action);
    found->trigger();
    QCoreApplication::processEvents();
    Chart().replot();
  }
  // "loads from..to, times from..to" in view, as the axes are labelled with three digits.
  [[nodiscard]] QString View() const {
    const auto range = [](const QCPAxis& axis) {
      return QStringLiteral("%1..%2")
          .arg(axis.range().lower, 0, 'g', 3)
          .arg(axis.range().upper, 0, 'g', 3);
    };
    return range(*Chart().xAxis) + ' ' + range(*Chart().yAxis);
  }
  [[nodiscard]] QString Kinds() const {
    const editor::AxisKinds kinds = Chart().Kinds();
    return QLatin1String(kinds.load ? "log" : "lin") + '/' +
           QLatin1String(kinds.time ? "log" : "lin");
  }
  [[nodiscard]] QPointF PlaceOf(double load, double time) const {
    return {Chart().xAxis->coordToPixel(load), Chart().yAxis->coordToPixel(time)};
  }
  void MoveTo(const QPointF& place, Qt::MouseButtons buttons = Qt::NoButton,
              Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent move(QEvent::MouseMove, place, Chart().mapToGlobal(place), Qt::NoButton, buttons,
                     modifiers);
    QCoreApplication::sendEvent(&Chart(), &move);
    QCoreApplication::processEvents();
  }
  // A row of 1..26 of the grid, whose place is above or on it.
  void HoverRow(int row) {
    auto& grid = Grid();
    const QPointF place = grid.visualRect(grid.model()->index(row - 1, 0)).center();
    QMouseEvent move(QEvent::MouseMove, place, grid.viewport()->mapToGlobal(place), Qt::NoButton,
                     Qt::NoButton, {});
    QCoreApplication::sendEvent(grid.viewport(), &move);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    Chart().setFocus();
    QTest::keyClick(&Chart(), key, modifiers);
    QCoreApplication::processEvents();
  }
  // What the crosshair says; nothing while it is not shown.
  [[nodiscard]] QString Reads(const char* box = "CrossText") const {
    auto* const shown = made_->Find<editor::TextBox>(box);
    if (shown->isHidden()) return {};
    QStringList rows;
    for (const QStringList& row : shown->Rows()) rows.append(row.join(QStringLiteral(" | ")));
    return rows.join(QStringLiteral("; "));
  }
  // The point with the ring around it and the row that is lit up: 0 for none.
  [[nodiscard]] QString Lit() const {
    const auto* const ring = made_->Find<QWidget>("PointRing");
    const auto* const light = made_->Find<QWidget>("RowLight");
    auto& grid = Grid();
    int point = 0;
    for (const editor::ChartPoint& each : Chart().Curve().points) {
      const QLineF way(ring->geometry().center(), PlaceOf(each.load, each.time));
      if (!ring->isHidden() && way.length() < 2) point = each.row;
    }
    const int row = light->isHidden() ? 0 : grid.rowAt(light->geometry().center().y()) + 1;
    return QStringLiteral("%1 %2").arg(point).arg(row);
  }
  // From one place of the chart to another, with the left button.
  void DragBy(const QPointF& from, const QPointF& way, Qt::KeyboardModifiers modifiers = {}) {
    Mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (const double part : {0.3, 0.7, 1.0}) MoveTo(from + way * part, Qt::LeftButton, modifiers);
    Mouse(QEvent::MouseButtonRelease, from + way, Qt::NoButton);
    Chart().replot();
  }
  void Mouse(QEvent::Type type, const QPointF& place, Qt::MouseButtons buttons) {
    QMouseEvent event(type, place, Chart().mapToGlobal(place), Qt::LeftButton, buttons, {});
    QCoreApplication::sendEvent(&Chart(), &event);
    QCoreApplication::processEvents();
  }
  void DoubleClick(const QPointF& place) {
    Mouse(QEvent::MouseButtonPress, place, Qt::LeftButton);
    Mouse(QEvent::MouseButtonRelease, place, Qt::NoButton);
    Mouse(QEvent::MouseButtonDblClick, place, Qt::LeftButton);
    Mouse(QEvent::MouseButtonRelease, place, Qt::NoButton);
    Chart().replot();
  }
  // The legend, "+" for what is shown, "-" for what is switched off or cannot be.
  [[nodiscard]] QString Legend() const {
    const auto& legend = *made_->Find<editor::CurveLegend>("ListLegend");
    if (legend.isHidden()) return {};
    QStringList rows;
    for (int row = 0; row < legend.model()->rowCount(); ++row) {
      const QModelIndex index = legend.model()->index(row, 0);
      const bool isOff = row > 0 && index.data(Qt::CheckStateRole).toInt() == Qt::Unchecked;
      rows.append((isOff ? '-' : '+') + index.data().toString());
    }
    return rows.join('|');
  }
  void DropEntries(std::initializer_list<int> rows) {
    made_->DragEntries(rows, *Chart().parentWidget(), {20, 20});
    Chart().replot();
  }
  [[nodiscard]] double DecadeRatio() const {
    const auto decade = [](const QCPAxis& axis) {
      return std::abs(axis.coordToPixel(10) - axis.coordToPixel(1));
    };
    return decade(*Chart().xAxis) / decade(*Chart().yAxis);
  }
};

}  // namespace zentab::app
