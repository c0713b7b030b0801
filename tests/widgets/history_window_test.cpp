#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include "app/session_history.h"
#include "app/widgets/session_end.h"
#include "app/widgets/table/recovery_keeper.h"
#include "editor/widgets/curve_grid_view.h"
#include "exchange/widgets/exchange_dialog.h"
#include "widgets/window_fixture.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary =
    "{\"SI\"\t(1.5;10)(2;4.25)(3;2) 001}\r\n{\"VI\"\t(1;5)(2;3) 112}\n{\"open end\"\t(1;1) 001}";

class HistoryWindowTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QTemporaryDir> kept_;
  std::unique_ptr<WindowFixture> f_;

  editor::CurveGridView* Grid() const { return f_->Find<editor::CurveGridView>("MSFlexGrid1"); }
  void Go(const char* action) const { f_->Find<QAction>(action)->trigger(); }
  void Type(int row, int column, const QString& text) const {
    Grid()->setCurrentIndex(Grid()->model()->index(row - 1, column - 1));
    QTest::keyClick(Grid(), Qt::Key_Return);
    QTest::keyClicks(f_->Find<QLineEdit>("Text11"), text);
    QTest::keyClick(f_->Find<QLineEdit>("Text11"), Qt::Key_Escape);
  }
  void TypeInField(const char* name, const QString& text) const {
    auto* const field = f_->Find<QLineEdit>(name);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    Grid()->setFocus();
  }
  void AddNew(const QString& name) const {
    f_->Click("Command3");
    f_->Find<QLineEdit>("Text1")->setText(name);
    QTest::keyClick(f_->Find<QLineEdit>("Text1"), Qt::Key_Return);
  }
  // Opens the window anew, with a folder for recovery files.
  void KeepTables() {
    kept_ = std::make_unique<QTemporaryDir>();
    f_->recoveryFolder = kept_->path().toStdString();
    f_->window.reset();
    f_->Open();
  }
  qsizetype Kept() const {
    return QDir(kept_->path()).entryList({QStringLiteral("*.json")}).size();
  }
  RecoveryKeeper& Keeper() const { return *f_->window->findChild<RecoveryKeeper*>(); }
  // By destroying the window instead of closing it the session ends as by a crash.
  void Crash() {
    f_->window.reset();
    f_->session = Session();
    f_->session.localeDecimalSeparator = ".";
    f_->dialogs.asked.clear();
    f_->Open();
    Offer();
  }
  void Offer() {
    f_->window->OfferRecovery();
    if (!QTest::qWaitFor([this] { return !Keeper().IsLooking(); })) qFatal("no end of looking");
  }
  // Everything the user sees that a step may change.
  QByteArray Seen() const {
    QByteArray seen = QByteArray::fromStdString(StateOf(f_->session).table) + '|' + f_->Bytes();
    seen += f_->session.table.tableModified ? "|modified" : "|";
    seen += f_->Find<QLineEdit>("Text2")->text().toUtf8() + '|';
    seen += f_->Find<QLineEdit>("Text3")->text().toUtf8() + '|' + NamesIn(*f_->window).toUtf8();
    for (const char* const name : {"Option1", "Option2", "Option3", "Check1", "Check2"}) {
      seen += f_->Find<QAbstractButton>(name)->isChecked() ? '1' : '0';
    }
    return seen;
  }
  std::vector<std::function<void()>> FiftyEdits() {
    std::vector<std::function<void()>> edits;
    const auto add = [&edits](std::function<void()> edit) { edits.push_back(std::move(edit)); };
    const auto select = [this](int row) { f_->Select(row); };
    add([=, this] { select(0), f_->Click("Command1"); });
    for (int row = 1; row <= 10; ++row) {
      add([=, this] { Type(row, 1 + row % 2, QString::number(row * 1.5)); });
    }
    for (const char* const tool : {"m_rev", "m_sort", "m_ins", "m_down", "m_up", "m_del"}) {
      add([=, this] {
        Grid()->setCurrentIndex(Grid()->model()->index(2, 0));
        Go(tool);
      });
    }
    add([this] {
      QGuiApplication::clipboard()->setText(QStringLiteral("9\t8\r\n7\t6\r\n"));
      f_->Click("Command7");
    });
    add([this] { f_->Click("Command9"); });
    add([this] { f_->Click("Option1"); });
    add([this] { TypeInField("Text2", QStringLiteral("2.5")); });
    add([this] { TypeInField("Text3", QStringLiteral("3")); });
    add([this] { f_->Find<QCheckBox>("Check1")->click(); });
    add([this] { f_->Find<QCheckBox>("Check2")->click(); });
    add([this] { f_->Click("Option2"); });
    for (int round = 0; round < 5; ++round) {
      add([=, this] { Type(20, 2, QString::number(round)); });
      add([=, this] { select(round % 3), f_->Click("Command4"); });
      add([=, this] { AddNew(QStringLiteral("new %1").arg(round)); });
      add([=, this] { select(round), f_->Click("Command2"); });
    }
    add([=, this] { select(1), f_->Click("Command1"); });
    add([this] {
      f_->Write("other.dat", "{\"X\"\t(1;1) 001}\n{\"Y\"\t(2;2) 001}");
      f_->dialogs.file = f_->Path("other.dat");
      QTimer::singleShot(0, f_->window.get(), [this] {
        auto* const dialog = f_->window->findChild<exchange::ExchangeDialog*>();
        dialog->list1->selectAll();
        dialog->command1->click();
        dialog->close();
      });
      Go("m_imp");
    });
    for (int row = 1; row <= 8; ++row) {
      add([=, this] { Type(row, 1, QString::number(row) + QStringLiteral(".25")); });
    }
    return edits;
  }

 private Q_SLOTS:
  void init() {
    f_ = std::make_unique<WindowFixture>(kLibrary);
    f_->Activate();
  }
  void cleanup() { f_.reset(); }

  void FiftyEditsAreTakenBackAndMadeAgain() {
    // Nothing to take back is no reason to take nothing back later.
    Q_EMIT f_->Find<QMenu>("m_edit")->aboutToShow();
    Q_EMIT f_->Find<QMenu>("m_edit")->aboutToHide();
    std::vector<QByteArray> seen = {Seen()};
    for (const auto& edit : FiftyEdits()) {
      edit();
      if (Seen() != seen.back()) seen.push_back(Seen());
    }
    QVERIFY2(seen.size() > 50, qPrintable(QString::number(seen.size())));
    for (std::size_t at = seen.size() - 1; at-- > 0;) {
      Go("m_undo");
      QCOMPARE(Seen(), seen[at]);
    }
    QCOMPARE(f_->Bytes(), kLibrary);
    f_->window->statusBar()->showMessage(QStringLiteral("told"));
    Go("m_undo");
    QCOMPARE(Seen(), seen.front());
    QCOMPARE(f_->window->statusBar()->currentMessage(), QStringLiteral("told"));
    for (std::size_t at = 1; at < seen.size(); ++at) {
      Go("m_redo");
      QCOMPARE(Seen(), seen[at]);
    }
    QVERIFY2(f_->window->statusBar()->currentMessage().isEmpty(), "nothing failed");
  }

  void AnOpenCellTakesBackItsOwnTypingFirst() {
    f_->Click("Command1");
    Grid()->setCurrentIndex(Grid()->model()->index(0, 0));
    QTest::keyClick(Grid(), Qt::Key_Return);
    auto* const field = f_->Find<QLineEdit>("Text11");
    const auto cell = [this] { return f_->session.table.grid.Cell(1, 1); };
    QTest::keyClicks(field, QStringLiteral("42"));
    QCOMPARE(cell(), "1.542");
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(cell(), "1.5");
    QTest::keyClick(field, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(cell(), "1.542");
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(Grid()->IsCellOpen());
    QVERIFY2(f_->Find<QLabel>("StatusModified")->text().isEmpty(), "as it was before");
    // The field has no more to take back: now it is the command before, Read.
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(cell(), "");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z,
                    Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(cell(), "1.5");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(cell(), "1.5");
    QVERIFY2(!f_->session.table.tableModified, "as it was after Read");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("9"));
    QCOMPARE(cell(), "1.59");
  }

  void WhatSomeoneElseHasChangedStaysAsItIs() {
    f_->Click("Command1");
    Type(1, 1, QStringLiteral("7"));
    f_->Click("Command4");
    const QByteArray others = QByteArray(f_->Bytes()).replace("(2;4.25)", "(2;4.75)");
    f_->Write("relayTables.dat", others);
    Go("m_undo");
    QCOMPARE(f_->Bytes(), others);
    QCOMPARE(f_->window->statusBar()->currentMessage(),
             QString::fromStdString(f_->session.texts.program.entryChanged));
    Go("m_undo");
    QCOMPARE(f_->session.table.grid.Cell(1, 1), "1.5");
    QVERIFY2(f_->session.table.tableModified, "no file has this table");
  }

  void AnotherTableFileEndsTheHistoryOfTheLibraryOnly() {
    f_->Click("Command1");
    Type(1, 1, QStringLiteral("7"));
    f_->Click("Command4");
    f_->Write("other.dat", "{\"X\"\t(1;1) 001}\n");
    f_->dialogs.file = f_->Path("other.dat");
    Go("m_act");
    const QByteArray stored = f_->Bytes();
    Go("m_undo");
    QCOMPARE(f_->Bytes(), stored);
    QCOMPARE(f_->session.table.grid.Cell(1, 1), "1.5");
    QVERIFY2(f_->session.table.tableModified, "the file has the other table");
  }

  void TypingInAFieldIsAStepOfItsOwn() {
    Type(1, 1, QStringLiteral("7"));
    // As while a module is at work.
    f_->window->setEnabled(false);
    Go("m_undo");
    QCOMPARE(f_->session.table.grid.Cell(1, 1), "7");
    f_->window->setEnabled(true);
    for (const char* const text : {"5", "6"}) TypeInField("Text2", QLatin1String(text));
    auto* const field = f_->Find<QLineEdit>("Text2");
    field->setFocus();
    for (const char* const text : {"5", ""}) {
      QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
      QCOMPARE(field->text(), QLatin1String(text));
    }
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(f_->session.table.grid.Cell(1, 1), "");
    QTest::keyClicks(field, QStringLiteral("8"));
    Go("m_redo");
    QCOMPARE(field->text(), QStringLiteral("8"));
    QCOMPARE(f_->session.table.grid.Cell(1, 1), "");
  }

  void WhatWasTypedOutlivesACrash() {
    KeepTables();
    Go("m_back");
    f_->Select(1);
    f_->Click("Command1");
    QTest::qWait(700);
    QCOMPARE(Kept(), 0);
    Type(1, 1, QStringLiteral("7"));
    QTRY_COMPARE(Kept(), 1);
    Go("m_undo");
    QTRY_COMPARE(Kept(), 0);
    Go("m_redo");
    QTRY_COMPARE(Kept(), 1);
    f_->dialogs.answer = false;
    Crash();
    QCOMPARE(f_->dialogs.asked.size(), 1U);
    QVERIFY(f_->dialogs.asked[0].find("\"VI\"") != std::string::npos);
    QVERIFY(f_->dialogs.asked[0].find("relayTables.dat") != std::string::npos);
    f_->dialogs.answer = true;
    Crash();
    QVERIFY2(f_->dialogs.asked.empty(), "declined, it is not offered again");
    f_->Find<QCheckBox>("Check1")->click();
    f_->Click("Command9");
    Keeper().KeepNow();
    QCOMPARE(Kept(), 1);
    Go("m_undo");
    Go("m_undo");
    Go("m_back");
    QCOMPARE(f_->session.table.grid.Cell(1, 1), "17");
    QVERIFY(f_->session.table.tableModified && f_->SelectedRow() == 1);
    Keeper().KeepNow();
    Crash();
    QVERIFY2(f_->dialogs.asked.size() == 1, "once brought back it is unsaved as before");
  }

  void ATableThatIsOfferedStaysUntilItIsStored() {
    KeepTables();
    f_->Click("Command1");
    f_->Click("Option3");
    Type(1, 2, QStringLiteral("5"));
    // Not at each key.
    QVERIFY(Keeper().findChild<QTimer*>()->interval() >= 100);
    Keeper().KeepNow();
    Crash();
    QCOMPARE(f_->session.table.grid.Cell(1, 2), "105");
    QVERIFY(f_->Find<QAbstractButton>("Option3")->isChecked());
    Go("m_undo");
    QCOMPARE(f_->session.table.grid.Cell(1, 2), "");
    Keeper().KeepNow();
    QVERIFY(Kept() == 1 && Keeper().HasTable());
    Type(2, 1, QStringLiteral("8"));
    Keeper().KeepNow();
    Go("m_back");
    QVERIFY(Keeper().HasTable());
    Keeper().KeepNow();
    QCOMPARE(Kept(), 2);
    // Who must end without asking leaves what was not stored to the next start.
    f_->window->findChild<SessionEnd*>()->EndUnasked();
    QVERIFY(!f_->window->isVisible());
    // Whom the end meets in front of the offer has declined nothing.
    f_->dialogs.answer = false;
    f_->dialogs.onConfirm = [this] { f_->window->findChild<SessionEnd*>()->EndUnasked(); };
    Crash();
    f_->dialogs.onConfirm = nullptr;
    f_->dialogs.answer = true;
    Crash();
    QCOMPARE(f_->dialogs.asked.size(), 1U);
    QCOMPARE(f_->session.table.grid.Cell(1, 2), "105");
    QVERIFY(f_->window->close());
  }

  void AnEndWithoutAQuestionKeepsTheTable() {
    KeepTables();
    QGuiApplication::clipboard()->setText(QStringLiteral("9\r\n7\r\n"));
    f_->Click("Command7");
    QVERIFY(f_->window->close());
    QVERIFY2(f_->dialogs.asked.empty(), "a paste is no edit");
    f_->Open();
    Offer();
    QVERIFY(f_->dialogs.asked.empty() && f_->session.table.grid.Cell(1, 1).empty());
    // A second editor beside this one has a file of its own, and finds nothing.
    RecoveryFiles second(platform::SystemFiles(), f_->recoveryFolder);
    QVERIFY(second.Look().empty());
    QVERIFY(!second.Keep({KeptTable::Kind::Unsaved, 1, "x", StateOf(f_->session)}));
    QCOMPARE(Kept(), 2);
    Go("m_back");
    QCOMPARE(f_->session.table.grid.Cell(2, 1), "7");
    f_->Click("Command9");
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::HistoryWindowTest)
#include "history_window_test.moc"
