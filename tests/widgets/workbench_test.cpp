#include <QCheckBox>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QToolTip>

#include "app/form_values.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kSite =
    "F1.LOGGFILE {on}\r\n"
    "TABLE.PRINT {1}\r\n"
    "DIFF.EQUATION.1 {(t2-t1)-(t1-t0)}\r\n"
    "FILTER.EQUATION.7 {t1*(t1<3)-(t1>=3)}\r\n"
    "FILTER.EQUATION.8 {t1+*2}\r\n"
    "VALUE.EQUATION.3 {t0*2}\r\n";
const QString kCatalogue = QStringLiteral("Zentab1.txt");
const QString kResult = QStringLiteral("data/current/result.txt");

class WorkbenchTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start(const std::string& separator = ".") {
    made_ = std::make_unique<WindowFixture>("{\"SI\"\t(1.5;10)(2;4.25) 001}\r\n", separator);
    made_->Write(kCatalogue, kSite);
    made_->WriteTimeTest(WindowFixture::SixtyPoints());
    made_->window.reset();
    made_->Open();
    made_->Activate();
    made_->Click("Option1");
    return *made_;
  }
  [[nodiscard]] QDialog* Opened() const {
    made_->Click("CommandPreview");
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) qFatal("no dialog opens");
    return dialog;
  }
  [[nodiscard]] static QString Said(const QDialog& dialog, const char* label) {
    return dialog.findChild<QLabel*>(QLatin1String(label))->text();
  }
  static void Set(const QDialog& dialog, const char* field, int number) {
    dialog.findChild<QSpinBox*>(QLatin1String(field))->setValue(number);
  }
  [[nodiscard]] static QPushButton* Ok(const QDialog& dialog) {
    return dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  }
  // What an import leaves behind, whoever gave the command.
  [[nodiscard]] QStringList Left() const {
    QStringList left = {PointRow(), made_->Bytes("Zentab_ImportTable.txt")};
    // Lines begin with the time, the first one with the date and the time.
    for (const QByteArray& line : made_->Bytes("Zentab.log").split('\n')) {
      left += line.mid(line.indexOf(':') + 3);
    }
    for (const std::string& asked : made_->dialogs.asked) left += QString::fromStdString(asked);
    for (const char* const field : {"Text4", "Text5", "Text6"}) {
      left += made_->Find<QLineEdit>(field)->text();
    }
    made_->Find<QAction>("m_undo")->trigger();
    return left += PointRow();
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void AcceptingDoesWhatTheButtonDoes() {
    const struct {
      int difference, filter, mean;
      QString timeout;  // of the catalogue, for the button
      bool edited = false, answer = true;
    } cases[] = {{0, 0, 0, "0"},        {0, 2, 1, "0"},       {1, 3, 5, "0"},
                 {1, 7, 3, "0"},        {5, 0, 3, "2.5"},     {-3, 1, 32767, "30"},
                 {0, -32768, 2, "0.5"}, {0, 0, 2, "0", true}, {0, 0, 2, "0", true, false}};
    for (const auto& c : cases) {
      const auto begin = [&] {
        WindowFixture& fixture = Start(",");
        fixture.dialogs.answer = c.answer;
        fixture.session.table.grid.SetCell(1, 1, "mine");
        fixture.session.table.tableModified = c.edited;
      };
      begin();
      made_->session.texts.import.timeout = c.timeout.toStdString();
      made_->Find<QLineEdit>("Text4")->setText(QString::number(c.difference));
      made_->Find<QLineEdit>("Text5")->setText(QString::number(c.filter));
      made_->Find<QLineEdit>("Text6")->setText(QString::number(c.mean));
      made_->Click("Command10");
      const QStringList byButton = Left();
      QCOMPARE(made_->dialogs.asked.size(), std::size_t{c.edited ? 1U : 0U});
      begin();
      const QDialog& dialog = *Opened();
      Set(dialog, "Field_difference", c.difference);
      Set(dialog, "Field_filter", c.filter);
      Set(dialog, "Field_mean", c.mean);
      dialog.findChild<QLineEdit*>("Field_timeout")->setText(QString(c.timeout).replace('.', ','));
      QTRY_VERIFY(Ok(dialog)->isEnabled());
      Ok(dialog)->click();
      QCOMPARE(Left(), byButton);
      QCOMPARE(made_->session.texts.import.timeout, std::string());
    }
  }

  void AnEquationIsWrittenCorrectedAndTried() {
    Start();
    const QDialog& dialog = *Opened();
    auto* const list = dialog.findChild<QListWidget*>("ListEquations");
    auto* const field = dialog.findChild<QLineEdit*>("Field_equation");
    const auto* const write = dialog.findChild<QPushButton*>("CommandWrite");
    QTRY_VERIFY(Ok(dialog)->isEnabled());
    list->setCurrentRow(3);
    field->setFocus();
    QTest::keyClicks(field, "abs(t0-t1)*tm");
    auto* const offered = QApplication::activePopupWidget();
    QVERIFY(offered != nullptr && offered->objectName() == QLatin1String("ListCompletions"));
    QTest::keyClick(offered, Qt::Key_Down);
    QCOMPARE(offered->y(), field->mapToGlobal(field->rect().bottomLeft()).y());
    const auto* const words = qobject_cast<QAbstractItemView*>(offered);
    QVERIFY(!QToolTip::text().isEmpty());
    QCOMPARE(QToolTip::text(), words->currentIndex().data(Qt::ToolTipRole).toString());
    QTest::keyClick(offered, Qt::Key_Return);
    QCOMPARE(field->text(), QStringLiteral("abs(t0-t1)*tMax"));
    QTest::keyClicks(field, "+)");
    QCOMPARE(Said(dialog, "LabelRemark"),
             QStringLiteral("Character 17: Too many closing brackets"));
    QVERIFY(!write->isEnabled());
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClick(field, Qt::Key_Space);
    QTest::keyClicks(field, "1");
    QCOMPARE(Said(dialog, "LabelRemark"), QString());
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(field->selectedText(), QStringLiteral("abs(t0-t1)*tMax+ 1"));
    QVERIFY(Ok(dialog)->isEnabled());  // it is not in use
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(dialog.findChild<QSpinBox*>("Field_difference")->value(), 4);
    QVERIFY(dialog.isVisible() && !Ok(dialog)->isEnabled());
    QCOMPARE(made_->Bytes(kCatalogue), kSite);
    dialog.findChild<QPushButton*>("CommandWrite")->click();
    QCOMPARE(made_->Bytes(kCatalogue), kSite + "DIFF.EQUATION.4 {abs(t0-t1)*tMax+ 1}\r\n");
    QCOMPARE(made_->session.texts.equations[0][4], std::string("abs(t0-t1)*tMax+ 1"));
    QTRY_VERIFY(Ok(dialog)->isEnabled());
    // One that cannot be written says so, and stays a draft.
    made_->files.bytesThatFit = 0;
    QTest::keyClicks(field, "2");
    dialog.findChild<QPushButton*>("CommandWrite")->click();
    QVERIFY(Said(dialog, "LabelRemark").startsWith(QLatin1String("Not written to Zentab1.txt: ")));
    QVERIFY(write->isEnabled() && !Ok(dialog)->isEnabled());
    QVERIFY(made_->Bytes(kCatalogue).endsWith("tMax+ 1}\r\n"));
    dialog.findChild<QPushButton*>("CommandRevert")->click();
    QTRY_VERIFY(Ok(dialog)->isEnabled());
  }

  void NamesAreOffered() {
    Start();
    const QDialog& dialog = *Opened();
    dialog.findChild<QListWidget*>("ListEquations")->setCurrentRow(3);
    auto* const field = dialog.findChild<QLineEdit*>("Field_equation");
    field->setFocus();
    // All names are offered where that is asked for, and Tab takes one as Enter does.
    field->setCursorPosition(0);
    QTest::keyClick(field, Qt::Key_Space, Qt::ControlModifier);
    auto* const all = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget());
    QVERIFY(all != nullptr);
    QTest::keyClick(all, Qt::Key_Down);
    const QString first = all->currentIndex().data().toString();
    QTest::keyClick(all, Qt::Key_Tab);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QVERIFY2(!first.isEmpty() && field->text().startsWith(first.section('(', 0, 0)),
             qPrintable(first + ' ' + field->text()));
    // A bracket that is there already is not written once more.
    field->setText(QStringLiteral("2+ab(1)"));
    field->setCursorPosition(4);
    QTest::keyClick(field, Qt::Key_Space, Qt::ControlModifier);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    QCOMPARE(field->text(), QStringLiteral("2+abs(1)"));
    field->clear();
    QTest::keyClicks(field, "t0");
    QVERIFY(QApplication::activePopupWidget() == nullptr);
  }

  void WhatIsNotWrittenIsThereTheNextTime() {
    Start();
    // The last of them all.
    QDialog* dialog = Opened();
    Set(*dialog, "Field_mean", 10);
    dialog->findChild<QLineEdit*>("Field_equation")->setText("t0+");
    dialog->reject();
    dialog = Opened();
    Set(*dialog, "Field_mean", 10);
    QCOMPARE(dialog->findChild<QLineEdit*>("Field_equation")->text(), QStringLiteral("t0+"));
    dialog->findChild<QPushButton*>("CommandRevert")->click();
    dialog->reject();
    dialog = Opened();
    Set(*dialog, "Field_mean", 10);
    QVERIFY(!dialog->findChild<QPushButton*>("CommandRevert")->isEnabled());
  }

  void StagesSayWhatTheyDoAndWhatIsWrong() {
    Start().session.texts.import.timeout = "0,000";
    const QDialog& dialog = *Opened();
    QCOMPARE(dialog.findChild<QLineEdit*>("Field_timeout")->text(), QStringLiteral("0"));
    QTRY_COMPARE(Said(dialog, "LabelEffect0"), QStringLiteral("60 points"));
    QTRY_COMPARE(Said(dialog, "LabelEffect1"), QStringLiteral("2 removed, from 59.4 s"));
    Set(dialog, "Field_mean", 2);
    Set(dialog, "Field_filter", 2);
    QTRY_VERIFY(Said(dialog, "LabelEffect3").endsWith(QLatin1String(" removed")));
    QTRY_VERIFY(Said(dialog, "LabelEffect4").endsWith(QLatin1String(" moved")));
    Set(dialog, "Field_filter", 8);
    QTRY_COMPARE(Said(dialog, "LabelOutcome"), QStringLiteral("Error in filter equation #8"));
    QVERIFY(!Ok(dialog)->isEnabled());
    Set(dialog, "Field_filter", 0);
    QTRY_VERIFY(Ok(dialog)->isEnabled());
    made_->session.texts.equations[0][1] = "1/0";
    Set(dialog, "Field_difference", 1);
    QTRY_VERIFY(Said(dialog, "LabelOutcome")
                    .contains(QString::fromStdString(made_->session.texts.program.selectedByRank)));
    dialog.findChild<QLineEdit*>("Field_timeout")->setText("-1");
    QVERIFY(!Ok(dialog)->isEnabled());
  }

  void AnOlderResultSaysSoHereAlone() {
    Start();
    made_->Click("Command10");
    QTRY_VERIFY(made_->store.values.contains("LastResults"));
    const auto changeAt = [this](int days) {
      QFile file(made_->Path(kResult));
      QVERIFY(file.open(QIODevice::ReadWrite));
      QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(days),
                               QFileDevice::FileModificationTime));
    };
    const auto isOlder = [this] {
      QDialog* const dialog = Opened();
      if (!QTest::qWaitFor([&] { return Ok(*dialog)->isEnabled(); })) qFatal("nothing is read");
      const auto* const label = dialog->findChild<QLabel*>("LabelOlder");
      const bool isTold =
          label->isVisible() && label->palette().windowText() != dialog->palette().windowText();
      dialog->reject();
      return isTold;
    };
    QVERIFY(!isOlder());
    changeAt(1);
    QVERIFY(!isOlder());
    changeAt(-1);
    QVERIFY(isOlder());
    // Imported in spite of that, it is the last one.
    const std::string before = made_->store.values["LastResults"];
    made_->Click("Command10");
    QTRY_VERIFY(made_->store.values["LastResults"] != before);
    QVERIFY(!isOlder());
  }

  void TheCommandIsOfferedWhereTheClassicOneIs() {
    WindowFixture& fixture = Start();
    const auto* const command = fixture.Find<QPushButton>("CommandPreview");
    QVERIFY(command->isVisible() && command->isEnabled());
    made_->Click("Option2");
    QVERIFY(!command->isEnabled());
    made_->Click("Option1");
    QVERIFY(command->isEnabled());
    // A file that goes while it is shown, and a dialog that goes while it reads.
    QVERIFY(QFile::remove(fixture.Path(kResult)));
    QDialog* const dialog = Opened();
    QTRY_COMPARE(Said(*dialog, "LabelOutcome"),
                 QString::fromStdString(fixture.session.texts.program.noTimeTest));
    QVERIFY(!Ok(*dialog)->isEnabled());
    dialog->reject();
    Opened()->reject();
    QCoreApplication::processEvents();
    fixture.Write("Zentab2.txt", "F1.IMPORT.TIMETEST.BUTTON.ENABLE {0}\r\n");
    fixture.window.reset();
    fixture.Open();
    QVERIFY(!fixture.Find<QPushButton>("CommandPreview")->isVisible());
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::WorkbenchTest)
#include "workbench_test.moc"
