#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>

#include "editor/widgets/chart/curve_chart.h"
#include "widgets/picture.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

// The help menu and the welcome of a first start.
class HelpTest : public WindowTest {
  Q_OBJECT

 private:
  WindowFixture& Start() {
    made_ = std::make_unique<WindowFixture>("{\"SI\"\t(1.5;10)(2;4.25) 001}\r\n");
    return *made_;
  }
  // What a window of the menu lets one copy, a line a row, and its note.
  [[nodiscard]] QStringList Shown(const char* action) const {
    made_->Find<QAction>(action)->trigger();
    QWidget* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || dialog->objectName() != "FormHelp") qFatal("no window opens");
    dialog->findChild<QPushButton*>("CommandCopyAll")->click();
    QStringList lines = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    const auto& table = *dialog->findChild<QTableWidget*>();
    if (table.rowCount() + 1 != lines.size()) qFatal("lines lost");
    if (table.editTriggers() || table.tabKeyNavigation()) qFatal("the table keeps the keys");
    // The newest line of a log is seen, and the first one of all others.
    const QScrollBar& bar = *table.verticalScrollBar();
    if (bar.value() != (table.columnCount() == 1 ? bar.maximum() : 0)) qFatal("the wrong end");
    const auto* const note = dialog->findChild<QLabel*>("LabelNote");
    const bool isBelow = note != nullptr && note->y() > table.geometry().bottom();
    if (isBelow && note->wordWrap()) lines += note->text();
    dialog->findChild<QPushButton*>("CommandGuide")->click();
    QTest::keyClick(dialog, Qt::Key_Escape);
    return lines;
  }
  [[nodiscard]] bool IsWelcome() const {
    const auto* const panel = made_->Find<QWidget>("PanelWelcome");
    return panel != nullptr && panel->isVisible();
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void TheKeysAreThoseOfTheWindow() {
    const WindowFixture& f = Start();
    const QStringList lines = Shown("m_keys");
    for (const char* const line :
         {"View > Whole curve\tCtrl+0", "View > Previous panel\tShift+F6", "Read\tAlt+R, Ctrl+R",
          "Import with preview\tCtrl+I", "Find a name\tCtrl+F, Esc, Down", "Help > Guide\tF1"}) {
      QVERIFY2(lines.contains(QLatin1String(line)), qPrintable(lines.join('\n')));
    }
    f.Find<QAction>("m_fit")->setShortcut(Qt::Key_F12);
    QVERIFY(Shown("m_keys").contains("View > Whole curve\tF12"));
  }

  void TheLogIsThatOfTheSessionWhetherItIsWrittenOrNot() {
    WindowFixture& f = Start();
    for (int press = 0; press < 12; ++press) f.Click(press % 2 == 0 ? "Option2" : "Option1");
    QStringList lines = Shown("m_sessionlog");
    QVERIFY2(lines.value(1).endsWith("Started"), qPrintable(lines.join('\n')));
    // Each begins with the time where another minute has begun.
    QCOMPARE(lines.filter(" Current selected ").size(), 6);
    QCOMPARE(lines.last(), QString::fromStdString(f.session.texts.help.noLogFile));
    QVERIFY(!QFile::exists(f.Path("Zentab.log")));
    f.Write("Zentab.txt", "F1.LOGGFILE {on}\n");
    f.window.reset();
    f.Write("Zentab.log", "former\r\n");
    f.Open();
    lines = Shown("m_sessionlog");
    QVERIFY(lines.last().startsWith("Written to ") && lines.takeLast().endsWith("Zentab.log"));
    QCOMPARE(f.Bytes("Zentab.log"), "former\r\n" + lines.mid(1).join("\r\n").toUtf8() + "\r\n");
  }

  void TheProgramTellsWhatItIsMadeOf() {
    Start();
    const QString all = Shown("m_about").join('\n');
    QVERIFY2(all.contains(QStringLiteral("Qt\t") + qVersion()), qPrintable(all));
    QVERIFY(!all.contains("\t\t"));
  }

  void AGuideThatIsMissingIsSaidToBe() {
    WindowFixture& f = Start();
    f.Find<QAction>("m_guide")->trigger();
    QCOMPARE(SaidBelow(), QStringLiteral("The guide is not installed"));
    QVERIFY(QDir().mkpath(f.Path("guide")));
    for (const auto& [action, page] :
         {std::pair("m_keys", "keys.html"), {"m_about", "index.html"}}) {
      f.Write(QStringLiteral("guide/") + page, {});
      static_cast<void>(Shown(action));
      QVERIFY2(f.dialogs.asked.back().ends_with(page), action);
    }
  }

  // Those of the menu bar, the buttons and the fields are pressed in the same window.
  void NoTwoAccessKeysOfTheWindowAreAlike() {
    for (const char* const language : {"", ".de", ".zh_CN"}) {
      WindowFixture& f = Start();
      f.OpenIn(QLatin1String(language));
      QStringList captions;
      for (const auto* const label : f.window->findChildren<QLabel*>()) {
        if (label->buddy() != nullptr && label->isVisible()) captions += label->text();
      }
      for (const auto* const button : f.window->findChildren<QAbstractButton*>()) {
        // Those without a caption have no access key either.
        const bool hasCaption = qobject_cast<const QToolButton*>(button) == nullptr;
        if (button->isVisible() && hasCaption) captions += button->text();
      }
      const auto areUnlike = [&](const QList<QAction*>& actions, QStringList texts) {
        for (const QAction* const action : actions) {
          if (!action->isSeparator()) texts += action->text();
        }
        QSet<QChar> letters;
        for (const QString& text : texts) {
          const qsizetype at = text.indexOf('&') + 1;
          if (at == 0) continue;
          const QChar letter = text.at(at).toUpper();
          QVERIFY2(!letters.contains(letter), qPrintable(QLatin1String(language) + text));
          letters.insert(letter);
        }
      };
      areUnlike(f.window->menuBar()->actions(), captions);
      for (const char* const menu : {"m_help", "m_view"}) {
        areUnlike(f.Find<QMenu>(menu)->actions(), {});
      }
    }
  }

  void AFirstStartOffersThreeWaysToBegin() {
    WindowFixture& f = Start();
    QVERIFY(!IsWelcome());
    f.window.reset();
    QFile::remove(f.Path("relayTables.dat"));
    QVERIFY(QDir().mkpath(f.Path("demo")) && QDir().mkpath(f.Path("instruments")));
    f.session.isWithoutSuite = true;
    f.Open();
    f.window->resize(1240, 820);
    QVERIFY(IsWelcome());
    f.Activate();
    QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("CommandDemo"));
    QVERIFY(IsAsInPictures(PictureOf(*f.Find<QWidget>("PanelWelcome")), QStringLiteral("welcome")));
    QVERIFY(!QApplication::focusWidget()->accessibleName().isEmpty());
    f.dialogs.answer = false;
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(f.dialogs.asked.back().ends_with("Zentab --demo") && f.window->isVisible());
    f.dialogs.file = f.Path("mine.dat");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    // It stays where it is when a library or a curve is looked for anew.
    Q_EMIT f.Find<editor::CurveChart>("MSChart1")->CurveShown();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(QFile::exists(f.Path("mine.dat")) && !IsWelcome());
    QVERIFY(f.Find<QWidget>("LabelChart")->isVisible());
  }

  void TheWelcomeIsOverOnceACurveIsShown() {
    WindowFixture& f = Start();
    f.window.reset();
    QFile::remove(f.Path("relayTables.dat"));
    f.session.isWithoutSuite = true;
    f.Open();
    QVERIFY(IsWelcome() && !f.Find<QWidget>("CommandDemo")->isVisible());
    QGuiApplication::clipboard()->setText(QStringLiteral("1\t2\r\n3\t1\r\n"));
    f.Find<QWidget>("MSFlexGrid1")->setFocus();
    f.Find<QAction>("m_paste")->trigger();
    QVERIFY(!IsWelcome() && f.Find<QWidget>("MSChart1")->isVisible());
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::HelpTest)
#include "help_test.moc"
