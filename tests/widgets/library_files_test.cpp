#include <QApplication>
#include <QFileDialog>
#include <QListView>
#include <QMenu>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

#include "app/widgets/qt_user_dialogs.h"
#include "exchange/widgets/exchange_dialog.h"
#include "widgets/once_open.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kA = "{\"Anna\"\t(1.5;10)(2;4) 001}\r\n";
const QByteArray kB = "{\"Berta\"\t(2.5;10)(3;4) 001}\r\n";

// The commands on table files as a whole.
class LibraryFilesTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start() { return Make(kA + kB); }
  void Choose(const char* action, const QString& file = {}) {
    made_->dialogs.file = file;
    made_->Find<QAction>(action)->trigger();
  }
  [[nodiscard]] QStringList Recent() const {
    auto* const menu = made_->Find<QMenu>("m_recent");
    Q_EMIT menu->aboutToShow();
    QStringList files;
    for (const QAction* const action : menu->actions()) files += action->text().section('/', -1);
    return files;
  }
  // What `choose` gives when the file that is asked for is `chosen`, or none, and what the dialog
  // is like.
  [[nodiscard]] std::pair<QString, QString> Answered(const std::function<QString()>& choose,
                                                     const QString& chosen) {
    QString said;
    QTimer::singleShot(0, this, [&] {
      auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) qFatal("no dialog opens");
      said = QDir(made_->Path(".")).relativeFilePath(dialog->directory().path());
      said += QLatin1String(dialog->acceptMode() == QFileDialog::AcceptSave ? " save" : " open");
      said += QLatin1String(dialog->testOption(QFileDialog::ReadOnly) ? " only" : "");
      said += QLatin1String(dialog->testOption(QFileDialog::DontConfirmOverwrite) ? " add" : "");
      said += QLatin1String(dialog->fileMode() == QFileDialog::ExistingFile ? " existing" : "");
      said += ' ' + dialog->defaultSuffix() + ' ' + dialog->nameFilters().join('|');
      said += QLatin1String(dialog->selectedFiles().value(0).endsWith("/x.png") ? " named" : "");
      Q_EMIT dialog->filterSelected(dialog->nameFilters().last());
      said += ' ' + dialog->defaultSuffix();
      dialog->selectFile(chosen);
      QMetaObject::invokeMethod(dialog, chosen.isEmpty() ? "reject" : "accept");
    });
    QString file = choose();
    return {file, said};
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void ANewLibraryReplacesNothing() {
    const WindowFixture& f = Start();
    Choose("m_newlib", f.Path("relayTables.dat"));
    QVERIFY2(SaidBelow().startsWith(QStringLiteral("The table file was not created")),
             qPrintable(SaidBelow()));
    QCOMPARE(f.Bytes(), kA + kB);
    f.window->statusBar()->clearMessage();
    for (const char* const given : {"m_newlib", "m_savecopy"}) Choose(given);
    QCOMPARE(NamesIn(*f.window) + SaidBelow(), QStringLiteral("Anna|Berta"));
    Choose("m_newlib", f.Path("new.dat"));
    QCOMPARE(NamesIn(*f.window), QString());
    QVERIFY(QFile::exists(f.Path("new.dat")) && f.Bytes("new.dat").isEmpty());
    QCOMPARE(f.window->windowTitle(), QStringLiteral("Relay curve table editor – new.dat[*]"));
  }

  void ACopyIsThatOfTheFileAndFailsWhole() {
    WindowFixture& f = Start();
    f.Write("copy.dat", "former");
    Choose("m_savecopy", f.Path("relayTables.dat"));
    QVERIFY(SaidBelow().startsWith(QStringLiteral("The table file was not copied")));
    f.files.bytesThatFit = 10;
    Choose("m_savecopy", f.Path("copy.dat"));
    QVERIFY(SaidBelow().startsWith(QStringLiteral("The table file was not copied")));
    QCOMPARE(f.Bytes("copy.dat"), QByteArray("former"));
    f.files.bytesThatFit = test::FailingFileLayer::kNever;
    Choose("m_savecopy", f.Path("copy.dat"));
    QVERIFY(SaidBelow().startsWith(QStringLiteral("Copied to ")));
    QCOMPARE(f.Bytes("copy.dat"), kA + kB);
    QCOMPARE(f.Bytes(), kA + kB);
    QCOMPARE(f.session.tablePath, std::string("relayTables.dat"));
  }

  void FilesAreOpenedByDroppingAndFoundAgain() {
    WindowFixture& f = Start();
    QCOMPARE(Recent(), QStringList{QStringLiteral("None yet")});
    const auto url = [&f](const char* name) { return QUrl::fromLocalFile(f.Path(name)); };
    for (int number = 0; number < 10; ++number) {
      const QString name = QStringLiteral("%1.DAT").arg(number);
      f.Write(name, kB);
      QVERIFY(f.DropFiles({url(qPrintable(name))}));
      QCOMPARE(NamesIn(*f.window), QStringLiteral("Berta"));
    }
    QVERIFY(!f.DropFiles({url("3.DAT"), url("4.DAT")}) && !f.DropFiles({url("x.txt")}) &&
            !f.DropFiles({}));
    QVERIFY(!f.DropFiles({QUrl(QStringLiteral("http://example.org/a.dat"))}));
    QCOMPARE(Recent().size(), 8);
    QCOMPARE(Recent().first(), QStringLiteral("9.DAT"));
    QVERIFY(f.Find<QMenu>("m_recent")->actions().at(0)->text().startsWith("&1  "));
    f.Find<QMenu>("m_recent")->actions().at(3)->trigger();
    QCOMPARE(Recent().first() + Recent().at(1), QStringLiteral("6.DAT9.DAT"));
    QVERIFY(f.session.tablePath.ends_with("6.DAT"));
  }

  void TheBackupsEntriesAreOffered() {
    const WindowFixture& f = Start();
    Choose("m_backup");
    QVERIFY(SaidBelow().startsWith(QStringLiteral("This table file has no backup")));
    f.Click("Command2");
    QString offered;
    using exchange::ExchangeDialog;
    const auto isRead = [](const ExchangeDialog& dialog) {
      return dialog.list1->model()->rowCount() > 0;
    };
    const auto visit = OnceOpen<ExchangeDialog>(isRead, [&](ExchangeDialog& dialog) {
      offered = NamesIn(dialog);
      dialog.list1->selectAll();
      dialog.command1->click();
      dialog.close();
    });
    Choose("m_backup");
    QCOMPARE(offered, QStringLiteral("Anna|Berta"));
    QCOMPARE(f.Bytes(), kB + kA + kB);
    f.window->statusBar()->showMessage(QStringLiteral("of the command before"));
    Choose("m_folder");
    QCOMPARE(SaidBelow(), QString());
    QCOMPARE(QString::fromStdString(f.dialogs.asked.back()), QFileInfo(f.Path("x")).path());
  }

  // Where each dialog begins, whether it opens or saves, and what it may and may not do.
  void FilesAreChosenWhereTheyAre() {
    WindowFixture& f = Start();
    for (const char* const folder : {"data", "home/Documents", "else"}) {
      QVERIFY(QDir().mkpath(f.Path(QLatin1String(folder))));
    }
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", f.Path("home").toUtf8());
    f.Write("else/file.csv", "1;2");
    const QString documents =
        QDir(f.Path("."))
            .relativeFilePath(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QtUserDialogs dialogs(f.session);
    dialogs.SetParent(f.window.get());
    // No test gets at the dialogs of a system.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const auto write = [&] {
      return dialogs.ChooseFileToWrite({"Save", "x.png", "PNG (*.png);;PDF (*.pdf)"});
    };
    const auto read = [&] { return dialogs.ChooseFileToRead("CSV (*.csv)"); };
    const struct {
      std::function<QString()> choose;
      QString chosen;
      QString said;
    } cases[] = {
        {[&] { return dialogs.ChooseTableFile(); }, {}, ". open only existing  Dat (*.dat) "},
        {[&] { return dialogs.ChooseTargetFile(); }, {}, ". save only add dat Dat (*.dat) dat"},
        {[&] { return dialogs.ChooseNewTableFile(); }, {}, ". save only dat Dat (*.dat) dat"},
        {[&] { return dialogs.ChooseGraphFile(); }, {}, "data open only existing  GRH (*.grh) "},
        {read, f.Path("else/file.csv"), documents + " open only existing  CSV (*.csv) "},
        {read, {}, "else open only existing  CSV (*.csv) "},
        {read, {}, "else open only existing  CSV (*.csv) "},
        {write, f.Path("else/new.pdf"), documents + " save png PNG (*.png)|PDF (*.pdf) named pdf"},
        {write, {}, "else save png PNG (*.png)|PDF (*.pdf) named pdf"},
    };
    for (const auto& c : cases) {
      const auto [chosen, said] = Answered(c.choose, c.chosen);
      QCOMPARE(chosen, c.chosen);
      QCOMPARE(said, c.said);
    }
    qputenv("HOME", home);
  }

  void APreviewFillsTheScreen() {
    WindowFixture& f = Start();
    QtUserDialogs dialogs(f.session);
    dialogs.SetParent(f.window.get());
    QSize size;
    QTimer::singleShot(0, this, [&] {
      auto* const dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr) qFatal("no preview opens");
      size = dialog->size();
      dialog->reject();
    });
    QPrinter printer;
    dialogs.ShowPreview(printer, [](QPrinter&) {});
    QCOMPARE(size, QSize(900, 1000).boundedTo(f.window->screen()->availableSize()));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::LibraryFilesTest)
#include "library_files_test.moc"
