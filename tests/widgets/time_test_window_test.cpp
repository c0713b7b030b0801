#include <QAbstractButton>
#include <QCheckBox>
#include <QLineEdit>
#include <QProgressDialog>
#include <QTest>

#include "app/widgets/testset/import_progress.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kTexts =
    "F1.LOGGFILE {on}\r\n"
    "DIFF.TYPE {-}\r\nFILTER.TYPE {-}\r\nVALUE.MEAN.OVER {-}\r\n"
    "FILTER.EQUATION.4 {t1+*2}\r\n";
const QByteArray kResult = "1\t3\t2500\t\r\n2\t6\t1500\t\r\n3\t9\t1000\t\r\n";

class TimeTestWindowTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start() {
    made_ = std::make_unique<WindowFixture>("{\"SI\"\t(1.5;10)(2;4.25) 001}\r\n", ",");
    made_->Write("Zentab.txt", kTexts);
    made_->WriteTimeTest(kResult);
    made_->window.reset();
    made_->Open();
    return *made_;
  }
  [[nodiscard]] bool Offered() const { return made_->Find<QWidget>("Command10")->isEnabled(); }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void ImportsFromTheChosenInstrumentByMouseAndKeyboard() {
    WindowFixture& fixture = Start();
    QVERIFY(!Offered());
    made_->Click("Option2");
    QVERIFY(!Offered());
    made_->Click("Option1");
    QVERIFY(Offered());
    for (const char* const field : {"Text4", "Text5", "Text6"}) {
      QVERIFY(fixture.Find<QWidget>(field)->isVisible());
    }
    fixture.Find<QLineEdit>("Text2")->setText("1,5");
    fixture.Find<QLineEdit>("Text6")->setText("2");
    made_->Click("Command10");
    QCOMPARE(PointRow(), QStringLiteral("2;2,5|4;2|6;1,25"));
    QVERIFY(fixture.Find<QWidget>("MSChart1")->isVisible());
    QVERIFY(fixture.Find<QWidget>("Command3")->isEnabled());
    QVERIFY(!fixture.session.table.tableModified);
    QVERIFY(fixture.Bytes("Zentab.log").contains(" Import time test \r\n"));

    fixture.Find<QCheckBox>("Check1")->setChecked(true);
    fixture.Find<QLineEdit>("Text6")->clear();
    fixture.Find<QLineEdit>("Text6")->setText("1");
    auto* const button = fixture.Find<QAbstractButton>("Command10");
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(Points().at(1), QStringLiteral("6\t1,5"));
  }

  void AsksBeforeEditsAreLostAndTellsOfABadEquation() {
    WindowFixture& fixture = Start();
    made_->Click("Option1");
    fixture.session.table.grid.SetCell(1, 1, "mine");
    fixture.session.table.tableModified = true;
    fixture.dialogs.answer = false;
    made_->Click("Command10");
    QCOMPARE(fixture.dialogs.asked,
             std::vector<std::string>{fixture.session.texts.messages[1].text});
    QVERIFY(PointRow().startsWith("mine;") || PointRow() == "mine");
    fixture.dialogs.answer = true;
    fixture.Find<QLineEdit>("Text5")->setText("4");
    made_->Click("Command10");
    QCOMPARE(fixture.dialogs.asked.back(), std::string("ERROR: Error in filter equation #4"));
    QVERIFY(PointRow().startsWith("mine;") || PointRow() == "mine");
    QVERIFY(fixture.session.table.tableModified);
  }

  void WhatAnImportCouldNotDoIsTold() {
    WindowFixture& fixture = Start();
    made_->Click("Option1");
    // Nothing told apart: an equation that fails at every point.
    QByteArray result = "Test\r\n";
    for (int point = 1; point <= 40; ++point) {
      result += QByteArray::number(point) + "\t1\t" + QByteArray::number(point) + "\t\r\n";
    }
    fixture.Write("data/current/result.txt", result);
    fixture.session.texts.equations[0][1] = "1/0";
    fixture.Find<QLineEdit>("Text4")->setText("1");
    made_->Click("Command10");
    const auto& grid = fixture.session.table.grid;
    QCOMPARE(grid.Cell(1, 2) + "-" + grid.Cell(26, 2), std::string("0,001-0,04"));
    const texts::ProgramTexts& texts = fixture.session.texts.program;
    QVERIFY(SaidBelow().startsWith(QString::fromStdString(texts.selectedByRank)));
    QVERIFY(QDir(fixture.Path(".")).mkdir("Zentab_ImportTable.txt"));
    fixture.session.texts.import.printTable = true;
    fixture.Find<QLineEdit>("Text4")->setText("0");
    made_->Click("Command10");
    QVERIFY(SaidBelow().startsWith(QString::fromStdString(texts.traceFailed + ": ")));
  }

  void AResultFileThatIsGoneWithdrawsTheCommand() {
    WindowFixture& fixture = Start();
    made_->Click("Option1");
    const QString result = fixture.Path("data/current/result.txt");
    QVERIFY(QFile::remove(result));
#ifndef Q_OS_WIN  // where no file leads to itself
    QVERIFY(QFile::link(result, result));
    made_->Click("Command10");
    QVERIFY(SaidBelow().startsWith("The time test could") && fixture.dialogs.asked.empty());
    QVERIFY(QFile::remove(result));
#endif
    made_->Click("Command10");
    QVERIFY(!Offered());
    QCOMPARE(PointRow(), QString());
    // The next time test is found when the user comes back.
    fixture.WriteTimeTest(kResult);
    QEvent event(QEvent::ActivationChange);
    fixture.Activate();
    QCoreApplication::sendEvent(fixture.window.get(), &event);
    QTRY_VERIFY(Offered());
    // With a module that does not open it is of no use.
    test::SetInstrument(fixture.session.installFolder, "current", "fail = open\n");
    made_->Click("Option1");
    QVERIFY(!Offered());
    QCoreApplication::sendEvent(fixture.window.get(), &event);
    // The files' thread does one thing after the other.
    made_->Click("Command1");
    QCoreApplication::processEvents();
    QVERIFY(!Offered());
  }

  void ALongImportShowsHowFarItIsAndCanBeStopped() {
    QWidget window;
    const texts::ProgramTexts texts;
    ImportProgress progress(&window, texts);
    const auto bar = [&] { return window.findChild<QProgressDialog*>("ImportProgress"); };
    QVERIFY(progress.Report(0.1));
    QVERIFY(bar() == nullptr);
    QTest::qWait(350);
    QVERIFY(progress.Report(1.0));
    QVERIFY(bar() != nullptr && bar()->isVisible() && bar()->isModal());
    QCOMPARE(bar()->value(), 1000);
    bar()->cancel();
    QTest::qWait(50);
    QVERIFY(!progress.Report(0.5));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::TimeTestWindowTest)
#include "time_test_window_test.moc"
