#include <QListView>
#include <QMenu>
#include <QScreen>
#include <QWheelEvent>
#include <functional>
#include <vector>

#include "widgets/chart_fixture.h"

namespace zentab::app {
namespace {

// Where the screen shows something else than the window would draw now, once nothing asks for a
// drawing any more; an empty rectangle where it shows the same. A part that is drawn alone may
// have its antialiased edges a shade off.
QRect StaleIn(QWidget& window) {
  // A plot that is drawn may ask for another drawing.
  for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
  const QImage shown = window.screen()->grabWindow(window.winId()).toImage();
  for (auto* const plot : window.findChildren<QCustomPlot*>()) {
    if (plot->isVisible()) plot->replot(QCustomPlot::rpImmediateRefresh);
  }
  const QImage drawn = window.grab().toImage();
  if (shown.size() != drawn.size()) return drawn.rect();
  const auto areAlike = [](QRgb one, QRgb other) {
    constexpr int kShade = 26;
    return std::abs(qRed(one) - qRed(other)) < kShade &&
           std::abs(qGreen(one) - qGreen(other)) < kShade &&
           std::abs(qBlue(one) - qBlue(other)) < kShade;
  };
  QRect stale;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      if (!areAlike(shown.pixel(x, y), drawn.pixel(x, y))) stale |= QRect(x, y, 1, 1);
    }
  }
  return stale;
}

// Whatever a command changes is on the screen afterwards, without anyone who moves the mouse.
class RedrawTest : public ChartFixture {
  Q_OBJECT

 private:
  struct Step {
    const char* what;
    std::function<void()> take;
  };
  // Takes each step, and compares the screen with the window drawn anew.
  void Watch(const std::vector<Step>& steps) {
    QWidget& window = *made_->window;
    for (const auto& [what, take] : steps) {
      const QImage before = window.grab().toImage();
      take();
      const QRect stale = StaleIn(window);
      QVERIFY2(stale.isEmpty(), qPrintable(QStringLiteral("%1: %2 × %3 at %4, %5")
                                               .arg(QLatin1String(what))
                                               .arg(stale.width())
                                               .arg(stale.height())
                                               .arg(stale.x())
                                               .arg(stale.y())));
      // A step that changes nothing would test nothing.
      QVERIFY2(window.grab().toImage() != before, what);
    }
  }
  void Trigger(const char* action) {
    auto* const found = made_->Find<QAction>(action);
    if (found == nullptr) qFatal("there is no %s", action);
    found->trigger();
  }
  // The wheel, above a place of the chart.
  void Turn(const QPointF& place, int angle = 120) {
    QWheelEvent wheel(place, Chart().mapToGlobal(place), {}, {0, angle}, {}, {}, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&Chart(), &wheel);
  }
  void Type(int row, int column, const char* text) {
    auto& grid = *made_->Find<editor::CurveGridView>("MSFlexGrid1");
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(row - 1, column - 1));
    QTest::keyClicks(&grid, QLatin1String(text));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }

 private Q_SLOTS:
  void initTestCase() {
    // It blinks: what is on the screen would be a matter of time.
    QApplication::setCursorFlashTime(0);
  }
  void cleanup() {
    made_.reset();
    QApplication::setPalette(QPalette());
  }

  void TheTable() {
    WindowFixture& f = Start();
    auto& grid = *f.Find<editor::CurveGridView>("MSFlexGrid1");
    Watch({
        {"a time", [&] { Type(2, 2, "4.5"); }},
        {"a load", [&] { Type(4, 1, "40"); }},
        {"a point more", [&] { Type(5, 1, "50"), Type(5, 2, "1"); }},
        {"undo", [&] { Trigger("m_undo"); }},
        {"redo", [&] { Trigger("m_redo"); }},
        {"a marked row", [&] { grid.setCurrentIndex(grid.model()->index(1, 0)); }},
        {"another cell", [&] { grid.setCurrentIndex(grid.model()->index(2, 1)); }},
        {"many cells", [&] { grid.selectAll(); }},
        {"the focus goes", [&] { f.Find<QListView>("List1")->setFocus(); }},
        {"the focus comes", [&] { grid.setFocus(); }},
        {"milliseconds", [&] { f.Click("Check1"); }},
        {"a size", [&] { f.window->resize(1100, 760); }},
        {"another entry", [&] { f.session.table.tableModified = false, f.Select(1); }},
        {"its curve", [&] { f.Click("Command1"); }},
        {"a curve without axes", [&] { f.session.table.tableModified = false, Read(2); }},
        {"an empty table", [&] { f.Click("Command9"); }},
    });
  }
  void TheChart() {
    Start();
    const QPointF point = PlaceOf(4, 5);
    Watch({
        {"the crosshair", [&] { MoveTo(point); }},
        {"the crosshair moves", [&] { MoveTo(point + QPointF(60, 9)); }},
        {"a row above the grid", [&] { HoverRow(3); }},
        {"another row", [&] { HoverRow(1); }},
        {"a key in the chart", [&] { Key(Qt::Key_Home); }},
        {"a marker", [&] { Key(Qt::Key_A); }},
        {"the other marker", [&] { Key(Qt::Key_Right), Key(Qt::Key_Right), Key(Qt::Key_B); }},
        {"no markers", [&] { Key(Qt::Key_Backspace); }},
        {"no crosshair", [&] { Key(Qt::Key_Escape); }},
        {"a zoom", [&] { Turn(point); }},
        {"the whole curve", [&] { Trigger("m_fit"); }},
        {"a held point",
         [&] {
           Mouse(QEvent::MouseButtonPress, PlaceOf(8, 3), Qt::LeftButton);
           MoveTo(PlaceOf(8, 3) + QPointF(9, -50), Qt::LeftButton);
         }},
        {"taken back", [&] { QTest::keyClick(&Chart(), Qt::Key_Escape); }},
    });
  }
  void TheView() {
    WindowFixture& f = Start();
    const QPointF point = PlaceOf(4, 5);
    Watch({
        {"linear loads", [&] { Trigger("m_logload"); }},
        {"linear times", [&] { Trigger("m_logtime"); }},
        {"the pickup", [&] { f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5")); }},
        {"a view from further off", [&] { Turn(point, -120), Turn(point, -120); }},
        {"without its line", [&] { Trigger("m_pickup"); }},
        {"with its line", [&] { Trigger("m_pickup"); }},
        {"loads in amperes", [&] { Trigger("m_unitabs"); }},
        {"logarithms again", [&] { Trigger("m_logload"), Trigger("m_logtime"); }},
        {"square decades", [&] { Trigger("m_square"); }},
    });
  }
  void WhatIsCompared() {
    Start();
    Watch({
        {"a curve beside it", [&] { DropEntries({0}); }},
        {"the difference", [&] { Trigger("m_difference"); }},
        {"an edit above it", [&] { Type(1, 2, "12"); }},
        {"a zoom above it", [&] { Turn(PlaceOf(4, 5)); }},
        {"dark colours above it", [&] { Trigger("m_coldark"); }},
        {"no difference", [&] { Trigger("m_difference"); }},
        {"the assessment", [&] { Trigger("m_assess"); }},
        {"an assessed edit", [&] { Type(2, 2, "2.5"); }},
        {"no assessment", [&] { Trigger("m_assess"); }},
        {"nothing compared", [&] { Trigger("m_cmpnone"); }},
        {"light colours", [&] { Trigger("m_collight"); }},
    });
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::RedrawTest)
#include "redraw_test.moc"
