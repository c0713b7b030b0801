#include <QWheelEvent>

#include "widgets/watch_fixture.h"

namespace zentab::app {
namespace {

class RedrawTest : public WatchFixture {
  Q_OBJECT

 private:
  [[nodiscard]] editor::CurveLegend& ListLegend() const {
    return *made_->Find<editor::CurveLegend>("ListLegend");
  }
  // The first further curve.
  void Switch(Qt::CheckState state) {
    ListLegend().model()->setData(ListLegend().model()->index(1, 0), state, Qt::CheckStateRole);
  }
  // Its button fades in and out.
  void Filter(const char* text) {
    made_->Find<QLineEdit>("TextFilter")->setText(QLatin1String(text));
    constexpr int kFading = 300;
    QTest::qWait(kFading);
  }
  // Drags an entry to a place, and out again.
  void Hold(QWidget& target, const QPoint& place) { made_->HoldEntries({0}, target, place); }
  static void Leave(QWidget& target) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&target, &leave);
  }
  [[nodiscard]] QModelIndex Entry(int row) const {
    return made_->Find<QListView>("List1")->model()->index(row, 0);
  }
  void Open() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }
  // The wheel, above a place of the chart.
  void Turn(const QPointF& place, int angle = 120) {
    QWheelEvent wheel(place, Chart().mapToGlobal(place), {}, {0, angle}, {}, {}, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&Chart(), &wheel);
  }
  void Type(int row, int column, const char* text) {
    auto& grid = Grid();
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(row - 1, column - 1));
    QTest::keyClick(&grid, Qt::Key_Return);
    auto* const field = made_->Find<QLineEdit>("Text11");
    field->selectAll();
    QTest::keyClicks(field, QLatin1String(text));
    QTest::keyClick(field, Qt::Key_Escape);
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
        {"the first time", [&] { Type(1, 2, "9.5"); }},
        {"the last load", [&] { Type(4, 1, "15.5"); }},
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
  void TheList() {
    WindowFixture& f = Start();
    Shipped();
    auto& list = *f.Find<QListView>("List1");
    const auto rename = [&](const char* name) {
      QTest::keyClick(&list, Qt::Key_F2);
      list.viewport()->findChild<QLineEdit*>()->setText(QLatin1String(name));
    };
    Watch({
        {"the focus", [&] { list.setFocus(); }},
        {"another entry", [&] { QTest::keyClick(&list, Qt::Key_Down); }},
        {"two entries", [&] { QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier); }},
        {"copies of them", [&] { Trigger("m_duplicate"); }},
        {"they move", [&] { Trigger("m_entryup"); }},
        {"by name", [&] { Trigger("m_ordername"); }},
        {"as in the file", [&] { Trigger("m_orderfile"); }},
        {"a filter", [&] { Filter("zer"); }},
        {"no filter", [&] { Filter(""); }},
        {"a field for a name", [&] { f.Select(0), rename("Bay 7"); }},
        {"its name", [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }},
        {"a box for a name", [&] { f.Click("Command1"), f.Click("Command3"); }},
        {"its own name",
         [&] { QTest::keyClicks(f.Find<QWidget>("Text1"), QStringLiteral("Mine")); }},
        {"it is there", [&] { QTest::keyClick(f.Find<QWidget>("Text1"), Qt::Key_Return); }},
        {"one is gone", [&] { f.Click("Command2"); }},
        {"it is back", [&] { Trigger("m_undo"); }},
        {"one that is dragged",
         [&] { Hold(*list.viewport(), list.visualRect(Entry(2)).center()); }},
        {"and leaves", [&] { Leave(*list.viewport()); }},
        {"the chosen ones in the chart", [&] { Trigger("m_cmpentry"); }},
        {"one dragged to the top", [&] { f.Select(4), Hold(*list.viewport(), QPoint(9, 1)); }},
        {"and behind the last", [&] { Hold(*list.viewport(), QPoint(9, 400)); }},
    });
  }
  void TheInstrument() {
    WindowFixture& f = Start();
    Shipped();
    Watch({
        {"current", [&] { f.Click("Option1"); }},
        {"an entry's curve", [&] { Read(1); }},
        {"a place on it", [&] { Key(Qt::Key_End); }},
        {"voltage", [&] { f.Click("Option2"); }},
        {"absolute values", [&] { f.Click("Check1"); }},
        {"milliseconds", [&] { f.Click("Check2"); }},
        {"a multiplier", [&] { QTest::keyClicks(f.Find<QWidget>("Text3"), QStringLiteral("2")); }},
        {"no pickup value", [&] { f.Find<QLineEdit>("Text2")->clear(); }},
        {"neither of them", [&] { f.Click("Option3"); }},
    });
  }
  void ThePoints() {
    WindowFixture& f = Start();
    Shipped();
    f.Click("Command1");
    auto& grid = *f.Find<editor::CurveGridView>("MSFlexGrid1");
    grid.setFocus();
    const auto choose = [&](int from, int to) {
      grid.setCurrentIndex(grid.model()->index(from - 1, 0));
      grid.selectionModel()->select(
          QItemSelection(grid.model()->index(from - 1, 0), grid.model()->index(to - 1, 1)),
          QItemSelectionModel::ClearAndSelect);
    };
    f.dialogs.number = 3.0;
    Watch({
        {"a row more", [&] { choose(2, 2), Trigger("m_ins"); }},
        {"a row less", [&] { Trigger("m_del"); }},
        {"rows move down", [&] { choose(1, 2), Trigger("m_down"); }},
        {"rows move up", [&] { Trigger("m_up"); }},
        {"backwards", [&] { Trigger("m_rev"); }},
        {"by load", [&] { Trigger("m_sort"); }},
        {"points between two", [&] { choose(3, 4), Trigger("m_fill"); }},
        {"loads times three", [&] { choose(1, 2), Trigger("m_scl"); }},
        {"times and three", [&] { Trigger("m_sht"); }},
        {"cells that are cut", [&] { Trigger("m_cut"); }},
        {"and put back", [&] { Trigger("m_paste"); }},
        {"nothing in them", [&] { Trigger("m_clear"); }},
        {"an open cell", [&] { grid.setCurrentIndex(grid.model()->index(2, 0)), Open(); }},
        {"what is no number",
         [&] { QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x")); }},
        {"the next cell", [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down); }},
        {"no open cell", [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }},
        {"two cells from one",
         [&] {
           grid.setCurrentIndex(grid.model()->index(0, 0)), Open();
           f.Find<QLineEdit>("Text11")->setText(QStringLiteral("2.5\t12"));
         }},
        {"a mark below the cell", [&] { grid.CloseEditor(), Type(5, 1, "20"); }},
        {"no mark there", [&] { Type(5, 1, "12"); }},
    });
  }
  void TheChart() {
    Start().dialogs.limits = AxisLimits{{{2.5, 30}}, {{1, 9}}};
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
        {"a smaller one beside a lit point", [&] { HoverRow(3), Turn(PlaceOf(5, 4), 20); }},
        {"a still smaller one", [&] { Turn(PlaceOf(5, 4), 5); }},
        {"the whole curve", [&] { Trigger("m_fit"); }},
        {"a held point",
         [&] {
           Mouse(QEvent::MouseButtonPress, PlaceOf(8, 3), Qt::LeftButton);
           MoveTo(PlaceOf(8, 3) + QPointF(9, -50), Qt::LeftButton);
         }},
        {"taken back", [&] { QTest::keyClick(&Chart(), Qt::Key_Escape); }},
        {"a point more", [&] { DoubleClick((PlaceOf(4, 5) + PlaceOf(8, 3)) / 2.0); }},
        {"a point less", [&] { Key(Qt::Key_Delete); }},
        {"limits of the axes", [&] { Trigger("m_limits"); }},
        {"a moved view",
         [&] {
           DragBy(PlaceOf(9, 9), {70, -40});
         }},
        {"keys on the chart", [&] { Key(Qt::Key_End); }},
        {"a marker beside it", [&] { Key(Qt::Key_A), Key(Qt::Key_Right); }},
    });
  }
  void TheView() {
    WindowFixture& f = Start();
    f.dialogs.limits = AxisLimits{{{1e-4, 1e4}}, {{0.1, 1e4}}};
    const QPointF point = PlaceOf(4, 5);
    Watch({
        {"linear loads", [&] { Trigger("m_logload"); }},
        {"linear times", [&] { Trigger("m_logtime"); }},
        {"the pickup", [&] { f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5")); }},
        {"a view from further off", [&] { Turn(point, -120), Turn(point, -120); }},
        {"without its line", [&] { Trigger("m_pickup"); }},
        {"with its line", [&] { Trigger("m_pickup"); }},
        {"its dark colours", [&] { Trigger("m_coldark"); }},
        {"loads in amperes", [&] { Trigger("m_unitabs"); }},
        {"loads in multiples", [&] { Trigger("m_unitmult"); }},
        {"logarithms again", [&] { Trigger("m_logload"), Trigger("m_logtime"); }},
        {"square decades", [&] { Trigger("m_square"); }},
        {"a zoom into them", [&] { Turn(PlaceOf(4, 5)); }},
        {"a size with them", [&] { f.window->resize(1100, 800); }},
        {"many decades", [&] { Trigger("m_square"), Trigger("m_limits"); }},
    });
  }
  void WhatIsCompared() {
    Start();
    Watch({
        {"a curve beside it", [&] { DropEntries({0}); }},
        {"another one", [&] { DropEntries({2}); }},
        {"one is off", [&] { Switch(Qt::Unchecked); }},
        {"the other one is chosen",
         [&] {
           ListLegend().setFocus();
           ListLegend().setCurrentIndex(ListLegend().model()->index(2, 0));
         }},
        {"as the reference", [&] { Trigger("m_reference"); }},
        {"it is taken out", [&] { Trigger("m_cmpremove"); }},
        {"the first one is on", [&] { Switch(Qt::Checked); }},
        {"no difference", [&] { Trigger("m_difference"); }},
        {"a place in both", [&] { MoveTo(PlaceOf(5, 4)); }},
        {"an edit above it", [&] { Type(1, 2, "12"); }},
        {"a zoom above it", [&] { Turn(PlaceOf(4, 5)); }},
        {"dark colours above it", [&] { Trigger("m_coldark"); }},
        {"the difference", [&] { Trigger("m_difference"); }},
        {"the assessment", [&] { Trigger("m_assess"); }},
        {"an assessed edit", [&] { Type(2, 2, "2.5"); }},
        {"no assessment", [&] { Trigger("m_assess"); }},
        {"nothing compared", [&] { Trigger("m_cmpnone"); }},
        {"light colours", [&] { Trigger("m_collight"); }},
        {"all entries",
         [&] { made_->Find<QListView>("List1")->selectAll(), Trigger("m_cmpentry"); }},
        {"eight that are shown",
         [&] { Trigger("m_cmpentry"), Trigger("m_cmpentry"), Trigger("m_cmpentry"); }},
        {"one more", [&] { DropEntries({0}); }},
        {"a reference, and one before it is taken out",
         [&] {
           ListLegend().setCurrentIndex(ListLegend().model()->index(3, 0)), Trigger("m_reference");
           ListLegend().setCurrentIndex(ListLegend().model()->index(1, 0)), Trigger("m_cmpremove");
         }},
        {"a marker in a smaller chart",
         [&] { Type(1, 2, "9"), Key(Qt::Key_A), made_->window->resize(1000, 700); }},
    });
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::RedrawTest)
#include "redraw_test.moc"
