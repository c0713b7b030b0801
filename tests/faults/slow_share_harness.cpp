// The window on a share that takes its time: every file call lasts as long as is told, and single
// ones for seconds. Whatever is commanded, the window must get round to its events; what the user
// types meanwhile arrives; he is told, and may give up.
//   slow_share_harness [LIMIT [DELAY...]]   milliseconds; no limit for 0
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <thread>

#include "editor/widgets/curve_grid_view.h"
#include "faults/harness.h"
#include "widgets/window_fixture.h"

namespace zentab::test {
namespace {

constexpr int kStall = 12'000;  // milliseconds

// The system's files, each call after a delay.
class SlowFileLayer final : public SteppedFileLayer {
 public:
  std::atomic<int> delay = 0;  // milliseconds
  std::atomic<int> stall = 0;  // milliseconds more, for the next call alone

  std::error_code Ask(const std::function<std::error_code()>& call) override {
    Wait();
    return call();
  }

 private:
  std::error_code Before(const char*) override { return BeforeReading(nullptr); }
  std::error_code BeforeReading(const char*) override {
    Wait();
    return {};
  }
  void Wait() { std::this_thread::sleep_for(std::chrono::milliseconds(delay + stall.exchange(0))); }
};

// The longest time between two beats of the event loop.
class Heartbeat {
 public:
  Heartbeat() {
    timer_.setInterval(2);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Beat(); });
    timer_.start();
  }
  void Start() {
    longest_ = 0;
    since_.start();
  }
  qint64 Longest() {
    Beat();
    return longest_;
  }

 private:
  void Beat() { longest_ = std::max(longest_, since_.restart()); }

  QTimer timer_;
  QElapsedTimer since_;
  qint64 longest_ = 0;  // milliseconds
};

QByteArray Library(int entries) {
  QByteArray bytes;
  for (int entry = 0; entry < entries; ++entry) {
    bytes += "{\"Curve " + QByteArray::number(entry) + "\"\t";
    for (int point = 1; point <= 20; ++point) bytes += "(" + QByteArray::number(point) + ".5;10)";
    bytes += " 001}\r\n";
  }
  return bytes;
}

class SlowShare {
 public:
  explicit SlowShare(qint64 limit)
      : limit_(limit), library_(Library(8'000)), fixture_(library_, ".", &slow_) {
    QDir(fixture_.Path(".")).mkpath("data/current");
    fixture_.Write("fo.txt", "HEADING.CURRENT.TIMETEST.TXT {Test}\r\n");
    fixture_.Write("data/current/result.txt", "Test\r\n1\t3\t2500\t\r\n2\t6\t1500\t\r\n");
    fixture_.window->activateWindow();
    verdict_.Check(QTest::qWaitForWindowActive(fixture_.window.get()), "the window is active");
  }

  void TryCommands(int delay) {
    std::printf("== %d ms a call\n", delay);
    slow_.delay = delay;
    fixture_.Select(1);
    Measure("Read", [this] { fixture_.Click("Command1"); });
    verdict_.Check(fixture_.session.table.grid.Cell(1, 1) == "1.5", "the entry was read");
    Edit("8");
    Measure("Update", [this] { fixture_.Click("Command4"); });
    verdict_.Check(!fixture_.session.table.tableModified, "the entry was written");
    Measure("Add New", [this, delay] {
      fixture_.Click("Command3");
      fixture_.Find<QLineEdit>("Text1")->setText(QString::number(delay));
      QTest::keyClick(fixture_.Find<QLineEdit>("Text1"), Qt::Key_Return);
    });
    Measure("Remove", [this] { fixture_.Click("Command2"); });
    Measure("Current", [this] { fixture_.Click("Option1"); });
    Measure("Set GRH", [this] { fixture_.Click("Command5"); });
    Measure("Import time test", [this] { fixture_.Click("Command10"); });
    fixture_.dialogs.file = fixture_.Path("relayTables.dat");
    Measure("Set active table", [this] { fixture_.Find<QAction>("m_act")->trigger(); });
    Measure("typing while the list is shown anew", [this] { TypeThroughChange(); });
    slow_.delay = 0;
  }

  void TryStall() {
    std::printf("== a call of %d ms\n", kStall);
    slow_.stall = kStall;
    Measure("an idle window, with keys typed", [this] {
      QTest::qWait(300);
      Edit("31");
      QTest::qWait(300);
    });
    verdict_.Check(fixture_.session.table.grid.Cell(1, 1) == "31", "what was typed has arrived");
    // The look that hangs has the thread; the command waits behind it until the user gives up.
    auto* const waiting = fixture_.Find<QLabel>("StatusWaiting");
    bool wasTold = false;
    QTimer isTold;
    QObject::connect(&isTold, &QTimer::timeout, [&] {
      if (wasTold || !waiting->isVisible()) return;
      wasTold = true;
      QTest::keyClick(fixture_.window->windowHandle(), Qt::Key_Escape);
    });
    isTold.start(20);
    QElapsedTimer taken;
    taken.start();
    fixture_.Select(0);
    Measure("Read, given up", [this] { fixture_.Click("Command1"); });
    verdict_.Check(wasTold, "the user was told of the wait");
    verdict_.Check(taken.elapsed() < kStall / 2, "giving up ends the wait");
    verdict_.Check(!waiting->isVisible(), "the wait is over");
    verdict_.Check(!fixture_.window->statusBar()->currentMessage().isEmpty(), "it is told");
    verdict_.Check(fixture_.session.table.tableModified, "the edits stay");
    Measure("Read", [this] { fixture_.Click("Command1"); });
    verdict_.Check(!fixture_.session.table.tableModified, "the next command works");
  }

  void End() {
    Measure("closing the window", [this] { fixture_.window->close(); });
    std::printf("longest pause of all: %lld ms\n", static_cast<long long>(longest_));
  }
  [[nodiscard]] int Finish() const { return verdict_.Finish(); }

 private:
  void Edit(const char* text) {
    auto* const grid = fixture_.Find<editor::CurveGridView>("MSFlexGrid1");
    grid->GridEdit(text[0]);
    for (const char* more = text + 1; *more != 0; ++more) {
      QTest::keyClick(QApplication::focusWidget(), *more);
    }
    grid->CloseEditor();
  }

  void TypeThroughChange() {
    const std::string theirs = "theirs" + std::to_string(++changes_);
    const QByteArray line = QByteArray::fromStdString("{\"" + theirs + "\"\t 000}\r\n");
    fixture_.Write("relayTables.dat", library_ + line);
    const auto isShown = [&] { return fixture_.session.listing.names.back() == theirs; };
    QElapsedTimer taken;
    taken.start();
    while (!isShown() && taken.elapsed() < 60'000) {
      Edit("7");
      QTest::qWait(20);
    }
    verdict_.Check(isShown(), "the change is shown");
    verdict_.Check(fixture_.session.table.grid.Cell(1, 1) == "7", "what was typed has arrived");
    fixture_.session.table.tableModified = false;
  }

  void Measure(const char* what, const std::function<void()>& work) {
    QTest::qWait(50);
    heartbeat_.Start();
    QElapsedTimer whole;
    whole.start();
    work();
    QCoreApplication::processEvents();
    const qint64 taken = whole.elapsed();
    const qint64 pause = heartbeat_.Longest();
    longest_ = std::max(longest_, pause);
    std::printf("%-38s %6lld ms   longest pause %4lld ms\n", what, static_cast<long long>(taken),
                static_cast<long long>(pause));
    std::fflush(stdout);
    verdict_.Check(limit_ == 0 || pause < limit_, std::string(what) + " lets the window wait");
  }

  Verdict verdict_;
  qint64 limit_;
  qint64 longest_ = 0;
  int changes_ = 0;
  QByteArray library_;
  SlowFileLayer slow_;
  Heartbeat heartbeat_;
  app::WindowFixture fixture_;
};

}  // namespace
}  // namespace zentab::test

int main(int argc, char* argv[]) {
  using namespace zentab::test;
  QApplication application(argc, argv);
  SlowShare share(Argument(argc, argv, 1, 0));
  for (int delay = 2; delay < argc; ++delay) {
    share.TryCommands(static_cast<int>(Argument(argc, argv, delay, 0)));
  }
  share.TryStall();
  share.End();
  return share.Finish();
}
