#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include "app/widgets/qt_user_dialogs.h"
#include "editor/widgets/chart/curve_chart.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"SI\"\t(1.5;10)(2;4.25)(3;2) 001}\r\n"
    "{\"U> ms\"\t(100;500)(110;250) 112}\r\n"
    "{\"None\"\t(1;2)(2;3) 000}\r\n";

const QByteArray kCatalogue =
    "F1.PICKUP.LABEL {I > (A)}\r\nF1.PICKUP.LABEL2 {U > (V)}\r\n"
    "F1.LOGGFILE {on}\nF1.INSTRUMENT3.TEXT {&Other}\nF1.COMMAND6.TEXT {Import}\n"
    "F1.COMMAND5.TEXT {GRH I}\nF1.COMMAND5.TEXT2 {GRH U}\nF1.COMMAND5.TIP {hands over}\n"
    "F1.TEXT2.TIP {I>}\nF1.TEXT2.TIP2 {U>}\nF1.INSTRUMENT1.UNIT {A}\nF1.INSTRUMENT2.UNIT {V}\n"
    "F1.CHECK1.TEXT {abs}\nTIME.MS.TEXT {ms}\nLOAD.LABEL.ABS.TEXT {in %V}\n"
    "LOAD.LABEL.REL.TEXT {times %U}\nTIME.LABEL.S.TEXT {time %X}\nTIME.LABEL.MS.TEXT {t in %X}\n"
    "F1.MSGBOX6.HEAD {%U}\nF1.MSGBOX6.TXT {no %U}\n";

class InstrumentWindowTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start(const std::string& separator = ".",
                       const QByteArray& catalogue = kCatalogue) {
    made_ = std::make_unique<WindowFixture>(kLibrary, separator);
    made_->Write("Zentab.txt", catalogue);
    made_->Open();
    made_->Activate();
    return *made_;
  }
  void Read(int row) {
    auto* const list = made_->Find<QListView>("List1");
    list->setCurrentIndex(list->model()->index(row, 0));
    made_->Click("Command1");
  }
  [[nodiscard]] QString Text(const char* name) const {
    return made_->Find<QLineEdit>(name)->text();
  }
  [[nodiscard]] QString Tip(const char* name) const {
    return made_->Find<QWidget>(name)->toolTip();
  }
  [[nodiscard]] QString Labels() const {
    return made_->Find<QLabel>("Label3")->text() + '|' + made_->Find<QLabel>("Label2")->text();
  }
  [[nodiscard]] QString Cells() const {
    QString cells;
    for (int row = 1; row <= 26; ++row) {
      const auto cell = [&](int column) {
        return QString::fromStdString(made_->session.table.grid.Cell(row, column));
      };
      if (!cell(1).isEmpty()) cells += cell(1) + ' ' + cell(2) + '|';
    }
    return cells;
  }
  // What the log got since it was last looked at, without times.
  [[nodiscard]] QString TakeLog() {
    QString log = QString::fromUtf8(made_->Bytes("Zentab.log"));
    QFile::remove(made_->Path("Zentab.log"));
    return log.replace(QRegularExpression("\\d\\d:\\d\\d "), QString()).replace("\r\n", "|");
  }
  void SetInstrument(const char* kind, const char* text) {
    test::SetInstrument(made_->session.installFolder, kind, text);
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void AChoiceOpensItsModuleAndTheCurveGoesThereAndBack() {
    WindowFixture& f = Start();
    Read(2);
    QVERIFY2(!Enabled("Command5") && Text("Text2").isEmpty(), "no instrument is chosen");
    static_cast<void>(TakeLog());
    made_->Click("Option1");
    QVERIFY(f.window->isEnabled() && QApplication::overrideCursor() == nullptr);
    QCOMPARE(Text("Text2"), QStringLiteral("0.5"));
    QVERIFY(Enabled("Command5") && f.session.instrument == tables::Instrument::Current);
    QCOMPARE(f.Find<QAbstractButton>("Command5")->text(), QStringLiteral("GRH I"));
    QCOMPARE(Tip("Text2"), QStringLiteral("I>"));
    QCOMPARE(f.Find<QLabel>("LabelText2")->text(), QStringLiteral("I > (A)"));
    QCOMPARE(Labels(), QStringLiteral("times Current|time S"));
    made_->Click("Command5");
    const QByteArray reference = f.Bytes("data/current/reference.grh");
    QVERIFY(reference.contains("\r\n0.500000 2.000000 1.000000 3.000000 0.000000 "));
    made_->Click("Option2");
    QCOMPARE(Text("Text2"), QStringLiteral("110.25"));
    QCOMPARE(f.Find<QAbstractButton>("Command5")->text(), QStringLiteral("GRH U"));
    QCOMPARE(Tip("Command5"), QStringLiteral("hands over"));
    QCOMPARE(f.Find<QLabel>("LabelText2")->text(), QStringLiteral("U > (V)"));
    made_->Click("Command5");
    made_->Click("Option3");
    QVERIFY(!Enabled("Command5") && f.session.instrument == tables::Instrument::Third);
    QCOMPARE(Tip("Text2"), QStringLiteral("I>"));
    QCOMPARE(Text("Text2"), QStringLiteral("110.25"));
    QCOMPARE(TakeLog(),
             QStringLiteral(" Current selected | Close request | Open Current 1| I pickup = 0.5|"
                            " I Writing 1 lines from None absolute values| SetRefgraph 1|"
                            " Voltage selected | Close request | Current is Open | Close Current 1|"
                            " Open Voltage 1| U pickup = 110.25|"
                            " I Writing 1 lines from None absolute values| SetRefgraph 1|"
                            "  x selected | Close request | Voltage is Open | Close Voltage 1|"));
    const QString curve = Cells();
    made_->Click("Option2");
    f.session.table.grid.ClearPoints();
    made_->Click("Command5");
    QVERIFY(!f.window->statusBar()->currentMessage().isEmpty());
    for (const int row : {1, 2}) {
      for (const int column : {1, 2}) {
        f.session.table.grid.SetCell(row, column, std::to_string(row + column - 1));
      }
    }
    made_->Click("Command5");
    QVERIFY(f.window->statusBar()->currentMessage().isEmpty());
    made_->Click("Option3");
    static_cast<void>(TakeLog());
    f.session.table.grid.ClearPoints();
    f.dialogs.file = f.Path("data/voltage/reference.grh");
    made_->Click("Command6");
    QCOMPARE(Cells(), curve);
    QCOMPARE(TakeLog(), QStringLiteral(" Imported |"));
    QVERIFY(f.session.table.tableModified && Enabled("Command4"));
  }

  void AnInstrumentWithoutATextLeavesTheFormerOne() {
    Start(".",
          "F1.TEXT2.TIP {}\nF1.TEXT2.TIP2 {pickup <U>}\n"
          "F1.COMMAND5.TIP {}\nF1.COMMAND5.TIP2 {set <U>}\n");
    const QString chooseFirst = Tip("Text2");
    made_->Click("Option1");
    QCOMPARE(Tip("Text2"), chooseFirst);
    for (const char* const choice : {"Option2", "Option1"}) {
      made_->Click(choice);
      QCOMPARE(Tip("Text2"), QStringLiteral("pickup <U>"));
      QCOMPARE(Tip("Command5"), QStringLiteral("set <U>"));
    }
  }

  void TheWindowIsBusyWhileAnInstrumentIsChosen() {
    WindowFixture& f = Start(",");
    SetInstrument("voltage", "fail = open\n");
    bool closed = false;
    bool enabled = true;
    f.dialogs.onError = [&] {
      enabled = f.window->isEnabled();
      closed = f.window->close();
      made_->Click("Option1");
    };
    auto* const option2 = f.Find<QAbstractButton>("Option2");
    option2->setFocus();
    option2->click();
    QVERIFY(!enabled && !closed);
    QCOMPARE(f.dialogs.asked, std::vector<std::string>{"Voltage: no Voltage"});
    QVERIFY(Checked("Option2") && !Enabled("Command5") && !Enabled("Command10"));
    QCOMPARE(Text("Text2"), QStringLiteral("1"));
    QCOMPARE(QApplication::focusWidget(), option2);
    QVERIFY(f.window->isEnabled() && QApplication::overrideCursor() == nullptr);
    SetInstrument("voltage", "pickup = 2.5\n");
    made_->Click("Option2");
    QCOMPARE(Text("Text2"), QStringLiteral("2,5"));
    QCOMPARE(f.dialogs.asked.size(), 1u);
  }

  void AClickDuringAChoiceComesToNothing() {
    const WindowFixture& f = Start();
    auto* const other = f.Find<QAbstractButton>("Option2");
    const QPointF place(9, 9);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QCoreApplication::postEvent(
          other, new QMouseEvent(type, place, other->mapToGlobal(place), Qt::LeftButton,
                                 type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                 Qt::NoModifier));
    }
    made_->Click("Option1");
    QCoreApplication::processEvents();
    QVERIFY(Checked("Option1"));
  }

  void TheWindowTakesNoCommandInAModulesOwnLoop() {
    WindowFixture& f = Start();
    Read(0);
    SetInstrument("current", "pickup = 0.5\nwait = 200\n");
    static_cast<void>(TakeLog());
    bool ran = false;
    bool closed = false;
    QTimer again;
    connect(&again, &QTimer::timeout, f.window.get(), [&] {
      // While the graph's file is written, and then while the module has it.
      made_->Click("Command5");
      made_->Click("Command6");
      if (f.window->isEnabled()) return;
      ran = true;
      closed = closed || f.window->close();
      for (const char* const control : {"Option2", "Command1"}) made_->Click(control);
    });
    again.start(1);
    made_->Click("Command5");
    again.stop();
    QVERIFY(!closed);
    QVERIFY2(ran, "the module let no events run");
    QVERIFY(f.window->isEnabled() && QApplication::overrideCursor() == nullptr);
    QCOMPARE(TakeLog(),
             QStringLiteral(" I Writing 2 lines from SI absolute values| SetRefgraph 1|"));
  }

  void AMissingModuleIsSaidInABoxThatCanBeAnswered() {
    WindowFixture& f = Start();
    QVERIFY(QFile::remove(f.Path(QString::fromLatin1(test::kCurrentModule.data()))));
    QtUserDialogs dialogs(f.session);
    dialogs.SetParent(f.window.get());
    bool answerable = false;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    f.dialogs.onError = [&] {
      QTimer::singleShot(0, f.window.get(), [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) qFatal("there is no box");
        icon = box->icon();
        answerable = box->isEnabled() && box->button(QMessageBox::Ok)->isEnabled();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        if (box->isVisible()) box->reject();
      });
      dialogs.ReportError({"title", "text"});
    };
    made_->Click("Option1");
    QVERIFY(answerable);
    QCOMPARE(icon, QMessageBox::Critical);
    QVERIFY(f.window->statusBar()->currentMessage().contains("CURR_API"));
  }

  void ReadChoosesTheInstrumentOfTheEntryOnceOnly() {
    WindowFixture& f = Start();
    static_cast<void>(TakeLog());
    Read(0);
    QVERIFY(Checked("Option1") && Enabled("Command5"));
    QCOMPARE(Text("Text2"), QStringLiteral("0.5"));
    QCOMPARE(TakeLog(),
             QStringLiteral(" Current selected | Close request | Open Current 1| I pickup = 0.5|"));
    Read(0);
    Read(2);
    QVERIFY(Checked("Option1"));
    QCOMPARE(TakeLog(), QString());
    Read(1);
    QVERIFY(Checked("Option2") && Checked("Check1") && Checked("Check2"));
    QCOMPARE(Labels(), QStringLiteral("in V|t in mS"));
    QVERIFY(TakeLog().endsWith(QStringLiteral(" Open Voltage 1| U pickup = 110.25|")));
    made_->Click("Option3");
    Read(1);
    QVERIFY2(Checked("Option2") && Enabled("Command5"), "the third choice is left again");
    made_->Click("Option3");
    made_->Click("Command4");
    QVERIFY(f.Bytes().contains("(110;250) 110}"));
  }

  void ModesChangeCaptionsAndNeverTheGrid() {
    WindowFixture& f = Start();
    Read(0);
    const QString curve = Cells();
    made_->Click("Check1");
    QCOMPARE(Labels(), QStringLiteral("in A|time S"));
    made_->Click("Check2");
    QCOMPARE(Labels(), QStringLiteral("in A|t in mS"));
    QCOMPARE(Cells(), curve);
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("3"));
    f.Find<QLineEdit>("Text3")->setText(QStringLiteral("2"));
    made_->Click("Command5");
    QVERIFY(f.Bytes("data/currtmp.grh").contains("\r\n1.500000 0.020000 2.000000 0.008500 "));
    QVERIFY(TakeLog().contains(QStringLiteral(" I Writing 2 lines from SI using 3|")));
    QVERIFY(!f.session.table.tableModified);
  }

  void WithoutAUnitTheLoadCaptionHasNoBrackets() {
    const QByteArray caption =
        "F1.CHECK1.TEXT {abs}\nF1.INSTRUMENT3.TEXT {Other}\n"
        "F1.INSTRUMENT1.UNIT {A}\nLOAD.LABEL.ABS.TEXT {";
    const std::pair<const char*, const char*> cases[] = {{"Load level (%V)}\n", "Load level"},
                                                         {"负荷水平（%V）}\n", "负荷水平"},
                                                         {"[%V] load}\n", " load"},
                                                         {"in %V}\n", "in "}};
    for (const auto& [text, without] : cases) {
      made_.reset();
      Start(".", caption + text);
      made_->Click("Check1");
      QCOMPARE(made_->Find<QLabel>("Label3")->text(), QString::fromUtf8(without));
      QCOMPARE(made_->Find<editor::CurveChart>("MSChart1")->xAxis->label(),
               QString::fromUtf8(without));
      made_->Click("Option1");
      QVERIFY(made_->Find<QLabel>("Label3")->text().contains('A'));
      made_->Click("Option3");
      QCOMPARE(made_->Find<QLabel>("Label3")->text(), QString::fromUtf8(without));
    }
  }

  void TheMultiplierBeginsWithADigit() {
    WindowFixture& f = Start(",");
    auto* const field = f.Find<QLineEdit>("Text3");
    field->setFocus();
    const std::pair<const char*, const char*> cases[] = {
        {".", ""},  {"-", ""},    {",5", "5"},  {"1,5", "1,5"}, {"1.5", "1.5"},
        {"2x", ""}, {"1e3", "3"}, {"12", "12"}, {"1,5,", ""},   {" ", ""}};
    for (const auto& [typed, kept] : cases) {
      field->clear();
      QTest::keyClicks(field, QString::fromLatin1(typed));
      QCOMPARE(field->text(), QString::fromLatin1(kept));
      QCOMPARE(f.session.modes.multiplier, std::string(kept));
    }
    for (const char* const zero : {"0", "0,00"}) {
      field->setFocus();
      QTest::keyClicks(field, QString::fromLatin1(zero));
      f.Find<QWidget>("List1")->setFocus();
      QCOMPARE(field->text(), QString());
    }
    // An access key presses the button and leaves the focus where it is.
    Read(0);
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("0"));
    made_->Click("Command5");
    QVERIFY(f.Bytes("data/currtmp.grh").contains("\r\n0.750000 10.000000 1.000000 4.250000 "));
  }

  void ImportAsksBeforeEditsAreLostAndRefusesABrokenFile() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path("bad.grh");
    made_->Click("Command6");
    QCOMPARE(f.dialogs.asked.size(), 1u);
    QVERIFY2(f.dialogs.asked[0].find("pickup") != std::string::npos, "relative, no pickup value");
    Read(0);
    const QString curve = Cells();
    made_->Click("Command5");
    made_->Click("Command6");
    QVERIFY(f.dialogs.asked.back().find("bad.grh could not be read") != std::string::npos);
    f.Write("bad.grh", "@A\r\n1\r\n1 2 3 x 0 0 0\r\n");
    made_->Click("Command6");
    QVERIFY(f.dialogs.asked.back().find("bad.grh is not a reference graph. Line 3: ") !=
            std::string::npos);
    QCOMPARE(Cells(), curve);
    QVERIFY(!f.session.table.tableModified);
    QVERIFY(QFile::copy(f.Path("data/current/reference.grh"), f.Path("good.grh")));
    f.dialogs.file = f.Path("good.grh");
    Grid().GridEdit('8');
    const QString edited = Cells();
    QVERIFY(edited != curve);
    for (const auto& [answer, cells] : {std::pair(false, edited), {true, curve}}) {
      f.dialogs.answer = answer;
      f.dialogs.asked.clear();
      made_->Click("Command6");
      QCOMPARE(f.dialogs.asked, std::vector<std::string>{f.session.texts.messages[1].text});
      QCOMPARE(Cells(), cells);
      QVERIFY2(f.Find<QWidget>("Text11")->isHidden(), "its text would come over what is imported");
    }
    f.Write("bad.grh",
            "@A\r\n2\r\n2 4 3 5 0 0 0\r\n0 0\r\n7 5 8 5 0 0 0\r\n0 0\r\n"
            "\r\n0\r\n\r\n2\r\n1 0 0\r\n2\r\n0\r\n0\r\n0 65280\r\n");
    f.dialogs.file = f.Path("bad.grh");
    made_->Click("Command6");
    QVERIFY(Cells() != curve);
    QVERIFY2(f.window->statusBar()->currentMessage().contains(QLatin1String("skipped")),
             qPrintable(f.window->statusBar()->currentMessage()));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::InstrumentWindowTest)
#include "instrument_window_test.moc"
