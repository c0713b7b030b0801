#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSet>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

#include "app/widgets/library/library_files_controller.h"
#include "editor/widgets/chart/curve_legend.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kA = "{\"Anna\"\t(1.5;10)(2;4) 001}\r\n";
const QByteArray kB = "{\"Berta\"\t(25;100)(30.5;4) 112}\r\n";
const QByteArray kC = "{\"Clara\"\t(3;1) 001}\r\n";
const QByteArray kTheirs = "{\"Berta\"\t(9;9) 112}\r\n";

// The list of entries: several at once, their names and order.
class LibraryListTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start(const QByteArray& library = kA + kB + kC,
                       const std::string& separator = ".") {
    Make(library, separator);
    List()->setFocus();
    return *made_;
  }
  [[nodiscard]] QListView* List() const { return made_->Find<QListView>("List1"); }
  [[nodiscard]] QString Names() const { return NamesIn(*made_->window); }
  void Go(const char* action) const { made_->Find<QAction>(action)->trigger(); }
  void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) const {
    QTest::keyClick(List(), key, with);
  }
  void Choose(std::initializer_list<int> rows) const {
    auto* const selected = List()->selectionModel();
    selected->clear();
    for (const int row : rows) {
      const QModelIndex index = List()->model()->index(row, 0);
      selected->setCurrentIndex(index, QItemSelectionModel::Select);
    }
  }
  [[nodiscard]] QString Chosen() const {
    QStringList names;
    for (const QModelIndex& row : List()->selectionModel()->selectedRows()) {
      names += row.data().toString();
    }
    names.sort();
    return names.join('|');
  }
  void Type(const QString& name) const {
    made_->Find<QWidget>("MSFlexGrid1")->setFocus();
    Go("m_rename");
    auto* const field = List()->viewport()->findChild<QLineEdit*>();
    if (field == nullptr) qFatal("no field opens");
    QCOMPARE(field->accessibleName(), List()->currentIndex().data().toString());
    field->setText(name);
    QTest::keyClick(field, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(field, Qt::Key_Return);
    // The field closes, and then its name is taken.
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
  }
  [[nodiscard]] QRect Row(int row) const {
    return List()->visualRect(List()->model()->index(row, 0));
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void KeysWorkOnAllThatAreChosenAndOneStepTakesItBack() {
    WindowFixture& f = Start();
    const struct {
      std::initializer_list<int> rows;
      QKeyCombination key;
      QString names;
      QString chosen;
    } cases[] = {
        {{0, 2}, Qt::Key_Delete, "Berta", "Berta"},
        {{2, 0}, Qt::CTRL | Qt::Key_D, "Anna|Anna #2|Berta|Clara|Clara #2", "Anna #2|Clara #2"},
        {{2}, Qt::ALT | Qt::Key_Up, "Anna|Clara|Berta", "Clara"},
        {{1, 0}, Qt::ALT | Qt::Key_Down, "Clara|Anna|Berta", "Anna|Berta"},
        {{0}, Qt::ALT | Qt::Key_Up, "Anna|Berta|Clara", "Anna"},
        {{}, Qt::ALT | Qt::Key_Down, "Anna|Berta|Clara", {}},
    };
    for (const auto& c : cases) {
      Choose(c.rows);
      Press(c.key.key(), c.key.keyboardModifiers());
      QCOMPARE(Names(), c.names);
      QCOMPARE(Chosen(), c.chosen);
      if (Names() == QStringLiteral("Anna|Berta|Clara")) continue;
      Go("m_undo");
      QCOMPARE(f.Bytes(), kA + kB + kC);
      QCOMPARE(Names(), QStringLiteral("Anna|Berta|Clara"));
    }
    QCOMPARE(f.dialogs.asked.size(), std::size_t{1});
    QCOMPARE(f.dialogs.asked.front(),
             std::string("Remove the 2 selected entries from the table file?"));
    f.dialogs.answer = false;
    Choose({1, 0});
    Press(Qt::Key_Delete);
    QCOMPARE(f.Bytes(), kA + kB + kC);
    Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Anna\nBerta\n"));
    Choose({0});
    Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Anna"));
    Go("m_entrydown");
    QCOMPARE(Names(), QStringLiteral("Berta|Anna|Clara"));
    Go("m_undo");
    // The keys of the grid stay those of the grid.
    f.Find<QWidget>("MSFlexGrid1")->setFocus();
    QTest::keyClick(f.Find<QWidget>("MSFlexGrid1"), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(f.Bytes(), kA + kB + kC);
  }

  void EntriesAreDraggedToTheirPlace() {
    WindowFixture& f = Start();
    const QRect first = Row(0);
    const QRect last = Row(2);
    QVERIFY(List()->model()->index(0, 0).flags() & Qt::ItemIsDragEnabled);
    const struct {
      int row;
      QPoint to;
      QString names;
    } cases[] = {
        {2, first.center() - QPoint(0, 4), "Clara|Anna|Berta"},
        {2, first.center(), "Clara|Anna|Berta"},
        {2, first.center() + QPoint(0, 4), "Anna|Clara|Berta"},
        {0, last.center() + QPoint(0, 4), "Berta|Clara|Anna"},
        {0, last.bottomLeft() + QPoint(9, 30), "Berta|Clara|Anna"},
    };
    for (const auto& c : cases) {
      Choose({c.row});
      f.DragEntries({c.row}, *List()->viewport(), c.to);
      QTRY_COMPARE(Names(), c.names);
      Go("m_undo");
      QCOMPARE(f.Bytes(), kA + kB + kC);
    }
  }

  // What is dragged is put where it is let go, though the mouse has not moved since.
  void ADragAtAnEdgeScrolls() {
    QByteArray library;
    for (int number = 0; number < 200; ++number) {
      library += "{\"" + QByteArray::number(number) + "\"\t(1;2)(2;1) 001}\r\n";
    }
    WindowFixture& f = Start(library);
    QWidget& list = *List()->viewport();
    const auto top = [this] { return List()->indexAt({9, 2}).row(); };
    f.HoldEntries({0}, list, {9, list.height() - 2});
    QTRY_VERIFY(top() > 8);
    f.HoldEntries({0}, list, {9, 2});
    const int highest = top();
    QTRY_VERIFY(top() < highest);
    const int row = top();
    f.LetGo(list, {9, 2});
    QTRY_VERIFY(Names().startsWith(QLatin1String("1|")));
    QVERIFY(std::abs(Names().split('|').indexOf(QLatin1String("0")) - row) <= 1);
  }

  void AClickBelowTheListAndOneWithCtrlLeaveWhatOneCanSee() {
    const WindowFixture& f = Start();
    f.Select(1);
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {},
                      {5, List()->viewport()->height() - 3});
    QCOMPARE(Chosen(), QStringLiteral("Berta"));
    for (int click = 0; click < 2; ++click) {
      QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::ControlModifier, Row(2).center());
    }
    f.Click("Command2");
    QCOMPARE(f.Bytes(), kA + kC);
  }

  void ANameIsTypedInTheList() {
    WindowFixture& f = Start();
    f.Select(1);
    Type(QStringLiteral("  Dora "));
    QCOMPARE(Names(), QStringLiteral("Anna|Dora|Clara"));
    QCOMPARE(Chosen(), QStringLiteral("Dora"));
    Type(QStringLiteral("anna"));
    QVERIFY(f.dialogs.asked.back().find("already contains an entry") != std::string::npos);
    QCOMPARE(SaidBelow(), QString());
    Type(QStringLiteral("a(b"));
    QCOMPARE(SaidBelow(), QStringLiteral("\"a(b\" cannot be the name of an entry"));
    QCOMPARE(Names(), QStringLiteral("Anna|Dora|Clara"));
    Go("m_undo");
    QCOMPARE(f.Bytes(), kA + kB + kC);
    // Someone else is quicker.
    f.Select(1);
    f.Write("relayTables.dat", kA + kTheirs);
    Type(QStringLiteral("Dora"));
    QVERIFY2(SaidBelow().startsWith(QStringLiteral("Another program has changed")),
             qPrintable(SaidBelow()));
    QCOMPARE(f.Bytes(), kA + kTheirs);
    QCOMPARE(Names(), QStringLiteral("Anna|Berta"));
    QCOMPARE(f.SelectedRow(), -1);
  }

  void AnOrderIsAViewThatIsKept() {
    const QByteArray library = kC + kB + kA;
    WindowFixture& f = Start(library);
    Choose({0, 2});
    Go("m_ordername");
    QCOMPARE(Names(), QStringLiteral("Anna|Berta|Clara"));
    QCOMPARE(Chosen(), QStringLiteral("Anna|Clara"));
    Press(Qt::Key_Up, Qt::AltModifier);
    QVERIFY(SaidBelow().startsWith(QStringLiteral("Entries can be moved only")));
    f.Find<QLineEdit>("TextFilter")->setText(QStringLiteral("R"));
    QCOMPARE(Names(), QStringLiteral("Berta|Clara"));
    f.Find<QLineEdit>("TextFilter")->clear();
    Choose({0, 2});
    Press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(Chosen(), QStringLiteral("Anna #2|Clara #2"));
    QCOMPARE(List()->currentIndex().row(), 1);
    Go("m_undo");
    f.Select(0);
    f.Click("Command2");
    QCOMPARE(f.Bytes(), kC + kB);
    QCOMPARE(Chosen(), QStringLiteral("Berta"));
    Go("m_undo");
    QCOMPARE(Names(), QStringLiteral("Anna|Berta|Clara"));
    Go("m_orderinstrument");
    QCOMPARE(Names(), QStringLiteral("Anna|Clara|Berta"));
    f.window.reset();
    f.Open();
    QCOMPARE(Names(), QStringLiteral("Anna|Clara|Berta"));
    QVERIFY(f.Find<QAction>("m_orderinstrument")->isChecked() &&
            !f.Find<QAction>("m_orderfile")->isChecked());
    QCOMPARE(f.Bytes(), library);
    // Written into the file only when that is asked for.
    Go("m_orderfile");
    Go("m_sortfile");
    QCOMPARE(f.Bytes(), library);
    f.dialogs.choices = {1};
    Go("m_sortfile");
    QCOMPARE(f.Bytes() + SaidBelow().toUtf8(), kA + kC + kB);
    Choose({});
    Go("m_sortfile");
    QCOMPARE(SaidBelow(), QStringLiteral("The table file has this order already"));
    Go("m_undo");
    QCOMPARE(f.Bytes(), library);
  }

  void EntriesLeaveInEveryFormat() {
    WindowFixture& f = Start(kA + kB + kC, ",");
    const struct {
      std::initializer_list<int> rows;
      std::vector<std::size_t> choices;
      QByteArray written;
    } cases[] = {
        {{1}, {0, 0}, "\xEF\xBB\xBFLoad [V];Berta [ms]\n25;100\n30,5;4\n"},
        {{0, 2},
         {0, 1},
         "Load [multiple],Anna [s]\n1.5,10\n2,4\n\nLoad [multiple],Clara [s]\n3,1\n"},
        {{0},
         {1, 1},
         "Load [multiple],Anna [s]\n1.5,10\n2,4\n\nLoad [V],Berta [ms]\n25,100\n30.5,4\n\n"
         "Load [multiple],Clara [s]\n3,1\n"},
    };
    for (const auto& c : cases) {
      Choose(c.rows);
      f.dialogs.choices = c.choices;
      f.dialogs.file = f.Path("out");
      Go("m_exportentries");
      QCOMPARE(f.Bytes("out"), c.written);
      QCOMPARE(f.dialogs.asked.back(), std::string("relayTables.csv"));
      QVERIFY(SaidBelow().startsWith(QStringLiteral("Exported: ")));
    }
    QVERIFY(std::ranges::count(
        f.dialogs.asked,
        "CSV for spreadsheets on this &computer (separator \";\", decimal sign \",\")"));
    // The answers of the last time are offered.
    f.dialogs.choices = {0, 2};
    Go("m_exportentries");
    Go("m_exportentries");
    QVERIFY(f.Bytes("out").contains("\"name\"") && !f.Bytes("out").contains("Berta"));
    QCOMPARE(f.dialogs.asked.back(), std::string("relayTables.json"));
    QVERIFY(
        std::ranges::count(f.dialogs.asked, "&JSON, from which the same table file can be made"));
    QCOMPARE(std::ranges::count(f.dialogs.asked, "&Selected: 1"), 3);
    Choose({});
    Go("m_exportentries");
    QCOMPARE(std::ranges::count(f.dialogs.asked, "&All: 3"), 2);
    QVERIFY(f.Bytes("out").contains("Berta"));
    Choose({0});
    f.dialogs.file = f.Path("relayTables.dat");
    Go("m_exportentries");
    QVERIFY(SaidBelow().startsWith(QStringLiteral("The entries could not be exported")));
    f.Write("relayTables.dat", kB + kC);
    f.dialogs.file = f.Path("out");
    Go("m_exportentries");
    QVERIFY(SaidBelow().startsWith(QStringLiteral("Another program has changed")));
  }

  void CopiesGoToTheFileThatIsChosen() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path("other.dat");
    f.Write("other.dat", kB);
    Choose({0, 2});
    Go("m_copyentries");
    QCOMPARE(f.Bytes("other.dat"), kB + kA + kC);
    QCOMPARE(f.Bytes(), kA + kB + kC);
    f.Find<QLineEdit>("TextFilter")->setText(QStringLiteral("An"));
    Go("m_copyentries");
    QCOMPARE(Names(), QStringLiteral("Anna"));
    f.dialogs.file = f.Path("relayTables.dat");
    Go("m_copyentries");
    QCOMPARE(Names(), QStringLiteral("Anna|Anna"));
    f.Find<QLineEdit>("TextFilter")->clear();
    Go("m_undo");
    QCOMPARE(f.Bytes(), kA + kB + kC);
  }

  void ManyCurvesAtOnceAreTooMany() {
    QByteArray library;
    for (int entry = 0; entry < 51; ++entry) library += "{\"E\"\t(1;2)(2;1) 001}\r\n";
    const WindowFixture& f = Start(library);
    List()->selectAll();
    Go("m_cmpentry");
    QVERIFY(f.Find<editor::CurveLegend>("ListLegend")->isHidden());
    QVERIFY2(SaidBelow().startsWith(QLatin1String("At most 50 curves")), qPrintable(SaidBelow()));
    List()->selectionModel()->select(List()->model()->index(7, 0), QItemSelectionModel::Deselect);
    Go("m_cmpentry");
    QCOMPARE(f.Find<editor::CurveLegend>("ListLegend")->model()->rowCount(), 51);
  }

  void ALongNameIsCutAndWhatCannotBeSeenIsADot() {
    const QByteArray name(200, 'x');
    const QByteArray rest = "\"\t(1;2) 001}\r\n";
    const QString wide(200, QChar(0x4E2D));
    Start("{\"" + name + rest + "{\"y" + name + rest + "{\"a\x01😀" + rest + "{\"" + wide.toUtf8() +
          "x" + rest);
    QCOMPARE(Names(), QString(name + "|y" + name.chopped(1) + "…|a·😀|" + wide + "…"));
  }

  void TheTooltipReadsTheEntryThatIsPointedAt() {
    WindowFixture& f = Start(kA + kB + kC, ",");
    const QPoint place = List()->visualRect(List()->model()->index(1, 0)).center();
    QHelpEvent event(QEvent::ToolTip, place, List()->viewport()->mapToGlobal(place));
    QApplication::sendEvent(List()->viewport(), &event);
    QTRY_VERIFY(QToolTip::isVisible());
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    QCOMPARE(shown.toPlainText().replace(QChar(0x2028), '\n'),
             QStringLiteral("Berta\nVoltage\n2 points\nLoad: 25 to 30,5\nTime: 4 to 100 ms"));
    // Not what is there by now. The files' thread does one thing after the other.
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
    f.Write("relayTables.dat", kA + kTheirs);
    QApplication::sendEvent(List()->viewport(), &event);
    QTRY_COMPARE(Names(), QStringLiteral("Anna|Berta"));
    QVERIFY(!QToolTip::isVisible());
  }

  void AFileNamedAtTheStartIsOpenedIfItIsThere() {
    const WindowFixture& f = Start();
    auto* const files = f.window->findChild<LibraryFilesController*>();
    files->OpenNamed(f.Path("missing.dat"));
    QVERIFY2(SaidBelow().contains(QStringLiteral("missing.dat: The table file could not be read")),
             qPrintable(SaidBelow()));
    QCOMPARE(Names(), QStringLiteral("Anna|Berta|Clara"));
    f.Write("named.dat", kB);
    files->OpenNamed(f.Path("named.dat"));
    QCOMPARE(Names(), QStringLiteral("Berta"));
  }

  // In every language.
  void NoTwoCommandsOfAMenuHaveOneLetter() {
    for (const char* const language : {"", ".de", ".zh_CN"}) {
      WindowFixture& f = Start();
      f.OpenIn(QLatin1String(language));
      QContextMenuEvent event(QContextMenuEvent::Other, {5, 5}, {5, 5});
      QApplication::sendEvent(List()->viewport(), &event);
      Q_EMIT f.Find<QMenu>("m_edit")->aboutToShow();
      for (const char* const name :
           {"m_listmenu", "m_library", "m_order", "m_opt", "m_edit", "m_calc", "m_curve", "m_view",
            "m_axes", "m_compare", "m_colours"}) {
        QSet<QChar> letters;
        for (const QAction* const action : f.Find<QMenu>(name)->actions()) {
          if (action->isSeparator()) continue;
          const qsizetype at = action->text().indexOf('&') + 1;
          const QString said = QLatin1String(language) + QLatin1String(name) + action->text();
          QVERIFY2(at > 0 && !letters.contains(action->text().at(at).toUpper()), qPrintable(said));
          letters.insert(action->text().at(at).toUpper());
        }
      }
      f.Find<QMenu>("m_listmenu")->hide();
    }
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::LibraryListTest)
#include "library_list_test.moc"
