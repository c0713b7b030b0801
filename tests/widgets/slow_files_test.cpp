#include <QApplication>
#include <QListView>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <atomic>

#include "app/widgets/files/held_input.h"
#include "support/stepped_file_layer.h"
#include "widgets/window_test.h"

namespace zentab::app {
namespace {

const QByteArray kA = "{\"Anna\"\t(1.5;10)(2;4) 001}\r\n";
const QByteArray kB = "{\"Berta\"\t(2.5;10)(3;4) 001}\r\n";

// Holds the files' thread before each step that changes something, or before each that reads.
class HeldFileLayer final : public test::SteppedFileLayer {
 public:
  std::atomic<bool> isHeld = false;
  std::atomic<bool> holdsReading = false;
  std::atomic<int> reads = 0;
  std::function<void(std::string_view)> onRead = [](std::string_view) {};

  static void Release(std::atomic<bool>& hold) {
    hold = false;
    hold.notify_all();
  }

 private:
  std::error_code BeforeReading(const char* step) override {
    ++reads;
    onRead(step);
    holdsReading.wait(true);
    return {};
  }
  std::error_code Before(const char*) override {
    isHeld.wait(true);
    return {};
  }
};

// The window while a file is waited for, and while someone else is writing it.
class SlowFilesTest : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  // A screen reader presses buttons whether the mouse reaches them or not.
  void NothingBeginsAndTheWindowStaysWhileAFileIsWritten() {
    HeldFileLayer layer;
    WindowFixture& f = Make(kA + kB, ".", &layer);
    f.OpenIn({});
    f.Click("Command1");
    f.Click("Option1");
    f.dialogs.file = f.Path("relayTables.dat");
    QStringList begun;
    const auto press = [&](const QString& name, const std::function<void()>& command) {
      const auto asked = [&f] {
        return f.dialogs.asked.size() + static_cast<std::size_t>(f.dialogs.filesAsked);
      };
      const std::size_t before = asked();
      command();
      if (asked() != before || QApplication::activeModalWidget() != nullptr) begun += name;
    };
    bool closed = true;
    bool isPointed = false;
    QTimer::singleShot(0, f.window.get(), [&] {
      closed = f.window->close();
      for (const char* const name :
           {"Command1", "Command2", "Command3", "Command4", "Command5", "Command6", "Command10"}) {
        press(name, [&] { f.Click(name); });
      }
      for (const char* const name :
           {"m_act",         "m_newlib",      "m_savecopy",      "m_backup",    "m_imp",
            "m_exp",         "m_copyentries", "m_exportentries", "m_duplicate", "m_entrydown",
            "m_folder",      "m_sortfile",    "m_undo",          "m_redo",      "m_impcurves",
            "m_pastecurves", "m_cmplibrary",  "m_cmpentry",      "m_cmpfile",   "m_savechart",
            "m_preview",     "m_exit"}) {
        press(name, [&] { f.Find<QAction>(name)->trigger(); });
      }
      // It takes a moment until the pointer tells.
      QTimer::singleShot(250, f.window.get(), [&] {
        isPointed = QGuiApplication::overrideCursor() != nullptr;
        HeldFileLayer::Release(layer.isHeld);
      });
    });
    layer.isHeld = true;
    f.Find<QListView>("List1")->selectAll();
    f.Click("Command2");
    QVERIFY(isPointed && QGuiApplication::overrideCursor() == nullptr);
    QVERIFY2(begun.isEmpty(), qPrintable(begun.join(' ')));
    QVERIFY(!closed && f.window->isVisible());
    QCOMPARE(f.Bytes(), QByteArray());
    QVERIFY(f.window->close());
  }

  void TheFileIsLookedAtOneLookAtATime() {
    HeldFileLayer layer;
    Make(kA + kB, ".", &layer);
    QTRY_VERIFY(layer.reads > 20);
    layer.holdsReading = true;
    QTest::qWait(20 * WindowFixture::kLookEvery);
    const int before = layer.reads;
    HeldFileLayer::Release(layer.holdsReading);
    // What waited comes now, and nothing new as long as no events are.
    QTest::qSleep(50);
    QVERIFY2(layer.reads - before < 10, qPrintable(QString::number(layer.reads - before)));
  }

  // Or its height would come from what it says before.
  void TheAssessmentIsShownOnceItsReferenceIsRead() {
    HeldFileLayer layer;
    WindowFixture& f = Make(kA + kB, ".", &layer);
    f.Click("Command1");
    const auto* const panel = f.Find<QWidget>("PanelAssessment");
    bool isShown = true;
    QTimer::singleShot(0, [&] {
      isShown = panel->isVisible();
      HeldFileLayer::Release(layer.holdsReading);
    });
    layer.holdsReading = true;
    f.Find<QAction>("m_assess")->trigger();
    QVERIFY(!isShown && panel->isVisible());
  }

  void AFileThatIsBeingWrittenIsListedOnceItIsDone() {
    std::atomic<int> left = 0;  // times that someone else writes before the next look
    std::atomic<int> opened = 0;
    HeldFileLayer layer;
    QByteArray growing = kA;
    layer.onRead = [&](std::string_view step) {
      if (left == 0) return;
      if (step == "open") ++opened;
      if (step != "stamp") return;
      growing += kB;
      made_->Write("relayTables.dat", growing);
      --left;
    };
    Make(kA, ".", &layer);
    QTRY_VERIFY(layer.reads > 20);
    left = 8;
    QTRY_COMPARE(left, 0);
    QCOMPARE(opened, 0);
    QTRY_COMPARE(made_->session.listing.names.size(), 9U);
    made_.reset();
  }

  void OnlyWhatEndsAWaitWorksMeanwhile() {
    WindowFixture& f = Make(kA + kB);
    QProgressDialog progress(QStringLiteral("x"), QStringLiteral("Cancel"), 0, 9, f.window.get());
    QPushButton giveUp;
    giveUp.setObjectName(QLatin1String(HeldInput::kGiveUpButton));
    giveUp.show();
    HeldInput held;
    const QSignalSpy givenUp(&giveUp, &QPushButton::clicked);
    const QSignalSpy escaped(&held, &HeldInput::EscapePressed);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QCoreApplication::sendEvent(f.window->windowHandle(), &escape);
    progress.show();
    for (auto* const button :
         {f.Find<QPushButton>("Command1"), &giveUp, progress.findChild<QPushButton*>()}) {
      QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(f.session.table.grid.Cell(1, 1).empty() && progress.wasCanceled());
    QCOMPARE(QList<qsizetype>({givenUp.size(), escaped.size()}), QList<qsizetype>({1, 1}));
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::SlowFilesTest)
#include "slow_files_test.moc"
