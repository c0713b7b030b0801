// A library of 1,000,000 entries in the editor's window: for each command how long it takes, and
// the longest time for which the window does not get round to its events, beside the limit of a
// fifth of a second; at the end the most memory that was needed, beside twice the file.

#include <sys/resource.h>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "app/widgets/main_window.h"
#include "bench/library_file.h"
#include "bench/speed_line.h"
#include "platform/paths.h"

namespace {

using namespace zentab;

constexpr std::size_t kMillion = 1'000'000;

// Agrees to everything; the commands ask before they do something.
class Agreeing final : public app::UserDialogs {
 public:
  QString file;

  bool Confirm(const texts::MessageText&) override { return true; }
  void Inform(const texts::MessageText&) override {}
  void ReportError(const texts::MessageText&) override {}
  std::optional<double> AskNumber(const app::NumberQuestion&) override { return {}; }
  std::optional<std::vector<std::size_t>> Choose(const app::ChoiceQuestion&) override { return {}; }
  std::optional<app::AxisLimits> AskLimits(const app::LimitsQuestion&) override { return {}; }
  std::optional<app::PictureSize> AskPictureSize(const app::PictureSizeQuestion&) override {
    return {};
  }
  QString ChooseTableFile() override { return file; }
  std::vector<std::size_t> ChooseEntries(const QString&, const std::vector<std::string>&) override {
    return {};
  }
  QString ChooseFileToRead(const QString&) override { return {}; }
  QString ChooseTargetFile() override { return file; }
  QString ChooseFileToWrite(const app::WriteQuestion&) override { return {}; }
  bool ChoosePrinter(QPrinter&) override { return false; }
  void ShowPreview(QPrinter&, const app::PagePainter&) override {}
  QString ChooseNewTableFile() override { return {}; }
  void OpenFolder(const QString&) override {}
  bool OpenPage(const QString&) override { return false; }
  bool StartProgram(const QString&, const QStringList&) override { return false; }
  QString ChooseGraphFile() override { return {}; }
};

class NoSettings final : public platform::SettingsStore {
 public:
  std::optional<std::string> Read(std::string_view, std::string_view,
                                  std::string_view) const override {
    return std::nullopt;
  }
  std::error_code Save(std::string_view, std::string_view,
                       const std::vector<platform::Setting>&) override {
    return {};
  }
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

void Idle() {
  QElapsedTimer idle;
  idle.start();
  while (idle.elapsed() < 60) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

void Measure(const char* what, const std::function<void()>& work) {
  static Heartbeat heartbeat;
  Idle();
  heartbeat.Start();
  QElapsedTimer whole;
  whole.start();
  work();
  // Whatever has to be drawn afterwards.
  QCoreApplication::processEvents();
  const qint64 taken = whole.elapsed();
  Idle();
  const qint64 longest = heartbeat.Longest();
  std::printf("%-42s %6lld ms   longest pause %4lld ms of 200%s\n", what,
              static_cast<long long>(taken), static_cast<long long>(longest),
              longest > 200 ? "   TOO LONG" : "");
  bench::PrintSpeedLine("A million entries, longest pause", "ms", static_cast<double>(longest),
                        bench::Aim::Most, 200.0);
}

double PeakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1e3;
}

// Waits until the list shows that many entries.
void WaitFor(const app::Session& session, std::size_t entries) {
  while (session.listing.names.size() != entries) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const bench::Library library(kMillion);
  const auto bytes = std::filesystem::file_size(library.Path());
  app::Session session;
  session.localeDecimalSeparator = ".";
  session.installFolder = library.Folder();
  session.tablePath = "none.dat";
  Agreeing dialogs;
  dialogs.file = QString::fromStdString(library.Path());
  NoSettings store;
  app::MainWindow window(
      {session, {}, "Zentab", store, platform::SystemFiles(), dialogs, platform::ExecutablePath()});
  window.Load();
  window.show();
  Idle();

  const auto click = [&window](const char* button) {
    window.findChild<QAbstractButton*>(QLatin1String(button))->click();
  };
  auto* const list = window.findChild<QListView*>(QStringLiteral("List1"));
  auto* const filter = window.findChild<QLineEdit*>(QStringLiteral("TextFilter"));
  auto* const name = window.findChild<QLineEdit*>(QStringLiteral("Text1"));
  const auto select = [list](int row) { list->setCurrentIndex(list->model()->index(row, 0)); };

  std::printf("%zu entries, %.0f MB\n", kMillion, static_cast<double>(bytes) / 1e6);
  Measure("set active table: list all", [&] { window.findChild<QAction*>("m_act")->trigger(); });
  Measure("go to the last entry", [&] { select(list->model()->rowCount() - 1); });
  Measure("read it", [&] { click("Command1"); });
  Measure("filter: first letter, all match", [&] { filter->setText("f"); });
  Measure("filter: 11 names match", [&] { filter->setText("feeder 99999"); });
  Measure("filter: a letter beyond ASCII", [&] { filter->setText(QStringLiteral("ü")); });
  Measure("filter: all again", [&] { filter->clear(); });
  Measure("update an entry, with the backup", [&] { click("Command4"); });
  Measure("update an entry", [&] { click("Command4"); });
  Measure("add an entry", [&] {
    click("Command3");
    name->setText(QStringLiteral("a new name"));
    Q_EMIT name->returnPressed();
  });
  Measure("remove an entry", [&] { click("Command2"); });
  Measure("list again behind another program", [&] {
    std::ofstream(library.Path(), std::ios::app | std::ios::binary) << "{\"theirs\"\t 000}\r\n";
    WaitFor(session, kMillion + 1);
  });
  bench::Require(session.listing.names.size() == kMillion + 1);
  const double peak = PeakMegabytes();
  const double times = peak / (static_cast<double>(bytes) / 1e6);
  std::printf("memory %.0f MB, %.2f times the file (limit 2)\n", peak, times);
  bench::PrintSpeedLine("A million entries, memory", "x file", times, bench::Aim::Most, 2.0);
  return 0;
}
