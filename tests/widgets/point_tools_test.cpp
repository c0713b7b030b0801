#include <QAbstractButton>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "app/widgets/table/point_tools_controller.h"
#include "app/widgets/table/table_panel.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary = "{\"Three\"\t(1;10)(2;20)(3;30) 001}\r\n";

class PointToolsTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start(const QByteArray& library = kLibrary) {
    Make(library);
    made_->Click("Command1");
    Grid().setFocus();
    return *made_;
  }
  [[nodiscard]] QString Focus() const { return QApplication::focusWidget()->objectName(); }
  [[nodiscard]] QString Marked() const {
    const auto* const button = made_->Find<QToolButton>("StatusCheck");
    return button->isVisible() ? button->text() : QString();
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  void Choose(const char* action) { made_->Find<QAction>(action)->trigger(); }
  void SelectRows(int from, int to) {
    Grid().CloseEditor();
    Grid().setCurrentIndex(Grid().model()->index(from - 1, 0));
    Grid().selectionModel()->select(
        QItemSelection(Grid().model()->index(from - 1, 0), Grid().model()->index(to - 1, 1)),
        QItemSelectionModel::ClearAndSelect);
  }
  // What asks for a context menu on a control shows this one, at `menuPlace_` on the screen.
  QPoint menuPlace_;
  QString MenuOn(QWidget* control, QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse) {
    QContextMenuEvent event(reason, {5, 5}, control->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(control, &event);
    QWidget* const menu = QApplication::activePopupWidget();
    if (menu == nullptr) return {};
    QString name = menu->objectName();
    menuPlace_ = menu->pos();
    menu->close();
    return name;
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void KeysMoveRowsAndTheOpenCellGoesAlong() {
    WindowFixture& f = Start();
    Key(Qt::Key_Return);
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(PointRow(), QStringLiteral("2;20|1;10|3;30"));
    QVERIFY(f.session.table.tableModified && EditorOpen());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5"));
    QCOMPARE(PointRow(), QStringLiteral("2;20|15;10|3;30"));
    Key(Qt::Key_Up, Qt::AltModifier);
    Key(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(PointRow(), QStringLiteral(";|15;10|2;20|3;30"));
    Key(Qt::Key_Minus, Qt::ControlModifier);
    SelectRows(1, 2);
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(PointRow(), QStringLiteral("3;30|15;10|2;20"));
    QCOMPARE(Grid().SelectedArea().top * 100 + Grid().SelectedArea().bottom, 203);
    Choose("m_sort");
    QCOMPARE(PointRow(), QStringLiteral("3;30|2;20|15;10"));
    Choose("m_rev");
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(PointRow(), QStringLiteral("3;30"));
    QVERIFY(f.Find<QWidget>("MSChart1")->isHidden());
  }

  void NumbersAreAskedForAndOutcomesTold() {
    WindowFixture& f = Start();
    Choose("m_sct");
    QCOMPARE(PointRow(), QStringLiteral("1;10|2;20|3;30"));
    QCOMPARE(f.dialogs.asked, std::vector<std::string>{"Scale times"});
    f.dialogs.number = 0.5;
    Choose("m_sct");
    SelectRows(2, 3);
    Choose("m_shl");
    QCOMPARE(PointRow(), QStringLiteral("1;5|2.5;10|3.5;15"));
    f.dialogs.number = 1;
    SelectRows(1, 2);
    Key(Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(PointRow(), QStringLiteral("1;5|1.581139;7.07107|2.5;10|3.5;15"));
    Choose("m_log");
    Choose("m_fill");
    QCOMPARE(PointRow().section('|', 1, 1), QStringLiteral("1.257433;5.91744"));
    f.dialogs.number = 2;
    SelectRows(1, 26);
    Choose("m_rnd");
    QCOMPARE(PointRow().section('|', 1, 1), QStringLiteral("1.26;5.92"));
    const std::size_t asked = f.dialogs.asked.size();
    SelectRows(20, 21);
    Choose("m_fill");
    QCOMPARE(f.dialogs.asked.size(), asked);
    QVERIFY(SaidBelow().startsWith(QStringLiteral("Select two rows")));
    QCOMPARE(f.dialogs.offered, (std::vector<double>{1, 1, 0, 1, 1, 3}));
    const auto isRefused = [&](const char* cells, const char* tool, const char* said) {
      f.session.table.grid.ClearPoints();
      int row = 1;
      for (const QString& point : QString(cells).split('|')) {
        f.session.table.grid.SetCell(row, 1, point.section(';', 0, 0).toStdString());
        f.session.table.grid.SetCell(row++, 2, point.section(';', 1).toStdString());
      }
      SelectRows(1, 26);
      Choose(tool);
      return SaidBelow().startsWith(QLatin1String(said));
    };
    QVERIFY(isRefused("x;", "m_scl", "None of the cells"));
    f.dialogs.number = 1e300;
    QVERIFY(isRefused("1e300;1", "m_scl", "A number would become too large"));
    QCOMPARE(f.dialogs.offered.back(), 2.0);
    f.dialogs.number = 2;
    QVERIFY(isRefused("1;2|x;|3;4", "m_fill", "There are other rows"));
    QVERIFY(!isRefused("1;2|;|;|3;4", "m_fill", " ") && f.dialogs.offered.back() == 2.0);
    QVERIFY(isRefused("1;2|1;4", "m_fill", "The two points have the same load"));
    QVERIFY(
        isRefused((QString("1;2|").repeated(25) + "2;3").toUtf8().constData(), "m_ins", "No room"));
    const auto takes = [&](const char* tool, double number) {
      isRefused("1.5;2|3;4", "m_sort", " ");
      f.dialogs.number = number;
      SelectRows(1, 2);
      f.window->statusBar()->clearMessage();
      const QString before = PointRow();
      Choose(tool);
      return PointRow() != before || !SaidBelow().isEmpty();
    };
    QVERIFY(takes("m_rnd", 0) && takes("m_rnd", 15) && !takes("m_rnd", 16));
    QVERIFY(!takes("m_fill", 0) && takes("m_fill", 24) && !takes("m_fill", 25));
  }

  void ConversionsChangeNumbersAndModesTogether() {
    WindowFixture& f = Start();
    f.Find<QLineEdit>("Text2")->clear();
    Choose("m_cvl");
    QVERIFY(SaidBelow().startsWith(QStringLiteral("The pickup value")));
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    Choose("m_cvl");
    Choose("m_cvt");
    QCOMPARE(PointRow(), QStringLiteral("5;10000|10;20000|15;30000"));
    QVERIFY(f.Find<QCheckBox>("Check1")->isChecked() && f.Find<QCheckBox>("Check2")->isChecked());
    QCOMPARE(f.Find<QLabel>("Label2")->text(), QStringLiteral("Trip time (ms)"));
    QVERIFY(f.session.modes.absoluteValues && f.session.modes.milliseconds);
    f.Find<QCheckBox>("Check2")->click();
    QCOMPARE(PointRow(), QStringLiteral("5;10000|10;20000|15;30000"));
  }

  void FaultsAreMarkedCountedAndVisited() {
    WindowFixture& f = Start("{\"Bad\"\t(2;10)(1;0)(3;30) 001}\r\n");
    QCOMPARE(Marked(), QStringLiteral("▲ 2 cells to check"));
    const auto words = [this](int row, int column) {
      return Grid().model()->index(row - 1, column - 1).data(Qt::ToolTipRole).toString();
    };
    QCOMPARE(words(2, 1), QStringLiteral("the load does not increase"));
    QCOMPARE(words(1, 1), QString());
    Key(Qt::Key_Return);
    for (const char* const place : {"2,1", "2,2", "2,1"}) {
      f.Find<QWidget>("List1")->setFocus();
      Key(Qt::Key_F8);
      QCOMPARE(Focus(), QStringLiteral("MSFlexGrid1"));
      const editor::CurveGrid& grid = f.session.table.grid;
      QCOMPARE(QStringLiteral("%1,%2").arg(grid.Row()).arg(grid.Col()), QLatin1String(place));
    }
    QCOMPARE(SaidBelow(), QStringLiteral("Row 2: the load does not increase"));
    Key(Qt::Key_Return);
    f.Find<QLineEdit>("Text11")->setText(QStringLiteral("2"));
    QCOMPARE(words(2, 1),
             QStringLiteral("the load does not increase\nthe load is that of point 1 as well"));
    f.Find<QLineEdit>("Text11")->setText(QStringLiteral("2.5"));
    QCOMPARE(Marked(), QStringLiteral("▲ 1 cell to check"));
    const QImage marked =
        Grid().viewport()->grab(Grid().visualRect(Grid().model()->index(1, 1))).toImage();
    Key(Qt::Key_Right);
    f.Find<QLineEdit>("Text11")->setText(QStringLiteral("1x"));
    QCOMPARE(words(2, 2), QStringLiteral("the time '1x' is no number"));
    f.Find<QLineEdit>("Text11")->setText(QStringLiteral("20"));
    Key(Qt::Key_Escape);
    QCOMPARE(Marked(), QString());
    QVERIFY(marked !=
            Grid().viewport()->grab(Grid().visualRect(Grid().model()->index(1, 1))).toImage());
    Key(Qt::Key_F8);
    QVERIFY(f.dialogs.asked.empty());
  }

  void ContextMenusHoldWhatAppliesThere() {
    WindowFixture& f = Start();
    QCOMPARE(MenuOn(Grid().viewport()), QStringLiteral("m_edit"));
    Key(Qt::Key_Return);
    QCOMPARE(MenuOn(f.Find<QWidget>("Text11")), QStringLiteral("m_edit"));
    Choose("m_copy");
    Choose("m_clear");
    QCOMPARE(PointRow(), QStringLiteral(";10|2;20|3;30"));
    QVERIFY(EditorOpen());
    Choose("m_paste");
    QCOMPARE(PointRow(), QStringLiteral("1;10|2;20|3;30"));
    QCOMPARE(MenuOn(f.Find<QWidget>("MSChart1")), QStringLiteral("m_chartmenu"));
    QCOMPARE(MenuOn(f.Find<QAbstractItemView>("List1")->viewport()), QStringLiteral("m_listmenu"));
    Choose("m_Command2");
    QCOMPARE(NamesIn(*f.window), QString());
    auto& list = *f.Find<QAbstractItemView>("List1");
    QCOMPARE(MenuOn(&list), QStringLiteral("m_listmenu"));
    QCOMPARE(menuPlace_, list.mapToGlobal(QPoint(5, 5)));
    MenuOn(&list, QContextMenuEvent::Keyboard);
    const QPoint middle = list.visualRect(list.currentIndex()).center();
    QCOMPARE(menuPlace_, list.viewport()->mapToGlobal(middle));
    QVERIFY(!f.Find<QAction>("m_Command1")->isEnabled());
    f.Activate();
    // A text field keeps the commands of the clipboard for itself.
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("77"));
    f.Find<QLineEdit>("Text2")->setFocus();
    f.Find<QLineEdit>("Text2")->selectAll();
    Choose("m_cut");
    const auto pickup = [&] { return f.Find<QLineEdit>("Text2")->text() + '/' + PointRow(); };
    QCOMPARE(pickup(), QStringLiteral("/1;10|2;20|3;30"));
    Choose("m_paste");
    QCOMPARE(pickup(), QStringLiteral("77/1;10|2;20|3;30"));
    f.Find<QLineEdit>("Text2")->setSelection(0, 1);
    Choose("m_copy");
    Choose("m_clear");
    Choose("m_paste");
    Choose("m_paste");
    QCOMPARE(pickup(), QStringLiteral("777/1;10|2;20|3;30"));
  }

  void KeysLeadFromPanelToPanel() {
    WindowFixture& f = Start();
    // From nowhere the first one comes first.
    Grid().clearFocus();
    Choose("m_panel");
    for (const char* const name : {"MSFlexGrid1", "MSChart1", "List1", "MSFlexGrid1"}) {
      Key(Qt::Key_F6);
      QCOMPARE(Focus(), QLatin1String(name));
    }
    Key(Qt::Key_Return);
    Key(Qt::Key_F6, Qt::ShiftModifier);
    QCOMPARE(Focus(), QStringLiteral("List1"));
    Key(Qt::Key_3, Qt::AltModifier);
    QCOMPARE(Focus(), QStringLiteral("MSChart1"));
    Key(Qt::Key_2, Qt::AltModifier);
    QCOMPARE(Focus(), QStringLiteral("MSFlexGrid1"));
    SelectRows(1, 26);
    Key(Qt::Key_Delete);
    // With nothing to go to in the chart's panel the next one has its turn.
    Key(Qt::Key_F6);
    QCOMPARE(Focus(), QStringLiteral("List1"));
    Key(Qt::Key_2, Qt::AltModifier);
    f.Find<QWidget>("Command10")->setEnabled(true);
    Key(Qt::Key_F6);
    QCOMPARE(Focus(), QStringLiteral("Command10"));
    Key(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(Focus(), QStringLiteral("List1"));
  }

  void ScreenReadersHearEveryCell() {
    WindowFixture& f = Start("{\"Three\"\t(5;10)(6;20)(7;30) 001}\r\n");
    QVERIFY(QFile::copy(QStringLiteral(CATALOGUES "/Zentab.zh_CN.txt"), f.Path("Zentab.txt")));
    for (const char* const cell : {"row 3, load 7", "第 3 行，负荷水平 7"}) {
      const QModelIndex place = Grid().model()->index(2, 0);
      QCOMPARE(place.data(Qt::AccessibleTextRole).toString(), QString::fromUtf8(cell));
      f.session.table.grid.SetCell(3, 1, std::string(1001, 'x'));
      QCOMPARE(place.data().toString(), QString(1000, 'x'));
      f.Open();
      f.Click("Command1");
    }
    QCOMPARE(f.Find<QWidget>("Command2")->accessibleName(), QStringLiteral("删除"));
    Grid().GridEdit('"');
    QCOMPARE(f.Find<QWidget>("Text11")->accessibleName(), QStringLiteral("第 1 行，负荷水平"));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::PointToolsTest)
#include "point_tools_test.moc"
