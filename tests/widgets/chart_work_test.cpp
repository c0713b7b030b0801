#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <set>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/curve_legend.h"
#include "editor/widgets/chart/difference_panel.h"
#include "editor/widgets/chart/overlay_style.h"
#include "editor/widgets/chart/text_box.h"
#include "editor/widgets/curve_grid_view.h"
#include "widgets/window_fixture.h"

namespace zentab::app {
namespace {

using editor::CurveChart;

const QByteArray kLibrary =
    "{\"SI\"\t(2;10)(4;5)(8;3)(16;2) 001}\r\n"
    "{\"Amperes\"\t(10;9000)(20;4000)(80;2500) 111}\r\n"
    "{\"Zero\"\t(0;10)(4;5) 001}\r\n";

// Works with the chart of the window by mouse and keys.
class ChartWorkTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<WindowFixture> made_;

  WindowFixture& Start() {
    made_ = std::make_unique<WindowFixture>(kLibrary);
    made_->window->resize(1240, 820);
    made_->window->activateWindow();
    if (!QTest::qWaitForWindowActive(made_->window.get())) qFatal("the window stays inactive");
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
  [[nodiscard]] CurveChart& Chart() const { return *made_->Find<CurveChart>("MSChart1"); }
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
    auto& grid = *made_->Find<editor::CurveGridView>("MSFlexGrid1");
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
    auto& grid = *made_->Find<editor::CurveGridView>("MSFlexGrid1");
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
  // The points of the grid, "load;time|load;time".
  [[nodiscard]] QString Points() const {
    QString rows = QString::fromStdString(
        editor::BlockText(made_->session.table.grid, {1, 1, editor::kLastRow, 2}));
    while (rows.endsWith('\t') || rows.endsWith('\r')) rows.chop(1);
    return rows.replace('\t', ';').replace('\r', '|');
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
  void DropEntries(const QByteArray& places) {
    QMimeData data;
    data.setData(QStringLiteral("application/x-zentab-entries"), places);
    QWidget& place = *Chart().parentWidget();
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&place, &enter);
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&place, &drop);
    Chart().replot();
  }
  [[nodiscard]] double DecadeRatio() const {
    const auto decade = [](const QCPAxis& axis) {
      return std::abs(axis.coordToPixel(10) - axis.coordToPixel(1));
    };
    return decade(*Chart().xAxis) / decade(*Chart().yAxis);
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void EachAxisIsLogarithmicByItself() {
    Start();
    const struct {
      const char* action;
      const char* kinds;
      const char* kindsAtZero;
      bool both;
    } cases[] = {
        {"m_logload", "lin/log", "lin/log", false}, {"m_logtime", "lin/lin", "lin/lin", false},
        {"m_log", "log/log", "lin/lin", true},      {"m_logtime", "log/lin", "lin/lin", false},
        {"m_logtime", "log/log", "lin/lin", true},
    };
    for (const auto& [action, kinds, kindsAtZero, both] : cases) {
      Choose(action);
      QCOMPARE(Kinds(), QLatin1String(kinds));
      QCOMPARE(made_->Find<QAction>("m_log")->isChecked(), both);
      Read(2);
      QCOMPARE(Kinds(), QLatin1String(kindsAtZero));
      Read(0);
    }
  }

  void LimitsByHandAreKeptForTheFileInTheUnitsOfItsTables() {
    WindowFixture& f = Start();
    const QString whole = View();
    Choose("m_limits");
    QCOMPARE(View(), whole);
    f.dialogs.limits = AxisLimits{editor::Range{1, 40}, editor::Range{1, 20}};
    Choose("m_limits");
    QCOMPARE(View(), QStringLiteral("1..40 1..20"));
    Read(1);
    QVERIFY2(View().endsWith(QStringLiteral(" 1e+03..2e+04")), qPrintable(View()));
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    QCOMPARE(View(), QStringLiteral("5..200 1e+03..2e+04"));
    // A curve is never outside of the view.
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("1000"));
    QVERIFY(View().startsWith(QStringLiteral("8.8")));
    f.window.reset();
    f.Open();
    Read(0);
    QCOMPARE(View(), QStringLiteral("1..40 1..20"));
    f.Write("other.dat", kLibrary);
    f.dialogs.file = f.Path("other.dat");
    Choose("m_act");
    QCOMPARE(View(), whole);
  }

  void DecadesStaySquareWhateverTheWindowsSize() {
    WindowFixture& f = Start();
    QVERIFY(std::abs(DecadeRatio() - 1.0) > 0.05);
    Choose("m_square");
    for (const QSize& size : {QSize(1240, 820), QSize(1400, 700), QSize(1100, 900)}) {
      f.window->resize(size);
      QCoreApplication::processEvents();
      Chart().replot();
      QVERIFY2(std::abs(DecadeRatio() - 1.0) < 0.01, qPrintable(QString::number(DecadeRatio())));
      QVERIFY(Chart().xAxis->range().contains(2) && Chart().xAxis->range().contains(16));
      QVERIFY(Chart().yAxis->range().contains(2) && Chart().yAxis->range().contains(10));
    }
    Choose("m_log");
    Choose("m_square");
    Choose("m_log");
    QVERIFY(std::abs(DecadeRatio() - 1.0) > 0.05);
  }

  void LoadsAreLabelledInTheOtherUnitAndTheCurveStays() {
    WindowFixture& f = Start();
    const double place = Chart().xAxis->coordToPixel(4);
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("100"));
    const struct {
      const char* action;
      const char* title;
      bool thousand;
    } cases[] = {{"m_unitabs", "Load level (A)", true},
                 {"m_unitmult", "Load level (× pickup)", false},
                 {"m_unitgrid", "Load level (× pickup)", false}};
    f.Find<QAbstractButton>("Option1")->setChecked(true);
    for (const auto& [action, title, thousand] : cases) {
      Choose(action);
      QCOMPARE(Chart().xAxis->coordToPixel(4), place);
      QCOMPARE(Chart().xAxis->tickVectorLabels().contains(QStringLiteral("1000")), thousand);
      QVERIFY2(Chart().xAxis->label().startsWith(QStringLiteral("Load level")), title);
      QCOMPARE(Chart().xAxis->label() ==
                   Chart().xAxis->label().section('(', 0, 0) + QStringLiteral("(× pickup)"),
               !thousand);
    }
    QVERIFY(Chart().item(0)->visible());
    Choose("m_pickup");
    QVERIFY(!Chart().item(0)->visible());
    Choose("m_pickup");
    Read(1);
    f.Find<QLineEdit>("Text2")->clear();
    QVERIFY2(!Chart().item(0)->visible(), "amperes without a pickup value have no such line");
  }

  void TheCrosshairReadsTheCurveByMouse() {
    WindowFixture& f = Start();
    const struct {
      double load, time;
      QString reads;
      const char* lit;
    } cases[] = {
        // Straight in logarithmic axes: 5 at 4, 3 at 8, the root of their product between.
        {5.65685, 3.87298, "5.66 × pickup; 3.87 s", "0 0"},
        {5.65685, 9.0, "5.66 × pickup; 3.87 s", "0 0"},
        {4.03, 5.1, "Point 2; 4 × pickup; 5 s", "2 2"},
        {4.03, 2.5, "Point 2; 4 × pickup; 5 s", "2 2"},
        {1.9, 4, "1.900 × pickup; beside the curve", "0 0"},
        {16, 2, "Point 4; 16 × pickup; 2 s", "4 4"},
    };
    for (const auto& [load, time, reads, lit] : cases) {
      MoveTo(PlaceOf(load, time));
      QString said = Reads();
      said.replace(QStringLiteral("5.65 "), QStringLiteral("5.66 "));
      QCOMPARE(said, reads);
      QCOMPARE(Lit(), QLatin1String(lit));
      const QColor line = f.Find<QWidget>("CrossUpright")->grab().toImage().pixelColor(0, 9);
      const QColor base = Chart().palette().color(QPalette::Base);
      QVERIFY(time == 4 || editor::ContrastOf(line, base) >= 3.0);
      const QRect box = f.Find<QWidget>("CrossText")->geometry();
      QVERIFY(Chart().rect().contains(box));
      QVERIFY(!box.contains(PlaceOf(load, time).toPoint()));
      if (lit[0] == '2') QVERIFY(!box.contains(PlaceOf(4, 5).toPoint()));
    }
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    MoveTo(PlaceOf(8, 3));
    QCOMPARE(Reads(), QStringLiteral("Point 3; 8 × pickup; 40 A or V; 3 s"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Chart(), &leave);
    QCOMPARE(Reads() + Lit(), QStringLiteral("0 0"));
    HoverRow(3);
    QCOMPARE(Lit(), QStringLiteral("3 3"));
    HoverRow(20);
    QCOMPARE(Lit(), QStringLiteral("0 20"));
  }

  void TheCrosshairGoesByKeysAndMarkersStay() {
    WindowFixture& f = Start();
    Key(Qt::Key_Home);
    QCOMPARE(Reads(), QStringLiteral("Point 1; 2 × pickup; 10 s"));
    Key(Qt::Key_A);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    QCOMPARE(Reads(), QStringLiteral("Point 3; 8 × pickup; 3 s"));
    QCOMPARE(Chart().accessibleDescription(), QStringLiteral("Point 3, 8 × pickup, 3 s"));
    for (int press = 0; press < 4; ++press) Key(Qt::Key_Right);
    const double load = Reads().section(' ', 0, 0).toDouble();
    QVERIFY2(load > 8.2 && load < 9, qPrintable(Reads()));
    Key(Qt::Key_Left, Qt::ShiftModifier);
    QVERIFY(Reads().section(' ', 0, 0).toDouble() < load);
    Key(Qt::Key_Up);
    QCOMPARE(Lit(), QStringLiteral("3 3"));
    Key(Qt::Key_B);
    const QString pinned = Reads("MarkerText");
    QCOMPARE(pinned, QStringLiteral("A | 2 × pickup | 10 s; B | 8 × pickup | 3 s; "
                                    "B − A | 6 × pickup | -7 s; B ∶ A | 4.000 | 0.3000"));
    const QPoint place = f.Find<QWidget>("MarkerB")->pos();
    f.session.table.grid.SetCell(3, 2, "4");
    f.window->activateWindow();
    Chart().ShowCurve(editor::CurveOf(f.session.table.grid, "."));
    QCOMPARE(Reads("MarkerText"), pinned);
    QCOMPARE(f.Find<QWidget>("MarkerB")->pos(), place);
    QCOMPARE(Reads(), QStringLiteral("Point 3; 8 × pickup; 4 s"));
    Key(Qt::Key_Backspace);
    QVERIFY(Reads("MarkerText").isEmpty() && f.Find<QWidget>("MarkerB")->isHidden());
    Key(Qt::Key_Escape);
    QVERIFY(Reads().isEmpty());
  }

  void PointsAreDraggedAddedAndRemovedByHand() {
    WindowFixture& f = Start();
    const QString before = QStringLiteral("2;10|4;5|8;3|16;2");
    const struct {
      const char* what;
      QPointF way;
      Qt::KeyboardModifiers modifiers;
      bool movesLoad, movesTime;
    } cases[] = {{"both ways", {30, -40}, {}, true, true},
                 {"sideways", {50, -12}, Qt::ShiftModifier, true, false},
                 {"upright", {12, -50}, Qt::ShiftModifier, false, true},
                 {"past a neighbour", {400, 20}, {}, true, true},
                 {"a click", {0, 0}, {}, false, false},
                 {"a slip", {3, 2}, {}, false, false}};
    for (const auto& [what, way, modifiers, movesLoad, movesTime] : cases) {
      const QString view = View();
      DragBy(PlaceOf(4, 5), way, modifiers);
      const QStringList cells = Points().section('|', 1, 1).split(';');
      QVERIFY2((cells[0] != QLatin1String("4")) == movesLoad, what);
      QVERIFY2((cells[1] != QLatin1String("5")) == movesTime, what);
      QVERIFY2(cells[0].size() <= 5 && cells[1].size() <= 5, qPrintable(cells.join(' ')));
      QCOMPARE(f.session.table.grid.Row(), 2);
      QCOMPARE(f.Find<QToolButton>("StatusCheck")->isVisible(),
               std::string(what) == "past a neighbour");
      if (!movesLoad && !movesTime) continue;
      QVERIFY(f.session.table.tableModified);
      Q_EMIT f.Find<QMenu>("m_edit")->aboutToShow();
      QCOMPARE(f.Find<QAction>("m_undo")->text(), QStringLiteral("&Undo Move point"));
      Choose("m_undo");
      QCOMPARE(Points(), before);
      QCOMPARE(View(), view);
    }
    // The cell follows while the button is held, and the view stays.
    const QString view = View();
    Mouse(QEvent::MouseButtonPress, PlaceOf(16, 2), Qt::LeftButton);
    MoveTo(PlaceOf(16, 2) + QPointF(0, -60), Qt::LeftButton);
    const QModelIndex cell = f.Find<editor::CurveGridView>("MSFlexGrid1")->model()->index(3, 1);
    QVERIFY(cell.data().toDouble() > 2.2);
    QVERIFY(Reads().startsWith(QStringLiteral("Point 4")));
    QCOMPARE(View(), view);
    Mouse(QEvent::MouseButtonRelease, {}, Qt::NoButton);
    Choose("m_undo");
    QCOMPARE(Points(), before);
    const QPointF middle = (PlaceOf(4, 5) + PlaceOf(8, 3)) / 2.0;
    DoubleClick(middle + QPointF(2, 2));
    QVERIFY2(Points().startsWith(QStringLiteral("2;10|4;5|5.")), qPrintable(Points()));
    QCOMPARE(Points().count('|'), 4);
    QCOMPARE(f.session.table.grid.Row(), 3);
    Key(Qt::Key_Delete);
    QCOMPARE(Points(), before);
    Choose("m_undo");
    Choose("m_undo");
    QCOMPARE(Points(), before);
    // Beside the line a double-click shows the whole curve, and a drag moves the view.
    DragBy(PlaceOf(8, 8), {60, 30});
    QVERIFY(View() != view);
    DoubleClick(PlaceOf(8, 8));
    QCOMPARE(View(), view);
    QCOMPARE(Points(), before);
  }

  void FurtherCurvesAreConvertedListedAndCompared() {
    WindowFixture& f = Start();
    QVERIFY(Legend().isEmpty());
    DropEntries("0 1");
    f.Select(2);
    Choose("m_cmpentry");
    QCOMPARE(Legend(), QStringLiteral("+Table in the grid|+SI|-Amperes (not shown: the pickup "
                                      "value is missing)|+Zero"));
    QCOMPARE(Kinds(), QStringLiteral("lin/lin"));
    auto& legend = *f.Find<editor::CurveLegend>("ListLegend");
    legend.setFocus();
    legend.setCurrentIndex(legend.model()->index(3, 0));
    QTest::keyClick(&legend, Qt::Key_Space);
    QCOMPARE(Kinds(), QStringLiteral("log/log"));
    QVERIFY(!Chart().xAxis->range().contains(20));
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("2"));
    QCOMPARE(Legend(), QStringLiteral("+Table in the grid|+SI|+Amperes|-Zero"));
    QVERIFY2(Chart().xAxis->range().contains(40), "80 A of a pickup value of 2 A");
    QVERIFY(Chart().yAxis->range().contains(2.5) && Chart().yAxis->range().contains(10));
    auto& panel = *f.Find<editor::DifferencePanel>("DifferencePanel");
    QVERIFY(panel.isHidden());
    Choose("m_difference");
    QVERIFY(panel.isVisible());
    QCOMPARE(Legend().section('|', 0, 0), QStringLiteral("+Table in the grid (reference)"));
    QCOMPARE(panel.plottableCount(), 2);
    panel.replot();
    QCOMPARE(panel.xAxis->range(), Chart().xAxis->range());
    QCOMPARE(panel.axisRect()->left(), Chart().axisRect()->left());
    QCOMPARE(panel.axisRect()->right(), Chart().axisRect()->right());
    legend.setCurrentIndex(legend.model()->index(1, 0));
    Choose("m_reference");
    f.session.table.grid.SetCell(2, 2, "6");
    Chart().ShowCurve(editor::CurveOf(f.session.table.grid, "."));
    auto& own = *static_cast<QCPCurve*>(panel.plottable(0))->data();
    const auto most = std::max_element(
        own.begin(), own.end(), [](const auto& a, const auto& b) { return a.value < b.value; });
    QCOMPARE(most->key, 4.0);
    QVERIFY(std::abs(most->value - 20.0) < 1e-9);
    QTest::keyClick(&legend, Qt::Key_Delete);
    QCOMPARE(Legend(), QStringLiteral("+Table in the grid (reference)|+Amperes|-Zero"));
    f.Write("other.dat", "{\"One\"\t(1;1)(2;2) 001}\r\n{\"Two\"\t(2;4)(3;3) 001}\r\n");
    f.dialogs.file = f.Path("other.dat");
    f.dialogs.entries = {1};
    Choose("m_cmpfile");
    QCOMPARE(f.dialogs.asked.back(), "Curves of other.dat");
    QVERIFY(Legend().endsWith(QStringLiteral("|+Two (other.dat)")));
    Choose("m_cmpnone");
    QVERIFY(Legend().isEmpty() && panel.isHidden());
    QVERIFY(Chart().isVisible());
  }

  void FurtherCurvesDifferInDashAndColourOnAnyBackground() {
    for (const char* const base : {"white", "black", "#232629", "#777777", "yellow"}) {
      std::set<std::pair<QRgb, QList<qreal>>> pens;
      for (int number = 0; number < 42; ++number) {
        const QPen pen = editor::OverlayPen(number, QColor(base));
        QVERIFY(editor::ContrastOf(pen.color(), QColor(base)) >= 3.0);
        pens.insert({pen.color().rgb(), pen.dashPattern()});
        QVERIFY(pen.dashPattern() != editor::OverlayPen(number + 1, QColor(base)).dashPattern());
      }
      QVERIFY2(pens.size() >= 35, base);
    }
  }

  void ColoursAreChosenKeptAndGivenBack() {
    WindowFixture& f = Start();
    const QColor system = Chart().palette().color(QPalette::Base);
    const auto colour = [&] { return Chart().palette().color(QPalette::Base).lightness(); };
    Choose("m_coldark");
    QVERIFY(colour() < 80);
    QVERIFY(Chart().palette().color(QPalette::Text).lightness() > 180);
    f.window.reset();
    QCOMPARE(QApplication::palette().color(QPalette::Base), system);
    f.Open();
    QVERIFY(colour() < 80 && f.Find<QAction>("m_coldark")->isChecked());
    Choose("m_collight");
    QVERIFY(colour() > 200);
    Choose("m_colsystem");
    QCOMPARE(Chart().palette().color(QPalette::Base), system);
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::ChartWorkTest)
#include "chart_work_test.moc"
