#include <QLineEdit>
#include <QStatusBar>

#include "widgets/chart_fixture.h"

namespace zentab::app {
namespace {

// The crosshair, and points that are moved by hand.
class ChartWorkTest : public ChartFixture {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void TheCrosshairReadsTheCurveByMouse() {
    WindowFixture& f = Start();
    const QString tip = QStringLiteral("as the catalogue has it");
    Chart().setToolTip(tip);
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
      const QRect box = f.Find<QWidget>("CrossText")->geometry();
      QVERIFY(Chart().rect().contains(box));
      QVERIFY(!box.contains(PlaceOf(load, time).toPoint()));
      if (lit[0] == '2') QVERIFY(!box.contains(PlaceOf(4, 5).toPoint()));
      // Nothing of it is in the way of the mouse, nor of the chart's own tip.
      QVERIFY(Chart().childAt(PlaceOf(4, 5).toPoint()) == nullptr);
      QVERIFY(Chart().childAt(box.center()) == nullptr);
      QCOMPARE(Chart().toolTip(), QString());
    }
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    MoveTo(PlaceOf(8, 3));
    QCOMPARE(Reads(), QStringLiteral("Point 3; 8 × pickup; 40 A or V; 3 s"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Chart(), &leave);
    QCOMPARE(Reads() + Lit(), QStringLiteral("0 0"));
    QCOMPARE(Chart().toolTip(), tip);
    Chart().setToolTip(QStringLiteral("in another language"));
    QCoreApplication::sendEvent(&Chart(), &leave);
    QCOMPARE(Chart().toolTip(), QStringLiteral("in another language"));
    HoverRow(3);
    QCOMPARE(Lit(), QStringLiteral("3 3"));
    HoverRow(20);
    QCOMPARE(Lit(), QStringLiteral("0 20"));
    QCoreApplication::sendEvent(f.Find<editor::CurveGridView>("MSFlexGrid1")->viewport(), &leave);
    QCOMPARE(Lit(), QStringLiteral("0 0"));
  }

  void TheCrosshairGoesByKeysAndMarkersStay() {
    WindowFixture& f = Start();
    Key(Qt::Key_A);
    QVERIFY2(Reads("MarkerText").isEmpty(), "there is no place yet");
    Key(Qt::Key_Home);
    QCOMPARE(Reads(), QStringLiteral("Point 1; 2 × pickup; 10 s"));
    Key(Qt::Key_A);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    QCOMPARE(Reads(), QStringLiteral("Point 3; 8 × pickup; 3 s"));
    QCOMPARE(Chart().accessibleDescription(), QStringLiteral("Point 3, 8 × pickup, 3 s"));
    const QWidget& upright = *f.Find<QWidget>("CrossUpright");
    const int point = upright.x();
    for (int press = 0; press < 4; ++press) Key(Qt::Key_Right);
    QCOMPARE(upright.x(), point + 20);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(upright.x(), point + 19);
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
    QString points;
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Down, Qt::Key_Up, Qt::Key_Escape, Qt::Key_Up,
                              Qt::Key_Down, Qt::Key_Up, Qt::Key_Escape}) {
      Key(key);
      points += Lit()[0];
    }
    QCOMPARE(points, QStringLiteral("01104430"));
    Key(Qt::Key_Down, Qt::ControlModifier);
    QVERIFY(Reads().isEmpty());
    // Without a curve of its own the chart has no points to go to.
    DropEntries({0});
    Chart().ShowCurve({});
    Key(Qt::Key_Down);
    QVERIFY(Reads().isEmpty());
  }

  void PointsAreDragged() {
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
                 {"askew", {30, -30}, Qt::ShiftModifier, true, false},
                 {"just far enough", {10, 0}, {}, true, false},
                 {"a click", {0, 0}, {}, false, false},
                 {"a slip", {3, 2}, {}, false, false}};
    for (const auto& [what, way, modifiers, movesLoad, movesTime] : cases) {
      const QString view = View();
      DragBy(PlaceOf(4, 5).toPoint(), way, modifiers);
      const QStringList cells = PointRow().section('|', 1, 1).split(';');
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
      QCOMPARE(PointRow(), before);
      QCOMPARE(View(), view);
    }
    // The other button takes hold of no point and adds none.
    QTest::mousePress(&Chart(), Qt::RightButton, {}, PlaceOf(8, 3).toPoint());
    QTest::mouseDClick(&Chart(), Qt::RightButton, {},
                       ((PlaceOf(4, 5) + PlaceOf(8, 3)) / 2).toPoint());
    QCOMPARE(f.session.table.grid.Row(), 2);
    QCOMPARE(PointRow(), before);
  }

  void TheCellFollowsAHeldPointAndEscapeTakesItBack() {
    WindowFixture& f = Start();
    const QString before = PointRow();
    const QString view = View();
    MoveTo(PlaceOf(16, 2), Qt::NoButton);
    QCOMPARE(Chart().cursor().shape(), Qt::SizeAllCursor);
    MoveTo(PlaceOf(16, 2) + QPointF(0, -60), Qt::NoButton);
    QCOMPARE(Chart().cursor().shape(), Qt::ArrowCursor);
    Mouse(QEvent::MouseButtonPress, PlaceOf(16, 2), Qt::LeftButton);
    MoveTo(PlaceOf(16, 2) + QPointF(0, -60), Qt::LeftButton);
    const QModelIndex cell = f.Find<editor::CurveGridView>("MSFlexGrid1")->model()->index(3, 1);
    QVERIFY(cell.data().toDouble() > 2.2);
    QVERIFY(Reads().startsWith(QStringLiteral("Point 4")));
    QCOMPARE(View(), view);
    Mouse(QEvent::MouseButtonRelease, {}, Qt::NoButton);
    Choose("m_undo");
    QCOMPARE(PointRow(), before);
    // Escape takes it back, no other key counts, and there is no step to undo.
    const bool canUndo = f.Find<QAction>("m_undo")->isEnabled();
    Mouse(QEvent::MouseButtonPress, PlaceOf(16, 2), Qt::LeftButton);
    MoveTo(PlaceOf(16, 2) + QPointF(0, -60), Qt::LeftButton);
    Key(Qt::Key_Delete);
    QCOMPARE(PointRow().count('|'), 3);
    Key(Qt::Key_Escape);
    QCOMPARE(PointRow(), before);
    MoveTo(PlaceOf(16, 2) + QPointF(0, -90), Qt::LeftButton);
    Mouse(QEvent::MouseButtonRelease, {}, Qt::NoButton);
    QCOMPARE(PointRow(), before);
    QCOMPARE(f.Find<QAction>("m_undo")->isEnabled(), canUndo);
  }

  void PointsAreAddedAndRemoved() {
    WindowFixture& f = Start();
    const QString before = PointRow();
    const QString view = View();
    const QPointF middle = (PlaceOf(4, 5) + PlaceOf(8, 3)) / 2.0;
    DoubleClick(middle + QPointF(2, 2));
    QVERIFY2(PointRow().startsWith(QStringLiteral("2;10|4;5|5.")), qPrintable(PointRow()));
    QCOMPARE(PointRow().count('|'), 4);
    QCOMPARE(f.session.table.grid.Row(), 3);
    Key(Qt::Key_Delete);
    QCOMPARE(PointRow(), before);
    Choose("m_undo");
    Choose("m_undo");
    QCOMPARE(PointRow(), before);
    // Beside the line a double-click shows the whole curve, and a drag moves the view.
    DragBy(PlaceOf(8, 8), {60, 30});
    QVERIFY(View() != view);
    DoubleClick(PlaceOf(2, 10));
    QVERIFY2(View() != view, "on a point there is one");
    f.session.table.grid.SetCell(3, 1, "4");
    f.session.table.grid.SetCell(3, 2, "5");
    Chart().ShowCurve(editor::CurveOf(f.session.table.grid, "."));
    DoubleClick(PlaceOf(8, 8));
    QCOMPARE(View(), view);
    QCOMPARE(PointRow(), QStringLiteral("2;10|4;5|4;5|16;2"));
    for (int row = 5; row <= 26; ++row) {
      f.session.table.grid.SetCell(row, 1, std::to_string(row + 12));
      f.session.table.grid.SetCell(row, 2, "1.5");
    }
    Chart().ShowCurve(editor::CurveOf(f.session.table.grid, "."));
    Choose("m_fit");
    DoubleClick((PlaceOf(2, 10) + PlaceOf(4, 5)) / 2.0);
    QVERIFY(f.window->statusBar()->currentMessage().startsWith(QLatin1String("No room")));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::ChartWorkTest)
#include "chart_work_test.moc"
