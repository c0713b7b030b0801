#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <csignal>

#include "app/widgets/session_end.h"
#include "editor/widgets/curve_grid_view.h"
#include "widgets/window_fixture.h"

namespace zentab::app {
namespace {

const QByteArray kLibrary = "{\"SI\"\t(1.5;10)(2;4.25)(3;2) 001}\r\n";

class SessionEndTest : public QObject {
  Q_OBJECT

 private:
  // What the log holds, without times.
  static QString Log(const WindowFixture& f) {
    QString log = QString::fromUtf8(f.Bytes("Zentab.log"));
    return log.replace(QRegularExpression("\\d\\d:\\d\\d "), QString()).replace("\r\n", "|");
  }
  // An entry has been read and edited, its instrument's module is open.
  static std::unique_ptr<WindowFixture> Edited() {
    auto f = std::make_unique<WindowFixture>(kLibrary);
    f->Write("Zentab.txt", "F1.LOGGFILE {on}");
    f->recoveryFolder = f->Path("recovery").toStdString();
    test::SetInstrument(f->session.installFolder, "current", "pickup = 0.5\nleave = signals\n");
    f->Open();
    f->window->ListenForEnd();
    f->Click("Command1");
    f->Find<editor::CurveGridView>("MSFlexGrid1")->GridEdit('8');
    return f;
  }
#ifdef Q_OS_LINUX
  static bool Catches(qint64 process, int signal) {
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
    if (!status.open(QIODevice::ReadOnly)) return false;
    const QRegularExpression line(QStringLiteral("SigCgt:\\s*([0-9a-f]+)"));
    const QString caught = line.match(QString::fromLatin1(status.readAll())).captured(1);
    return (caught.toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
  }
#endif

 private Q_SLOTS:
  void TheSessionsEndIsAQuestionWhenThereAreEdits() {
    const struct {
      const char* what;
      bool modified, mayAsk, answer, asked, goesOn;
    } cases[] = {{"no edits", false, true, false, false, true},
                 {"cancelled", true, true, false, true, false},
                 {"discarded", true, true, true, true, true},
                 {"nobody to ask", true, false, false, false, true}};
    for (const auto& c : cases) {
      const auto f = Edited();
      f->session.table.tableModified = c.modified;
      f->dialogs.answer = c.answer;
      const bool goesOn =
          f->window->findChild<SessionEnd*>()->MaySessionEnd([&] { return c.mayAsk; });
      QVERIFY2(goesOn == c.goesOn && f->dialogs.asked.empty() != c.asked, c.what);
      QCOMPARE(f->store.values["TableName"], std::string("relayTables.dat"));
      QVERIFY(f->window->isVisible() && f->session.table.tableModified == c.modified);
      QVERIFY(!Log(*f).contains("Unloading"));
      QCOMPARE(QDir(f->Path("recovery")).entryList({"*.json"}).size(), 1);
    }
  }

  void EndsInOrderWhateverIsOpen_data() {
    QTest::addColumn<bool>("bySignal");
    QTest::addColumn<bool>("inDialog");
#ifndef Q_OS_WIN  // where programs with windows get none
    QTest::newRow("signal") << true << false;
    QTest::newRow("signal in a dialog") << true << true;
#endif
    QTest::newRow("end of the session") << false << false;
    QTest::newRow("end of the session in a dialog") << false << true;
  }
  void EndsInOrderWhateverIsOpen() {
    QFETCH(bool, bySignal);
    QFETCH(bool, inDialog);
    const auto f = Edited();
    f->dialogs.answer = false;
    if (inDialog) {
      QTimer::singleShot(0, f->window.get(), [&] { f->Find<QAction>("m_imp")->trigger(); });
    }
    QTimer::singleShot(100, f->window.get(), [&] {
      QCOMPARE(QApplication::activeModalWidget() != nullptr, inDialog);
      if (bySignal) {
        QCOMPARE(std::raise(SIGTERM), 0);
      } else {
        QCoreApplication::quit();
        // At once: what is waited for now may never end.
        QCOMPARE(QDir(f->Path("recovery")).entryList({"*.json"}).size(), 1);
      }
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!f->window->isVisible() && f->dialogs.asked.empty());
    QCOMPARE(f->store.values["NomLoad1"], std::string("0.5"));
    const QString log = Log(*f);
    QVERIFY2(log.endsWith("| Unloading... | Close request | Current is Open | Close Current 1|"
                          " Exit|") &&
                 log.count("Exit") == 1,
             qPrintable(log));
  }

#ifdef Q_OS_LINUX  // whether a program listens is seen in /proc
  void TheProgramEndsInOrderBySignals() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
      WindowFixture f(kLibrary);
      f.window.reset();
      f.Write("Zentab1.txt", "F1.LOGGFILE {on}");
      f.Write("registry.ini",
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\HALDOR\\MIRAXWIN]\nMIRAX=" + f.Path("").toUtf8());
      QProcess editor;
      QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
      environment.insert("ZENTAB_REGISTRY_DIR", f.Path(""));
      environment.insert("ZENTAB_SETTINGS_DIR", f.Path("settings"));
      editor.setProcessEnvironment(environment);
      editor.start(QStringLiteral(PROGRAM), QStringList());
      QVERIFY(editor.waitForStarted());
      const qint64 process = editor.processId();
      QTRY_VERIFY_WITH_TIMEOUT(Catches(process, signal), 30000);
      QCOMPARE(::kill(static_cast<pid_t>(process), signal), 0);
      QVERIFY(editor.waitForFinished());
      QCOMPARE(editor.exitStatus(), QProcess::NormalExit);
      QCOMPARE(editor.exitCode(), 0);
      QVERIFY2(Log(f).endsWith(" Started| Unloading... | Close request | Exit|"),
               qPrintable(Log(f)));
      QVERIFY(f.Bytes("settings/Zentab.ini").contains("TableName=relayTables.dat"));
    }
  }
#endif
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::SessionEndTest)
#include "session_end_test.moc"
