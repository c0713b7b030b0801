#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "app/widgets/status_line.h"
#include "app/widgets/window_placement.h"
#include "editor/widgets/chart/curve_chart.h"
#include "widgets/described_window.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"SI\"\t(1.5;10)(2;4.25)(3;2) 001}\r\n"
    "{\"U> ms\"\t(100;500)(110;250) 112}\r\n"
    "{\"Empty\"\t 000}\r\n";

class MainWindowTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start(const QByteArray& library = kLibrary, const std::string& separator = ".") {
    return Make(library, separator);
  }
  [[nodiscard]] QString Cell(int row, int column) const {
    return QString::fromStdString(made_->session.table.grid.Cell(row, column));
  }
  [[nodiscard]] bool ChartShown() const { return made_->Find<QWidget>("MSChart1")->isVisible(); }
  void PressInFocus(std::initializer_list<int> keys) {
    for (const int key : keys) {
      QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    }
  }
  void TypeInFocus(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
  [[nodiscard]] QString Place() const {
    const auto& grid = made_->session.table.grid;
    return QStringLiteral("%1,%2").arg(grid.Row()).arg(grid.Col());
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void IsLaidOutAsDesigned() {
    WindowFixture& f = Start();
    f.window->resize(1240, 820);
    f.Write("Zentab.txt",
            "F1.CHECK1.TEXT {abs}\nTIME.MS.TEXT {ms}\nTIME.MULT.ENABLE {1}\nDIFF.TYPE {-}\n"
            "FILTER.TYPE {-}\nVALUE.MEAN.OVER {-}\nF1.COMMAND6.TEXT {Import}\n");
    f.Open();
    QVERIFY(ShowsAsDesigned(*f.window, QStringLiteral(WINDOWS), QStringLiteral("Form1")));
    f.window->findChild<StatusLine*>()->ShowWaiting(ResponsiveFiles::WaitsFor::Writer);
    const QWidget& bar = *f.window->statusBar();
    QVERIFY(ShowsAsDesigned(bar, QStringLiteral(WINDOWS), QStringLiteral("StatusBar")));
  }

  void ReadsAnEntryWithItsSettings() {
    Start();
    made_->Select(1);
    made_->Click("Command1");
    QCOMPARE(Cell(2, 1), QStringLiteral("110"));
    QVERIFY(Checked("Check1") && Checked("Check2") && Checked("Option2"));
    QVERIFY(ChartShown() && Enabled("Command3") && Enabled("Command4") && Enabled("Command5"));
    made_->Select(2);
    made_->Click("Command1");
    QVERIFY(!ChartShown() && !Enabled("Command4"));
    QVERIFY2(Checked("Option2"), "an entry without points leaves the settings alone");
    QVERIFY(made_->dialogs.asked.empty());
  }

  void TypingStandsInTheCellAtOnceAndEnterWalksOn() {
    WindowFixture& f = Start();
    auto* const grid = f.Find<editor::CurveGridView>("MSFlexGrid1");
    grid->setFocus();
    PressInFocus({Qt::Key_Return});
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text11"));
    PressInFocus({Qt::Key_PageDown});
    TypeInFocus(QStringLiteral("1.2"));
    QCOMPARE(Cell(1, 1), QStringLiteral("1.2"));
    QVERIFY(f.session.table.tableModified);
    PressInFocus({Qt::Key_Return});
    TypeInFocus(QStringLiteral("30"));
    PressInFocus({Qt::Key_Enter});
    QCOMPARE(Place(), QStringLiteral("2,1"));
    QVERIFY(!ChartShown());
    TypeInFocus(QStringLiteral("2"));
    PressInFocus({Qt::Key_Right});
    TypeInFocus(QStringLiteral("4x"));
    PressInFocus({Qt::Key_Escape});
    QCOMPARE(Cell(2, 2), QStringLiteral("4x"));
    QVERIFY(f.Find<QWidget>("Text11")->isHidden() && grid->hasFocus());
    QVERIFY(ChartShown() && Enabled("Command4"));
    TypeInFocus(QStringLiteral("9"));
    QVERIFY2(f.Find<QWidget>("Text11")->isHidden(), "typing on the grid opens nothing");
    QVERIFY(f.Find<QLabel>("StatusModified")->text().contains(QStringLiteral("Modified")));
  }

  void ClickOpensTheCellAndAPastedPairFillsTheRow() {
    WindowFixture& f = Start();
    auto* const grid = f.Find<editor::CurveGridView>("MSFlexGrid1");
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualRect(grid->model()->index(4, 0)).center());
    QCOMPARE(Place(), QStringLiteral("5,1"));
    QVERIFY2(!f.session.table.tableModified, "opening a cell is no edit");
    QGuiApplication::clipboard()->setText(QStringLiteral("1.5\t10\n7\t7"));
    f.Find<QLineEdit>("Text11")->paste();
    QCOMPARE(Cell(5, 1) + '|' + Cell(5, 2), QStringLiteral("1.5|10"));
    QCOMPARE(f.Find<QLineEdit>("Text11")->text(), QStringLiteral("1.5"));
    PressInFocus({Qt::Key_Right});
    f.Find<QLineEdit>("Text11")->selectAll();
    f.Find<QLineEdit>("Text11")->paste();
    QCOMPARE(Cell(5, 2), QStringLiteral("1.5"));
  }

  void GridEditTakesACharacterAboveTheDoubleQuote() {
    WindowFixture& f = Start();
    made_->Click("Command1");
    auto* const grid = f.Find<editor::CurveGridView>("MSFlexGrid1");
    grid->GridEdit(' ');
    QCOMPARE(f.Find<QLineEdit>("Text11")->text(), QStringLiteral("1.5"));
    QVERIFY(!f.session.table.tableModified);
    grid->GridEdit('7');
    QCOMPARE(Cell(1, 1), QStringLiteral("7"));
    auto* const field = f.Find<QLineEdit>("Text11");
    QCOMPARE(field->cursorPosition(), 1);
    QVERIFY(f.session.table.tableModified);
    // It stays over its cell, which comes into view when it is opened.
    const auto isOver = [&] { return field->geometry() == grid->visualRect(grid->currentIndex()); };
    f.window->resize(1100, 300);
    QVERIFY(isOver());
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum());
    QVERIFY(isOver() && field->y() < 0);
    grid->CloseEditor();
    grid->GridEdit(' ');
    QVERIFY(isOver() && field->y() >= 0);
    f.window->statusBar()->showMessage(QStringLiteral("before"));
    f.Click("Option1");
    QCOMPARE(SaidBelow(), QString());
    grid->GridEdit(' ');
    f.Find<QAction>("m_standard")->trigger();
    QVERIFY2(!EditorOpen(), "it works on the whole curve");
  }

  void ReadUpdateAndRemoveAskFirstAndChangeOneLine() {
    WindowFixture& f = Start(kLibrary, ",");
    made_->Click("Command1");
    QCOMPARE(Cell(1, 1), QStringLiteral("1,5"));
    Grid().GridEdit('9');
    f.dialogs.answer = false;
    for (const char* const command : {"Command1", "Command4", "Command2"}) made_->Click(command);
    QCOMPARE(f.dialogs.asked.size(), 3u);
    QCOMPARE(f.Bytes(), kLibrary);
    QCOMPARE(Cell(1, 1), QStringLiteral("9"));
    f.dialogs.answer = true;
    made_->Click("Command4");
    QByteArray expected = kLibrary;
    expected.replace("(1.5;10)", "(9;10)");
    QCOMPARE(f.Bytes(), expected);
    QVERIFY(!f.session.table.tableModified);
    QVERIFY(f.dialogs.asked.back().find("SI") != std::string::npos);
    Grid().GridEdit('8');
    made_->Click("Command1");
    QVERIFY(Cell(1, 1) == "9" && !f.session.table.tableModified);
    made_->Click("Command2");
    QCOMPARE(NamesIn(*made_->window), QStringLiteral("U> ms|Empty"));
    QCOMPARE(f.Bytes(), expected.mid(expected.indexOf('\n') + 1));
    QCOMPARE(Cell(1, 1), QStringLiteral("9"));
  }

  void AddNewTakesANameAndRefusesATakenOne() {
    WindowFixture& f = Start();
    made_->Click("Command1");
    made_->Click("Command3");
    auto* const box = f.Find<QLineEdit>("Text1");
    QVERIFY(box->isVisible() && box->hasFocus());
    TypeInFocus(QStringLiteral(" u> MS "));
    PressInFocus({Qt::Key_Return});
    QCOMPARE(f.dialogs.asked.size(), 1u);
    QVERIFY(box->isVisible() && box->text().isEmpty());
    TypeInFocus(QStringLiteral(" Neu Ü "));
    PressInFocus({Qt::Key_Return});
    QVERIFY(!box->isVisible());
    QCOMPARE(NamesIn(*made_->window), QStringLiteral("SI|U> ms|Empty|Neu Ü"));
    QCOMPARE(f.Find<QListView>("List1")->currentIndex().row(), 0);
    QCOMPARE(f.Bytes(), kLibrary + "{\"Neu \xDC\"\t(1.5;10)(2;4.25)(3;2) 001}\r\n");
    made_->Click("Command3");
    PressInFocus({Qt::Key_Return});
    QVERIFY(!box->isVisible());
  }

  void AnotherTableFileBecomesTheActiveOne() {
    WindowFixture& f = Start();
    auto* const choose = f.Find<QAction>("m_act");
    choose->trigger();
    QCOMPARE(NamesIn(*made_->window), QStringLiteral("SI|U> ms|Empty"));
    f.Write("other.dat", "{\"Only\"\t(1;2)(3;4) 000}");
    f.dialogs.file = f.Path("other.dat");
    choose->trigger();
    QCOMPARE(NamesIn(*made_->window), QStringLiteral("Only"));
    const auto* const file = f.Find<QLabel>("StatusFile");
    QVERIFY(file->text().endsWith(QStringLiteral("other.dat")));
    QCOMPARE(QDir(file->toolTip()), QDir(f.Path("other.dat")));
    QVERIFY(file->width() > f.window->statusBar()->width() / 2);
    made_->Click("Command1");
    QCOMPARE(Cell(2, 2), QStringLiteral("4"));
    // Of a long path the end is shown.
    for (const int length : {70, 71}) {
      f.dialogs.file = QString(length - 6, 'x') + QStringLiteral("/t.dat");
      choose->trigger();
      const QString shown = file->text();
      QCOMPARE(shown.size(), qsizetype{length});
      QVERIFY(shown.endsWith(QDir::toNativeSeparators("x/t.dat")) &&
              (shown[0] == 'x') == (length == 70));
    }
  }

  void ClosingKeepsTheSettingsAndAsksForEdits() {
    WindowFixture& f = Start();
    made_->Select(1);
    made_->Click("Command1");
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    f.window->setGeometry(100, 80, 1300, 840);
    Grid().GridEdit('8');
    f.dialogs.answer = false;
    QVERIFY(!f.window->close() && !EditorOpen());
    QCOMPARE(f.store.values["NomLoad1"], std::string("5"));
    QCOMPARE(f.store.values["AbsValues"], std::string("1"));
    QCOMPARE(f.store.values["TableName"], std::string("relayTables.dat"));
    QCOMPARE(f.store.values["F1Width"], std::string("19500"));
    f.dialogs.answer = true;
    f.window->showMaximized();
    QVERIFY(f.window->close());
    QCOMPARE(f.store.values["F1Width"], std::string("19500"));
    // 64 pixels of it are enough to drag it, if its upper edge is there.
    const QPoint last = f.window->screen()->availableGeometry().bottomRight() - QPoint(63, 63);
    const QList<QPoint> reached = {{last.x(), 0}, {9, last.y()}, {9, -1}, {100, 50}};
    const QList<QPoint> lost = {{last.x() + 1, 0}, {9, last.y() + 1}, {9, -2},
                                {-2000, 0},        {60000, 0},        {0, -2000}};
    for (const QPoint& place : lost + reached) {
      f.store.values["F1Left"] = std::to_string(place.x() * 15);
      f.store.values["F1Top"] = std::to_string(place.y() * 15);
      f.Open();
      QCOMPARE(f.window->pos() == place, reached.contains(place));
      QVERIFY(f.window->screen()->geometry().intersects(f.window->geometry()));
    }
    f.store.values["F1Left"] = "-5e7";
    f.store.values["F1Height"] = "1499999";
    f.Open();
    QCOMPARE(f.window->width(), 1300);
    QVERIFY(f.window->x() > -1000 && f.window->y() == 50);
    QVERIFY(f.window->height() <= 2 * f.window->screen()->virtualSize().height());
    QVERIFY(Checked("Check1"));
    QCOMPARE(f.Find<QLineEdit>("Text2")->text(), QString());
  }

  void TheFirstWindowLeavesRoomForFrameAndTitle() {
    QCOMPARE(SizeOnScreen({1240, 820}, {1920, 1040}), QSize(1240, 820));
    QCOMPARE(SizeOnScreen({1240, 820}, {1366, 768}), QSize(1240, 720));
    QCOMPARE(SizeOnScreen({1240, 820}, {910, 512}), QSize(894, 464));
    for (const char* const language : {"", ".de", ".zh_CN"}) {
      made_ = std::make_unique<WindowFixture>(kLibrary);
      made_->OpenIn(QLatin1String(language));
      // The menu and the status bar come to it.
      const auto* const frame = static_cast<QScrollArea*>(made_->window->centralWidget());
      const QSize least = frame->widget()->minimumSizeHint() + QSize(0, 60);
      QVERIFY2(least.width() <= 1350 && least.height() <= 680, language);
    }
    // What comes into it later gets its room.
    made_->window->resize(900, 200);
    const int least = made_->window->height();
    made_->Find<QAction>("m_assess")->trigger();
    QTRY_VERIFY(made_->window->height() > least);
    const auto& frame = *static_cast<QScrollArea*>(made_->window->centralWidget());
    const QSize room = frame.screen()->availableSize() - QSize(32, 140);
    QCOMPARE(frame.minimumSizeHint(), frame.widget()->minimumSizeHint().boundedTo(room));
  }

  void TheCataloguesCaptionTheWindowAndSwitchTheLogOn() {
    WindowFixture& f = Start();
    QVERIFY(f.Find<QWidget>("Check1")->isHidden() && f.Find<QWidget>("Text4")->isHidden());
    f.Write("Zentab.txt", "F1.COMMAND1.TEXT {default}\nF1.COMMAND9.TEXT {Clear}\nDIFF.TYPE {-}\n");
    f.Write("Zentab2.txt",
            "F1.COMMAND1.TEXT {Lesen}\nF1.LOGGFILE {x}\nF1.CHECK1.TEXT {Abs}\n"
            "F1.LABEL2.TEXT {<%1>}\nGRID.LOAD.HEADING {Last}\nLOAD.LABEL.REL.TEXT {Last %F}\n"
            "F1.MSGBOX2.TXT {weg: %1}\nF1.COMMAND5.TEXT {GRH I}\n");
    f.Open();
    QCOMPARE(f.Find<QAbstractButton>("Command1")->text(), QStringLiteral("Lesen"));
    for (const char* const name : {"Command9", "Check1", "Text4", "LabelText4"}) {
      QVERIFY2(f.Find<QWidget>(name)->isVisible(), name);
    }
    QVERIFY(f.Find<QWidget>("Command8")->isHidden());
    made_->Click("Command1");
    QCOMPARE(f.Find<QAbstractButton>("Command5")->text(), QStringLiteral("GRH I"));
    QCOMPARE(f.Find<QLabel>("Label3")->text(), QStringLiteral("Last relayTables.dat"));
    QCOMPARE(f.Find<editor::CurveChart>("MSChart1")->xAxis->label(),
             QStringLiteral("<Last relayTables.dat>"));
    QCOMPARE(f.Find<QTableView>("MSFlexGrid1")->model()->headerData(0, Qt::Horizontal).toString(),
             QStringLiteral("Last"));
    made_->Click("Command2");
    QCOMPARE(f.dialogs.asked.back(), std::string("weg: SI"));
    const auto* const said = f.window->statusBar();
    QCOMPARE(said->currentMessage(), QString());
    f.Write("Zentab.dxt", "F1.COMMAND1.TEXT {again}\n");
    f.dialogs.file = f.Path("relayTables.dat");
    f.Find<QAction>("m_act")->trigger();
    QCOMPARE(f.Find<QAbstractButton>("Command1")->text(), QStringLiteral("again"));
    QCOMPARE(said->currentMessage(), QString());
    QVERIFY(QFile::remove(f.Path("Zentab.dxt")) && QDir(f.Path(".")).mkdir("Zentab.dxt"));
    f.Find<QAction>("m_act")->trigger();
    QVERIFY2(said->currentMessage().startsWith("The text catalogue could not be read"),
             qPrintable(said->currentMessage()));
    QVERIFY(f.window->close());
    QString log = QString::fromUtf8(f.Bytes("Zentab.log"));
    log.replace(QRegularExpression("\\d\\d:\\d\\d "), QString()).replace("\r\n", "|");
    QVERIFY2(QRegularExpression("^\\d{8} Started\\| Current selected \\|").match(log).hasMatch(),
             qPrintable(log));
    QVERIFY(
        log.endsWith("| Unloading... | Close request | Current is Open | Close Current 1| Exit|"));
  }

  void BadTableFilesAreShownAsFarAsTheyGo_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("rows");
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("LF") << QByteArray("{\"a\"\t(1;2)(2;3) 000}\n{\"b\"\t 000}") << 2;
    QTest::newRow("CR") << QByteArray("{\"a\"\t(1;2)(2;3) 000}\r{\"b\"\t 000}\r") << 2;
    QTest::newRow("one long line") << QByteArray("{\"") + QByteArray(5 << 20, 'x') + "\"" << 1;
    QTest::newRow("NUL") << QByteArray("{\"a\0b\"\t(1;\0)(2;3) 000}\r\n", 25) << 1;
    QTest::newRow("brackets") << QByteArray("{\"x\"\t") + QByteArray(1 << 20, '(') << 1;
    QByteArray random;
    for (unsigned i = 0, state = 1; i < 100000; ++i) {
      state = state * 1664525u + 1013904223u;
      random.append(static_cast<char>(state >> 24));
    }
    QTest::newRow("random") << random << -1;
  }
  void BadTableFilesAreShownAsFarAsTheyGo() {
    QFETCH(QByteArray, bytes);
    QFETCH(int, rows);
    WindowFixture& f = Start(bytes);
    auto* const list = f.Find<QListView>("List1");
    if (rows >= 0) QCOMPARE(list->model()->rowCount(), rows);
    QVERIFY(!f.window->grab().isNull());
    made_->Click("Command1");
    Grid().GridEdit('8');
    QVERIFY(!f.window->grab().isNull());
    QCOMPARE(f.Bytes(), bytes);
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::MainWindowTest)
#include "main_window_test.moc"
