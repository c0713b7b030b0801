#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/widgets/exchange/exchange_controller.h"
#include "exchange/widgets/exchange_dialog.h"
#include "widgets/described_window.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

using exchange::ExchangeDialog;

const QByteArray kLibrary =
    "{\"A\"\t(1;10)(2;20) 001}\r\n"
    "{\"B\"\t(1;10) 001}\r\n"
    "{\"C\"\t 000}";

class ExchangeTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start(const QByteArray& library = kLibrary) { return Make(library); }
  // Carries out `work` on the dialog that the menu command opens, once the file is chosen.
  void InDialog(const char* command, const std::function<void(ExchangeDialog&)>& work) {
    int runs = 0;
    const auto visit = [&] {
      auto* const dialog = made_->window->findChild<ExchangeDialog*>();
      QVERIFY(dialog != nullptr && dialog->isVisible());
      QCOMPARE(dialog->objectName(), QStringLiteral("Form2"));
      const QAbstractItemModelTester tester(dialog->list1->model());
      work(*dialog);
      ++runs;
      dialog->close();
    };
    auto* const action = made_->Find<QAction>(command);
    // An import returns when its dialog has closed; by then the file question has been asked.
    QTimer::singleShot(50, this, visit);
    action->trigger();
    QTRY_COMPARE(runs, 1);
    QTRY_VERIFY(made_->window->findChild<ExchangeDialog*>() == nullptr);
  }
  static void Select(ExchangeDialog& dialog, std::initializer_list<int> rows) {
    for (const int row : rows) {
      dialog.list1->selectionModel()->select(dialog.list1->model()->index(row, 0),
                                             QItemSelectionModel::Select);
    }
  }
  void ImportTheFirst() {
    InDialog("m_imp", [](ExchangeDialog& dialog) {
      Select(dialog, {0});
      dialog.command1->click();
    });
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void ImportCopiesIntoTheActiveFileAndListsItAnew() {
    WindowFixture& f = Start();
    f.Write("other.dat", "{\"X\"\t(5;5) 000}\n{\"Y \xDC\"\t 1}\n{\"Z\"\t}\n");
    f.dialogs.file = f.Path("other.dat");
    InDialog("m_imp", [&](ExchangeDialog& dialog) {
      QCOMPARE(NamesIn(dialog), QStringLiteral("X|Y Ü|Z"));
      QVERIFY(dialog.command1->isEnabled());
      QCOMPARE(made_->window->cursor().shape(), Qt::BusyCursor);
      Select(dialog, {0, 1});
      QVERIFY(dialog.outcome->text().contains('2'));
      bool isBusy = false;
      connect(f.window->findChild<ExchangeController*>(), &ExchangeController::AboutToChange, this,
              [&] {
                isBusy = QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor &&
                         !dialog.command1->isEnabled() && !dialog.close();
              });
      dialog.command1->click();
      QVERIFY(isBusy && QGuiApplication::overrideCursor() == nullptr);
      QVERIFY(dialog.command1->isEnabled());
    });
    QCOMPARE(f.Bytes(), kLibrary + "\r\n{\"X\"\t(5;5) 000}\r\n{\"Y \xDC\"\t 1}\r\n");
    QCOMPARE(NamesIn(*f.window), QStringLiteral("A|B|C|X|Y Ü"));
  }

  void ASourceThatChangesBehindTheDialogIsListedAnew() {
    WindowFixture& f = Start();
    const QByteArray x = "{\"X\"\t(5;5) 000}\r\n", y = "{\"Y\"\t(6;6) 000}\r\n";
    f.Write("other.dat", x + y);
    f.dialogs.file = f.Path("other.dat");
    InDialog("m_imp", [&](ExchangeDialog& dialog) {
      Select(dialog, {0});
      // Of the same size.
      QTRY_VERIFY((f.Write("other.dat", y + x), dialog.command1->click(), true) &&
                  NamesIn(dialog) == QStringLiteral("Y|X"));
      QCOMPARE(dialog.outcome->text(), QString::fromStdString(f.session.texts.program.fileChanged));
      QCOMPARE(f.Bytes(), kLibrary);
      Select(dialog, {0});
      dialog.command1->click();
    });
    QCOMPARE(f.Bytes(), kLibrary + "\r\n" + y);
  }

  void TheSelectionStaysWithItsEntry() {
    WindowFixture& f = Start();
    f.Write("other.dat", "{\"X\"\t(5;5) 000}\r\n");
    f.dialogs.file = f.Path("other.dat");
    f.Find<QLineEdit>("TextFilter")->setText(QStringLiteral("B"));
    f.Click("Command1");
    Grid().GridEdit('8');
    // Nothing is copied, then something that the filter would hide.
    InDialog("m_imp", [](ExchangeDialog& dialog) { dialog.command1->click(); });
    QCOMPARE(f.window->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(NamesIn(*f.window), QStringLiteral("B"));
    QCOMPARE(f.SelectedRow(), 0);
    ImportTheFirst();
    QCOMPARE(NamesIn(*f.window), QStringLiteral("A|B|C|X"));
    QCOMPARE(f.SelectedRow(), 1);
    QVERIFY(f.session.table.tableModified);
    f.Write("relayTables.dat", "{\"new\"\t 0}\r\n" + f.Bytes());
    ImportTheFirst();
    QCOMPARE(NamesIn(*f.window), QStringLiteral("new|A|B|C|X|X"));
    QCOMPARE(f.SelectedRow(), 2);
    f.Find<QListView>("List1")->clearSelection();
    ImportTheFirst();
    QCOMPARE(f.SelectedRow(), -1);
  }

  void AFileCanBeChosenLater() {
    WindowFixture& f = Start();
    f.Write("other.dat", "{\"X\"\t(5;5) 000}\r\n");
    f.dialogs.file.clear();
    InDialog("m_imp", [&f](ExchangeDialog& dialog) {
      QVERIFY(!dialog.command1->isEnabled());
      const texts::ProgramTexts& texts = f.session.texts.program;
      QCOMPARE(dialog.fileButton->text().toStdString(), texts.chooseFile);
      QCOMPARE(dialog.outcome->text().toStdString(), texts.noExchangeFile);
      QVERIFY(dialog.fileButton->hasFocus());
      // A dialog that comes into view again asks no more.
      QShowEvent again;
      QCoreApplication::sendEvent(&dialog, &again);
      QCoreApplication::processEvents();
      QCOMPARE(f.dialogs.filesAsked, 1);
      f.dialogs.file = f.Path("other.dat");
      dialog.fileButton->click();
      QCOMPARE(NamesIn(dialog), QStringLiteral("X"));
      // Another question, cancelled, leaves the file that was chosen.
      f.dialogs.file.clear();
      dialog.fileButton->click();
      QVERIFY(dialog.list1->hasFocus());
      Select(dialog, {0});
      dialog.command1->click();
    });
    QCOMPARE(NamesIn(*f.window), QStringLiteral("A|B|C|X"));
    for (const char* const command : {"m_imp", "m_exp"}) {
      InDialog(command, [](ExchangeDialog& dialog) {
        QVERIFY(NamesIn(dialog).isEmpty() && !dialog.command1->isEnabled());
        QVERIFY(!dialog.outcome->text().isEmpty());
      });
    }
  }

  void ExportCopiesIntoTheOtherFile() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path("new.dat");
    InDialog("m_exp", [&](ExchangeDialog& dialog) {
      QCOMPARE(NamesIn(dialog), QStringLiteral("A|B|C"));
      QVERIFY(!f.Bytes("new.dat").size());
      Select(dialog, {0, 2});
      // Enter means the same on the other buttons.
      QTest::keyClick(dialog.fileButton, Qt::Key_Return);
      QTest::keyClick(dialog.closeButton, Qt::Key_Return);
    });
    const QByteArray once = "{\"A\"\t(1;10)(2;20) 001}\r\n{\"C\"\t 000}\r\n";
    QCOMPARE(f.Bytes("new.dat"), once + once);
    QCOMPARE(f.Bytes(), kLibrary);
  }

  void RowsStandForLinesByTheirPosition() {
    WindowFixture& f = Start("{\"A\"\t 000}\r\n; nameless\r\n{\"B\"\t 000}\r\n");
    f.dialogs.file = f.Path("new.dat");
    InDialog("m_exp", [&](ExchangeDialog& dialog) {
      QCOMPARE(NamesIn(dialog), QStringLiteral("A|B"));
      Select(dialog, {1});
      dialog.command1->click();
    });
    QCOMPARE(f.Bytes("new.dat"), QByteArray("; nameless\r\n"));
  }

  void ExportOntoTheActiveFileKeepsListAndFileInStep() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path("relayTables.dat");
    InDialog("m_exp", [&](ExchangeDialog& dialog) {
      dialog.list1->selectAll();
      dialog.command1->click();
      dialog.close();
      QCOMPARE(NamesIn(*f.window), QStringLiteral("A|B|C|A|B|C"));
    });
    QCOMPARE(f.Bytes(), kLibrary + "\r\n" + kLibrary + "\r\n");
  }

  void NothingToCopyLeavesExecuteDisabled() {
    WindowFixture& f = Start("");
    f.dialogs.file = f.Path("target.dat");
    InDialog("m_exp", [](ExchangeDialog& dialog) { QVERIFY(!dialog.command1->isEnabled()); });
    QVERIFY(!QFile::exists(f.Path("target.dat")));
    f.Write("nameless.dat", "{}\r\n\r\n{\"x\r\n");
    f.dialogs.file = f.Path("nameless.dat");
    InDialog("m_imp", [](ExchangeDialog& dialog) {
      QCOMPARE(dialog.list1->model()->rowCount(), 0);
      dialog.command1->click();
    });
    QCOMPARE(f.Bytes(), QByteArray());
  }

  void AFailedCopyIsSaidInTheDialog() {
    WindowFixture& f = Start();
    f.Write("other.dat", "kept");
    QFile::setPermissions(f.Path("other.dat"), QFile::ReadOwner);
    f.dialogs.file = f.Path("other.dat");
    InDialog("m_exp", [](ExchangeDialog& dialog) {
      dialog.list1->selectAll();
      dialog.command1->click();
      QVERIFY(dialog.outcome->text().startsWith("The entries could not be copied"));
      QVERIFY(dialog.command1->isEnabled());
    });
    QCOMPARE(f.Bytes("other.dat"), QByteArray("kept"));
  }

  void TheCatalogueNamesTheDialog() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path("other.dat");
    InDialog("m_exp", [](ExchangeDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), QStringLiteral("Import/Export"));
      QCOMPARE(dialog.command1->text(), QStringLiteral("Execute"));
    });
    f.Write("Zentab.txt",
            "F2.EXPORT.HEADING {To %G}\nF2.EXPORT.BUTTON.TEXT {Go %X}\nF2.CLOSE.TEXT {Zu}\n"
            "F2.IMPORT.BUTTON.TIP {Get <it>}\nF2.IMPORT.LIST.TIP {List}\n");
    f.Open();
    InDialog("m_exp", [&](ExchangeDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), "To " + QDir::toNativeSeparators(f.Path("other.dat")));
      QCOMPARE(dialog.command1->text() + dialog.closeButton->text(), QStringLiteral("Go SZu"));
    });
    InDialog("m_imp", [](ExchangeDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), QStringLiteral("Import/Export"));
      QVERIFY(dialog.command1->toolTip().contains(QStringLiteral("Get <it>")));
      QVERIFY(dialog.list1->toolTip().contains(QStringLiteral("List")));
    });
  }

  void TheDialogKeepsItsPlaceAndLaysOutItsControls() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path("other.dat");
    InDialog("m_exp", [](ExchangeDialog& dialog) {
      QCOMPARE(dialog.size(), QSize(618, 448));
      QVERIFY(ShowsAsDesigned(dialog, QStringLiteral(WINDOWS), QStringLiteral("Form2")));
      const QRect before = dialog.command1->geometry();
      for (const QSize size : {QSize(700, 500), QSize(10, 10)}) {
        dialog.resize(size);
        QCoreApplication::processEvents();
        const QRect list = dialog.list1->geometry();
        QCOMPARE(list.width(), dialog.width() - 2 * list.left() - 7);
        QCOMPARE(dialog.command1->size(), before.size());
        QVERIFY(list.bottom() < dialog.command1->y());
        QVERIFY(dialog.command1->geometry().bottom() < dialog.height());
      }
      QVERIFY(dialog.width() >= 300 && dialog.height() >= 200);
      dialog.setGeometry(40, 50, 600, 450);
    });
    QCOMPARE(f.store.values["Width"], std::string("9000"));
    QCOMPARE(f.store.values["Height"], std::string("6750"));
    InDialog("m_imp",
             [](ExchangeDialog& dialog) { QCOMPARE(dialog.geometry(), QRect(40, 50, 600, 450)); });
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::ExchangeTest)
#include "exchange_test.moc"
