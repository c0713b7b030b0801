#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kA = "{\"Anna\"\t(1.5;10)(2;4) 001}\r\n";
const QByteArray kB = "{\"Berta\"\t(2.5;10)(3;4) 001}\r\n";
const QByteArray kC = "{\"Cäsar\"\t(3.5;10)(4;4) 001}\r\n";
const QByteArray kForeign = "{\"foreign\"\t(7;7)(8;8) 001}\r\n";

// The library panel while the table file changes, cannot be written, or is long.
class LibraryWindowTest : public WindowTest {
  Q_OBJECT

 private:
  // The entry of row 1 is in the grid, edited.
  WindowFixture& StartWithEdits() {
    Make(kA + kB + kC);
    made_->Select(1);
    made_->Click("Command1");
    Grid().GridEdit('8');
    Grid().CloseEditor();
    return *made_;
  }
  void ExpectEdits() const {
    QVERIFY(made_->session.table.tableModified);
    QVERIFY(!made_->Find<QLabel>("StatusModified")->text().isEmpty());
    QCOMPARE(made_->session.table.grid.Cell(1, 1), std::string("8"));
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void AChangedFileIsListedAnewWithSelectionAndEdits() {
    WindowFixture& f = StartWithEdits();
    auto& chosen = *f.Find<QListView>("List1")->selectionModel();
    chosen.select(chosen.model()->index(2, 0), QItemSelectionModel::Select);
    f.Write("relayTables.dat", kForeign + kA + kB + kC);
    QTRY_COMPARE(NamesIn(*f.window), QStringLiteral("foreign|Anna|Berta|Cäsar"));
    QVERIFY(f.SelectedRow() == 2 && chosen.selectedRows().size() == 2);
    ExpectEdits();
    // Its name alone does not make it the entry that was selected.
    f.Write("relayTables.dat", "{\"Berta\"\t(9;9) 000}\r\n" + kA);
    QTRY_COMPARE(NamesIn(*f.window), QStringLiteral("Berta|Anna"));
    QCOMPARE(f.SelectedRow(), -1);
    f.Write("relayTables.dat", kA);
    QTRY_COMPARE(NamesIn(*f.window), QStringLiteral("Anna"));
    QCOMPARE(f.SelectedRow(), -1);
    ExpectEdits();
    QVERIFY(QFile::remove(f.Path("relayTables.dat")));
    QTRY_COMPARE(NamesIn(*f.window), QString());
    ExpectEdits();
  }

  // Between two looks at the file.
  void ACommandFollowsItsEntryOrDoesNothing() {
    WindowFixture& f = StartWithEdits();
    const QByteArray edited = "{\"Berta\"\t(8;10)(3;4) 001}\r\n";
    f.Write("relayTables.dat", kForeign + kA + kB + kC);
    f.Click("Command4");
    QCOMPARE(f.Bytes(), kForeign + kA + edited + kC);
    QCOMPARE(f.Bytes("relayTables.dat.bak"), kForeign + kA + kB + kC);
    QCOMPARE(f.SelectedRow(), 2);
    QVERIFY(!f.session.table.tableModified);

    f.Write("relayTables.dat", kForeign + edited + kC);
    f.Click("Command2");
    QCOMPARE(f.Bytes(), kForeign + kC);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("foreign|Cäsar"));
    QCOMPARE(f.SelectedRow(), 1);

    const QByteArray theirs = "{\"Cäsar\"\t(6;6)(7;7) 001}\r\n" + kForeign;
    for (const char* const command : {"Command4", "Command2", "Command1"}) {
      f.Write("relayTables.dat", kForeign + kC);
      QTRY_COMPARE(NamesIn(*f.window), QStringLiteral("foreign|Cäsar"));
      f.Select(1);
      f.Write("relayTables.dat", theirs);
      f.Click(command);
      QCOMPARE(f.Bytes(), theirs);
      QCOMPARE(NamesIn(*f.window), QStringLiteral("Cäsar|foreign"));
      QCOMPARE(f.SelectedRow(), -1);
      QVERIFY(SaidBelow().contains(QStringLiteral("Another program")));
      QCOMPARE(f.session.table.grid.Cell(1, 1), std::string("8"));
    }
    f.Select(0);
    f.Click("Command1");
    QCOMPARE(f.session.table.grid.Cell(1, 1), std::string("6"));
  }

  // Once the list shows what someone else has done to the entry, the first of its name (11) and the
  // second (21), the commands still mean the entry that the user saw.
  void TheQuietLookLeavesNobodysEntryToACommand() {
    const QByteArray b11 = "{\"B\"\t(11;1)(40;2) 000}\r\n", b21 = "{\"B\"\t(21;1)(40;2) 000}\r\n",
                     b31 = "{\"B\"\t(31;1)(40;2) 000}\r\n";
    const struct {
      QByteArray now;
      bool selectsAgain;  // the first of that name, as it is now
      bool isStopped;     // an Update
    } cases[] = {
        {kA + b11 + kC, false, true},
        {kA + b11 + kC, true, true},
        {kA + b11 + kC + b31, false, true},
        {b21 + kA + b11, false, false},
    };
    for (const auto& [now, selectsAgain, isStopped] : cases) {
      for (const char* const command : {"Command4", "Command2"}) {
        WindowFixture& f = Make(kA + b11 + kC + b21);
        f.Select(3);
        f.Click("Command1");
        Grid().GridEdit('8');
        Grid().CloseEditor();
        f.Write("relayTables.dat", now);
        const qsizetype entries = now.count('\n');
        QTRY_COMPARE(f.Find<QListView>("List1")->model()->rowCount(), static_cast<int>(entries));
        QTRY_VERIFY(isStopped == (f.SelectedRow() == -1));
        if (selectsAgain) f.Select(1);
        f.Click(command);
        // What the user selects himself he may remove.
        const bool isDone = !isStopped || (selectsAgain && command == std::string("Command2"));
        QCOMPARE(f.Bytes() == now, !isDone);
        QCOMPARE(SaidBelow().contains(QStringLiteral("Another program")), !isDone);
        QVERIFY(f.Bytes().contains(kA));
        if (!isDone) QVERIFY(f.session.table.tableModified);
      }
    }
  }

  // The list is shown anew while the question waits for its answer.
  void TheAnswerIsForTheEntryThatWasAskedAbout() {
    for (const char* const command : {"Command4", "Command2"}) {
      WindowFixture& f = StartWithEdits();
      f.dialogs.onConfirm = [&f] {
        f.Write("relayTables.dat", kForeign + kA + kC);
        QTRY_COMPARE(NamesIn(*f.window), QStringLiteral("foreign|Anna|Cäsar"));
      };
      f.Click(command);
      QCOMPARE(f.Bytes(), kForeign + kA + kC);
      QVERIFY(SaidBelow().contains(QStringLiteral("Another program")));
    }
  }

  void ANameIsEnteredIntoTheFileAsItIsNow() {
    WindowFixture& f = StartWithEdits();
    auto* const box = f.Find<QLineEdit>("Text1");
    const auto enter = [&f, box](const char* name) {
      f.Click("Command3");
      box->setText(QLatin1String(name));
      QTest::keyClick(box, Qt::Key_Return);
    };
    const QByteArray added = "{\"new\"\t(8;10)(3;4) 001}\r\n";
    f.Write("relayTables.dat", kForeign + kA + kB + kC);
    enter("new");
    QCOMPARE(f.Bytes(), kForeign + kA + kB + kC + added);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("foreign|Anna|Berta|Cäsar|new"));
    QCOMPARE(f.SelectedRow(), 2);

    // The device is full behind the copy of what was there.
    f.Write("relayTables.dat", kC + kB);
    f.files.bytesThatFit = static_cast<std::size_t>((kC + kB).size());
    enter("kept");
    f.files.bytesThatFit = test::FailingFileLayer::kNever;
    QCOMPARE(f.Bytes(), kC + kB);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Cäsar|Berta"));
    QCOMPARE(f.SelectedRow(), 1);
    QCOMPARE(box->text(), QStringLiteral("kept"));

    f.Write("relayTables.dat", kForeign);
    enter("FOREIGN");
    QCOMPARE(f.dialogs.asked.size(), 1u);
    QCOMPARE(box->text(), QString());
    QCOMPARE(NamesIn(*f.window), QStringLiteral("foreign"));
    QCOMPARE(f.SelectedRow(), -1);
    enter("new");
    QCOMPARE(NamesIn(*f.window), QStringLiteral("foreign|new"));
    QCOMPARE(f.SelectedRow(), -1);
    ExpectEdits();
  }

  void WhatAnotherProgramLeftInThePlaceOfTheFileIsOffered() {
    WindowFixture& f = StartWithEdits();
    auto* const box = f.Find<QLineEdit>("Text1");
    const QByteArray added = "{\"new\"\t(8;10)(3;4) 001}\r\n";
    for (const bool answer : {true, false}) {
      QVERIFY(QFile::remove(f.Path("relayTables.dat")));
      f.Write("relayTables.dat.new", kA + kC);
      f.dialogs.answer = answer;
      f.dialogs.asked.clear();
      f.Click("Command3");
      box->setText(QStringLiteral("new"));
      QTest::keyClick(box, Qt::Key_Return);
      QCOMPARE(f.dialogs.asked.size(), 1u);
      QCOMPARE(box->isVisible(), answer);
      QCOMPARE(SaidBelow().startsWith(QStringLiteral("What another program had left")), !answer);
      QCOMPARE(f.Bytes(), answer ? kA + kC : added);
      QCOMPARE(NamesIn(*f.window), QString(answer ? "Anna|Cäsar" : "new"));
      if (!answer) QCOMPARE(f.Bytes("relayTables.dat.bak"), kA + kC);
      QVERIFY(!QFile::exists(f.Path("relayTables.dat.new")));
      QTest::keyClick(box, Qt::Key_Escape);
    }
    ExpectEdits();
  }

  void AFileThatCannotBeWrittenIsSaidInTheStatusBarAndKeepsTheEdits() {
    WindowFixture& f = StartWithEdits();
    const auto expectKept = [&f, this] {
      QCOMPARE(f.Bytes(), kA + kB + kC);
      QCOMPARE(NamesIn(*f.window), QStringLiteral("Anna|Berta|Cäsar"));
      QVERIFY(SaidBelow().startsWith(QStringLiteral("The table file ")));
      f.window->statusBar()->clearMessage();
      ExpectEdits();
    };
    const auto tryAll = [&f, &expectKept](const auto& fail) {
      fail();
      f.Click("Command4");
      expectKept();
      fail();
      f.Click("Command2");
      expectKept();
      fail();
      f.Click("Command3");
      f.Find<QLineEdit>("Text1")->setText(QStringLiteral("kept"));
      QTest::keyClick(f.Find<QLineEdit>("Text1"), Qt::Key_Return);
      QCOMPARE(f.Find<QLineEdit>("Text1")->text(), QStringLiteral("kept"));
      expectKept();
      f.Find<QLineEdit>("Text1")->clear();
      QTest::keyClick(f.Find<QLineEdit>("Text1"), Qt::Key_Return);
    };
    for (const std::size_t fits : {0u, 10u, 100u}) {
      tryAll([&f, fits] { f.files.bytesThatFit = fits; });
    }
    f.files.bytesThatFit = test::FailingFileLayer::kNever;
    QVERIFY(QFile::setPermissions(f.Path("relayTables.dat"), QFile::ReadOwner));
    tryAll([] {});
    QVERIFY(QFile::setPermissions(f.Path("relayTables.dat"), QFile::ReadOwner | QFile::WriteOwner));
    QVERIFY(QFile::remove(f.Path("relayTables.dat.bak")));
    QVERIFY(QDir().mkdir(f.Path("relayTables.dat.bak")));
    f.Click("Command4");
    QVERIFY(SaidBelow().contains(QStringLiteral("no backup")));
    QCOMPARE(f.dialogs.asked.size(), 9u);
    QVERIFY2(!f.Bytes().isEmpty() && !QFile::exists(f.Path("relayTables.dat.new")), "left behind");
  }

  void BehindTheLastEntryTheOneBeforeItIsSelected() {
    made_ = std::make_unique<WindowFixture>(kA + kB + kC);
    for (const int row : {1, 0, -1}) {
      made_->Select(row + 1);
      made_->Click("Command2");
      QCOMPARE(made_->SelectedRow(), row);
    }
    QVERIFY(!made_->Find<QWidget>("Command1")->isEnabled());
  }

  void TheListStaysWhereItWasScrolledTo() {
    QByteArray many;
    for (int number = 0; number < 500; ++number) {
      many += "{\"" + QByteArray::number(number) + "\"\t(1;2) 001}\r\n";
    }
    WindowFixture& f = Make(many);
    auto* const bar = f.Find<QListView>("List1")->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 300);
    bar->setValue(300);
    f.Write("relayTables.dat", many + kForeign);
    QTRY_COMPARE(f.session.listing.names.size(), 501u);
    QCOMPARE(bar->value(), 300);
    QCOMPARE(f.SelectedRow(), 0);
    // The selected name stays in view when it was.
    f.Find<QAction>("m_rename")->trigger();
    QCOMPARE(bar->value(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    f.Write("relayTables.dat", kForeign.repeated(500) + many);
    QTRY_COMPARE(f.session.listing.names.size(), 1000u);
    QVERIFY(bar->value() > 400);
    // And an entry that is added comes into view.
    f.Click("Command3");
    f.Find<QLineEdit>("Text1")->setText(QStringLiteral("new"));
    QTest::keyClick(f.Find<QLineEdit>("Text1"), Qt::Key_Return);
    QCOMPARE(bar->value(), bar->maximum());
  }

  void TheFilterFindsNamesAndCommandsWorkOnWhatItShows() {
    WindowFixture& f = StartWithEdits();
    auto* const filter = f.Find<QLineEdit>("TextFilter");
    QTest::keyClick(f.window.get(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(filter->hasFocus());
    QTest::keyClicks(filter, QStringLiteral("A"));
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Anna|Berta|Cäsar"));
    QCOMPARE(f.SelectedRow(), 1);
    QTest::keyClicks(filter, QStringLiteral("R"));
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Cäsar"));
    QCOMPARE(f.SelectedRow(), 0);
    f.Click("Command1");
    QCOMPARE(f.session.table.grid.Cell(1, 1), std::string("3.5"));
    f.Write("relayTables.dat", kForeign + kA + kB + kC + kForeign);
    QTRY_COMPARE(f.session.listing.names.size(), 5u);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Cäsar"));
    f.Click("Command2");
    QCOMPARE(f.Bytes(), kForeign + kA + kB + kForeign);
    QCOMPARE(NamesIn(*f.window), QString());
    QVERIFY(!f.Find<QAbstractButton>("Command1")->isEnabled());
    // Nothing to rename, to read, to copy or to remove.
    f.Find<QAction>("m_rename")->trigger();
    QVERIFY(filter->hasFocus());
    for (const int key : {Qt::Key_Return, Qt::Key_Down}) {
      QTest::keyClick(filter, static_cast<Qt::Key>(key));
      QVERIFY(f.Find<QListView>("List1")->hasFocus());
      QTest::keySequence(QApplication::focusWidget(), QKeySequence::Copy);
      for (const int in : {Qt::Key_Return, Qt::Key_Delete}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(in));
      }
      filter->setFocus();
    }
    QCOMPARE(SaidBelow(), QString());
    QCOMPARE(f.Bytes(), kForeign + kA + kB + kForeign);
    QTest::keyClick(f.window.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(filter, QStringLiteral("BER"));
    QCOMPARE(NamesIn(*f.window), QStringLiteral("Berta"));
    QTest::keyClick(filter, Qt::Key_Escape);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("foreign|Anna|Berta|foreign"));
    QVERIFY(f.Find<QListView>("List1")->hasFocus() && Enabled("Command1"));
  }

  void AnAddedNameIsSeen() {
    WindowFixture& f = StartWithEdits();
    auto* const filter = f.Find<QLineEdit>("TextFilter");
    for (const char* const name : {"Berta 2", "new"}) {
      filter->setText(QStringLiteral("ber"));
      f.Click("Command3");
      f.Find<QLineEdit>("Text1")->setText(QLatin1String(name));
      QTest::keyClick(f.Find<QLineEdit>("Text1"), Qt::Key_Return);
      const bool hidden = QLatin1String(name) == QLatin1String("new");
      QCOMPARE(filter->text(), hidden ? QString() : QStringLiteral("ber"));
      QVERIFY(NamesIn(*f.window).endsWith(QLatin1String(name)));
      QCOMPARE(f.SelectedRow(), hidden ? 1 : 0);
    }
  }

  void TheNumberOfEntriesIsSaid() {
    made_ = std::make_unique<WindowFixture>(kA);
    QCOMPARE(made_->Find<QLabel>("StatusCount")->text(), QStringLiteral("1 entry"));
    made_->Write("relayTables.dat", kA + kB);
    QTRY_COMPARE(made_->Find<QLabel>("StatusCount")->text(), QStringLiteral("2 entries"));
    made_->Click("Command2");
    made_->Click("Command2");
    QCOMPARE(made_->Find<QLabel>("StatusCount")->text(), QStringLiteral("0 entries"));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::LibraryWindowTest)
#include "library_window_test.moc"
