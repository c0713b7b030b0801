// Does each task of the guide on the demo installation, by keys alone, and looks at what it leaves
// behind. With ZENTAB_GUIDE_PICTURES=FOLDER it draws the guide's pictures on its way into that
// folder, dark ones where ZENTAB_GUIDE_COLOURS is "dark"; scripts/guide-pictures.sh does.
#include <QApplication>
#include <QDialog>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "widgets/window_test.h"

namespace zentab::app {
namespace {

constexpr QSize kWindow(1100, 720);
constexpr QPoint kDialogAt(28, 64);
constexpr int kTitle = 26;  // the height of a dialog's title in a picture

class GuideWalkTest : public WindowTest {
  Q_OBJECT

 private:
  static void CopyFolder(const QString& from, const QString& to) {
    QDirIterator files(from, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const QString file = files.next();
      const QString target = to + file.mid(from.size());
      QDir().mkpath(QFileInfo(target).path());
      QFile::remove(target);
      if (!QFile::copy(file, target)) qFatal("%s is not copied", qPrintable(file));
      QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    }
  }
  WindowFixture& Start() {
    made_ = std::make_unique<WindowFixture>("");
    WindowFixture& f = *made_;
    CopyFolder(QStringLiteral(DEMO), f.Path("."));
    QFile::copy(QStringLiteral(CATALOGUE), f.Path("Zentab.txt"));
    f.store.values["Colours"] = qEnvironmentVariable("ZENTAB_GUIDE_COLOURS", "light").toStdString();
    f.window.reset();
    f.Open();
    f.window->resize(kWindow);
    f.Activate();
    return f;
  }

  // Where the keys of a user would go.
  [[nodiscard]] QWidget* InFront() const {
    if (QWidget* const menu = QApplication::activePopupWidget()) return menu;
    QWidget* const dialog = QApplication::activeModalWidget();
    QWidget* const top = dialog != nullptr ? dialog : made_->window.get();
    // There is no window manager that would do it when a dialog closes.
    if (!top->isActiveWindow()) top->activateWindow();
    if (!QTest::qWaitForWindowActive(top)) qFatal("the window stays inactive");
    if (QWidget* const focus = QApplication::focusWidget()) return focus;
    return top->focusWidget() != nullptr ? top->focusWidget() : top;
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1) const {
    for (; times > 0; --times) {
      QTest::keyClick(InFront(), static_cast<Qt::Key>(key), modifiers);
      QCoreApplication::processEvents();
    }
  }
  void Type(const QString& text) const {
    for (const QChar letter : text) QTest::keyClick(InFront(), letter.toLatin1());
    QCoreApplication::processEvents();
  }
  // Alt and a letter; a button takes a moment.
  void Access(char letter) const {
    Key(letter, Qt::AltModifier);
    const auto isPressed = [] {
      const QWidgetList widgets = QApplication::allWidgets();
      return std::ranges::any_of(widgets, [](const QWidget* widget) {
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        return button != nullptr && button->isDown();
      });
    };
    if (!QTest::qWaitFor([&] { return !isPressed(); })) qFatal("a button stays pressed");
  }
  // The current cell gets another number.
  void Replace(const QString& number) const {
    Key(Qt::Key_Return);
    Key(Qt::Key_Home, Qt::ShiftModifier);
    Type(number);
    Key(Qt::Key_Return);
  }
  // The letters of a menu and of the entries in it.
  void Menu(const char* letters) const {
    Access(*letters);
    for (++letters; *letters != '\0'; ++letters) Key(*letters);
  }
  // To the control of this name.
  void TabTo(const char* name) const {
    constexpr int kMost = 60;
    for (int step = 0; step < kMost; ++step) {
      const QWidget* const focus = QApplication::focusWidget();
      if (focus != nullptr && focus->objectName() == QLatin1String(name)) return;
      Key(Qt::Key_Tab);
    }
    qFatal("no Tab leads to %s", name);
  }
  // Ctrl+F, a part of a name, Enter into the list, Home, Enter.
  void Read(const QString& name) const {
    Find(name);
    Key(Qt::Key_Return);
  }
  void Find(const QString& name) const {
    Key(Qt::Key_F, Qt::ControlModifier);
    Type(name);
    Key(Qt::Key_Return);
    Key(Qt::Key_Home);
  }
  void AddAs(const QString& name) const {
    Key(Qt::Key_N, Qt::ControlModifier);
    Type(name);
    Key(Qt::Key_Return);
  }
  // The instrument, three numbers of the import and what the import makes of them.
  void ImportTest(const char* filter) const {
    Access('C');
    TabTo("Text4");
    Type("3");
    Key(Qt::Key_Tab);
    Type(filter);
    Key(Qt::Key_Tab);
    Type("1");
    Access('P');
  }

  [[nodiscard]] QString Line(const QByteArray& name,
                             const QString& file = "relayTables.dat") const {
    for (const QByteArray& line : made_->Bytes(file).split('\n')) {
      if (line.startsWith("{\"" + name + "\"")) return QString::fromUtf8(line).trimmed();
    }
    return {};
  }
  [[nodiscard]] QString Said(const char* label) const {
    const auto* const dialog = QApplication::activeModalWidget();
    const QWidget& in = dialog != nullptr ? *dialog : *made_->window;
    const auto* const found = in.findChild<QLabel*>(QLatin1String(label));
    return found == nullptr ? QString() : found->text();
  }

  // The window with the dialog in front of it, for the guide.
  void Picture(const char* name) const {
    const QString folder = qEnvironmentVariable("ZENTAB_GUIDE_PICTURES");
    if (folder.isEmpty()) return;
    QTest::qWait(50);
    QPixmap picture = made_->window->grab();
    if (QWidget* const dialog = QApplication::activeModalWidget()) {
      const QPixmap shown = dialog->grab();
      QPainter painter(&picture);
      const QRect frame(kDialogAt, shown.size() + QSize(2, kTitle + 1));
      painter.fillRect(frame, dialog->palette().color(QPalette::Button));
      painter.setPen(dialog->palette().color(QPalette::WindowText));
      painter.drawText(frame.adjusted(8, 0, 0, kTitle - frame.height()), Qt::AlignVCenter,
                       dialog->windowTitle());
      painter.drawPixmap(kDialogAt + QPoint(1, kTitle), shown);
      painter.setPen(dialog->palette().color(QPalette::Mid));
      painter.drawRect(frame.adjusted(0, 0, -1, -1));
    }
    const QString dark = made_->store.values["Colours"] == "dark" ? "-dark" : "";
    if (!picture.save(folder + '/' + name + dark + ".png")) qFatal("%s is not drawn", name);
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void AFirstCurve() {
    const WindowFixture& f = Start();
    Read("EI TMS 0.10");
    QCOMPARE(Points().value(0), QStringLiteral("1.05\t78.05"));
    Picture("main-window");
    Key(Qt::Key_K, Qt::ControlModifier);
    Access('M');
    Type("0.2");
    Access('L');
    Key(Qt::Key_Down, {}, 2);
    QVERIFY2(Said("LabelOutcome").startsWith("26 points, the lines between them deviate by up to"),
             qPrintable(Said("LabelOutcome")));
    Picture("standard-curve");
    Key(Qt::Key_Return);
    QCOMPARE(Points().size(), 26);
    // The first time, by hand.
    Key(Qt::Key_2, Qt::AltModifier);
    Key(Qt::Key_Home, Qt::ControlModifier);
    Key(Qt::Key_Right);
    Replace("30");
    QVERIFY2(Points().value(0).endsWith("\t30"), qPrintable(Points().join(' ')));
    Key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!Points().value(0).endsWith("\t30"));
    AddAs("My first curve");
    QVERIFY2(Line("My first curve").startsWith("{\"My first curve\"\t(1.05;"),
             qPrintable(Line("My first curve")));
    QCOMPARE(f.window->statusBar()->currentMessage(), QString());
  }

  void FromATestToACurve() {
    Start();
    Access('C');
    QCOMPARE(made_->Find<QLineEdit>("Text2")->text(), QStringLiteral("1"));
    Key(Qt::Key_I, Qt::ControlModifier);
    QTRY_VERIFY(Said("LabelSource").contains("320 points"));
    Access('D');
    Type("3");
    Access('F');
    Type("3");
    Access('M');
    Type("5");
    QTRY_VERIFY2(Said("LabelOutcome").startsWith("25 points"), qPrintable(Said("LabelOutcome")));
    Picture("time-test");
    Key(Qt::Key_Return);
    QCOMPARE(Points().size(), 25);
    AddAs("Feeder 12 test");
    QVERIFY(Line("Feeder 12 test").endsWith(" 001}"));
  }

  void AnEquationOfOnesOwn() {
    Start();
    Access('C');
    Key(Qt::Key_I, Qt::ControlModifier);
    QTRY_VERIFY(Said("LabelSource").contains("320 points"));
    Access('F');
    Type("9");
    Access('Q');
    Type("t1*(t1<59.4)-(t1>=59.4)");
    // The list of completions, as far as there are any.
    if (QApplication::activePopupWidget() != nullptr) Key(Qt::Key_Escape);
    Key(Qt::Key_Return);
    QTRY_VERIFY2(Said("LabelEffect3").contains("removed"), qPrintable(Said("LabelEffect3")));
    Picture("equations");
    Access('W');
    QTRY_VERIFY(
        made_->Bytes("Zentab1.txt").contains("FILTER.EQUATION.9 {t1*(t1<59.4)-(t1>=59.4)}"));
    Access('F');
    Key(Qt::Key_Return);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(!Points().isEmpty());
  }

  void ARelayIsAssessed() {
    Start();
    ImportTest("3");
    Key(Qt::Key_2, Qt::AltModifier);
    Key(Qt::Key_Home, Qt::ControlModifier);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    Key(Qt::Key_J, Qt::ControlModifier);
    TabTo("CommandUseCurve");
    Key(Qt::Key_Space);
    Access('M');
    Type("0.2");
    Key(Qt::Key_Return);
    TabTo("Limit_class");
    Type("5");
    QVERIFY2(Said("LabelVerdict").startsWith("Assessment passed: all"),
             qPrintable(Said("LabelVerdict")));
    Picture("assess");
  }

  void ADifferenceBetweenTwoLibrariesIsTakenOver() {
    WindowFixture& f = Start();
    f.dialogs.file = f.Path("yesterday.dat");
    Menu("YC");
    QTRY_COMPARE(f.Bytes("yesterday.dat"), f.Bytes());
    Find("VI TMS 0.10");
    Key(Qt::Key_Delete);
    QTRY_VERIFY(Line("IEC VI TMS 0.10").isEmpty());
    Key(Qt::Key_F, Qt::ControlModifier);
    Key(Qt::Key_Escape);
    Read("VI TMS 0.25");
    Key(Qt::Key_2, Qt::AltModifier);
    Key(Qt::Key_Home, Qt::ControlModifier);
    Key(Qt::Key_Right);
    Replace("66");
    Key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(Line("IEC VI TMS 0.25").contains("(1.05;66)"));
    Menu("YM");
    QTRY_COMPARE(Said("LabelCounts"), QStringLiteral("1 added (+), 0 removed (−), 1 changed (~)"));
    Picture("compare");
    Access('A');
    Access('T');
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(Line("IEC VI TMS 0.25").contains("(1.05;67.5)"));
    QVERIFY(!Line("IEC VI TMS 0.10").isEmpty());
  }

  void AReferenceGraphIsSetAndReadBack() {
    WindowFixture& f = Start();
    Read("SI TMS 0.10");
    Access('C');
    TabTo("Command5");
    Key(Qt::Key_Space);
    QTRY_VERIFY(f.Bytes("data/current/reference.grh").startsWith("@A"));
    const QStringList points = Points();
    Read("VI TMS 0.10");
    f.dialogs.file = f.Path("data/current/reference.grh");
    Access('G');
    QTRY_COMPARE(Points().size(), points.size());
    QCOMPARE(Points().first(), points.first());
  }

  void SomeoneElseWorksOnTheSameFile() {
    const WindowFixture& f = Start();
    Read("SI TMS 0.30");
    QByteArray theirs = f.Bytes();
    theirs.replace("(1.05;43.02)", "(1.05;44)");
    f.Write("relayTables.dat", theirs);
    QTRY_COMPARE(f.window->statusBar()->currentMessage(), QString());
    Key(Qt::Key_2, Qt::AltModifier);
    Key(Qt::Key_Home, Qt::ControlModifier);
    Key(Qt::Key_Right);
    Replace("42");
    Key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(f.window->statusBar()->currentMessage().startsWith("Another program has changed"));
    QCOMPARE(f.Bytes(), theirs);
    AddAs("SI 0.30 of mine");
    QVERIFY(Line("SI 0.30 of mine").contains("(1.05;42)"));
  }

  void AReportAndAChartGoOut() {
    WindowFixture& f = Start();
    Read("EI TMS 0.10");
    f.dialogs.file = f.Path("report.pdf");
    QTimer::singleShot(100, this, [&] {
      Access('H');
      Type("Substation North");
      Picture("reports");
      Access('S');
    });
    Key(Qt::Key_P, Qt::ControlModifier);
    QTRY_VERIFY(f.Bytes("report.pdf").startsWith("%PDF"));
    f.dialogs.file = f.Path("chart.svg");
    Key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(f.Bytes("chart.svg").contains("<svg"));
  }

  void TheChartIsReadAndCurvesAreCompared() {
    const WindowFixture& f = Start();
    Read("SI TMS");
    Key(Qt::Key_1, Qt::AltModifier);
    Key(Qt::Key_Down, Qt::ShiftModifier, 3);
    Menu("WME");
    QCOMPARE(f.Find<QListView>("ListLegend")->model()->rowCount(), 5);
    Key(Qt::Key_3, Qt::AltModifier);
    Key(Qt::Key_Home);
    Key(Qt::Key_Down, {}, 8);
    Key('A');
    Key(Qt::Key_Down, {}, 8);
    Key('B');
    QVERIFY(f.Find<QWidget>("MarkerText")->isVisible());
    Picture("chart");
    Key(Qt::Key_Backspace);
    QVERIFY(!f.Find<QWidget>("MarkerText")->isVisible());
  }

  void F1OpensThePageOfWhatHasTheFocus() {
    const WindowFixture& f = Start();
    QVERIFY(QDir().mkpath(f.Path("guide")));
    CopyFolder(QStringLiteral(GUIDE), f.Path("guide"));
    const auto page = [&] {
      Key(Qt::Key_F1);
      return QFileInfo(QString::fromStdString(made_->dialogs.asked.back())).fileName();
    };
    Read("SI TMS 0.10");
    Key(Qt::Key_1, Qt::AltModifier);
    QCOMPARE(page(), QStringLiteral("libraries.html"));
    Key(Qt::Key_2, Qt::AltModifier);
    QCOMPARE(page(), QStringLiteral("first-curve.html"));
    Key(Qt::Key_3, Qt::AltModifier);
    QCOMPARE(page(), QStringLiteral("chart.html"));
    Key(Qt::Key_J, Qt::ControlModifier);
    TabTo("Limit_class");
    QCOMPARE(page(), QStringLiteral("assess.html"));
    Key(Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(page(), QStringLiteral("first-curve.html"));
    Key(Qt::Key_Escape);
    made_->dialogs.answer = false;
    Key(Qt::Key_F1);
    QVERIFY(f.window->statusBar()->currentMessage().startsWith("No browser could be started"));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::GuideWalkTest)
#include "guide_walk_test.moc"
