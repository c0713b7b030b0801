#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "app/demo_copy.h"
#include "app/settings.h"
#include "app/start_up.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/library/library_files_controller.h"
#include "app/widgets/main_window.h"
#include "app/widgets/qt_user_dialogs.h"
#include "app/widgets/report/command_line.h"
#include "platform/console_streams.h"
#include "platform/desktop.h"
#include "platform/file_size_limit.h"
#include "platform/file_thread.h"
#include "platform/paths.h"

namespace {

using namespace zentab;

constexpr const char* kTitle = "Zentab";
constexpr int kWrongUsage = 2;

// A picture is drawn without anyone who could answer.
class NobodyToAsk final : public app::UserDialogs {
 public:
  bool Confirm(const texts::MessageText&) override { return false; }
  void Inform(const texts::MessageText&) override {}
  void ReportError(const texts::MessageText&) override {}
  std::optional<double> AskNumber(const app::NumberQuestion&) override { return {}; }
  std::optional<std::vector<std::size_t>> Choose(const app::ChoiceQuestion&) override { return {}; }
  std::optional<app::AxisLimits> AskLimits(const app::LimitsQuestion&) override { return {}; }
  std::optional<app::PictureSize> AskPictureSize(const app::PictureSizeQuestion&) override {
    return {};
  }
  QString ChooseTableFile() override { return {}; }
  std::vector<std::size_t> ChooseEntries(const QString&, const std::vector<std::string>&) override {
    return {};
  }
  QString ChooseFileToRead(const QString&) override { return {}; }
  QString ChooseTargetFile() override { return {}; }
  QString ChooseNewTableFile() override { return {}; }
  void OpenFolder(const QString&) override {}
  bool OpenPage(const QString&) override { return false; }
  bool StartProgram(const QString&, const QStringList&) override { return false; }
  QString ChooseGraphFile() override { return {}; }
  QString ChooseFileToWrite(const app::WriteQuestion&) override { return {}; }
  bool ChoosePrinter(QPrinter&) override { return false; }
  void ShowPreview(QPrinter&, const app::PagePainter&) override {}
};

// Renders the window with its first entry read, for places without a display.
bool SaveScreenshot(app::MainWindow& window, const QString& file) {
  constexpr QSize kPictureSize(1240, 820);
  window.resize(kPictureSize);
  window.findChild<app::LibraryController*>()->Read();
  QCoreApplication::processEvents();
  return window.grab().save(file);
}

// --report and --chart: whatever display there is stays out of it.
int RunWithoutWindow(int argc, char* argv[], const std::vector<std::string>& arguments) {
  platform::UsePlainStreams();
  qputenv("QT_QPA_PLATFORM", platform::DisplayWithoutWindows());
  // What a desktop lacks is nothing to a batch.
  qInstallMessageHandler([](QtMsgType kind, const QMessageLogContext&, const QString& text) {
    if (kind == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
  });
  const QApplication application(argc, argv);
  return app::RunWindowless(arguments);
}

struct Arguments {
  QString picture;
  QString table;
  bool isDemo = false;
};

// Nothing where there are too many.
std::optional<Arguments> ReadArguments(const QApplication& application) {
  QCommandLineParser parser;
  const QCommandLineOption screenshot(
      QStringLiteral("screenshot"),
      QStringLiteral("Draw the window with the first entry into a PNG file and end."),
      QStringLiteral("file"));
  const QCommandLineOption demo(
      QStringLiteral("demo"),
      QStringLiteral("Work on a fresh copy of the demo installation, with simulated instruments."));
  parser.setApplicationDescription(QStringLiteral(
      "Relay curve tables. Without a window: --report FILE ENTRY... -o report.pdf and "
      "--chart FILE ENTRY -o chart.svg, which --report --help explains."));
  parser.addHelpOption();
  parser.addOptions({screenshot, demo});
  parser.addPositionalArgument(QStringLiteral("FILE"),
                               QStringLiteral("Table file to begin with; the one used last "
                                              "unless given."),
                               QStringLiteral("[FILE]"));
  parser.process(application);
  const auto whole = [](const QString& path) {
    return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
  };
  const QStringList named = parser.positionalArguments();
  if (named.size() > 1) return std::nullopt;
  return Arguments{whole(parser.value(screenshot)), whole(named.value(0)), parser.isSet(demo)};
}

// The copy stays behind, with what was tried on it; the system clears its temporary files away.
bool BeginDemo(const std::filesystem::path& executable) {
  QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/zentab-demo-XXXXXX"));
  folder.setAutoRemove(false);
  const std::error_code error =
      app::CopyDemo(executable, platform::ToPath(folder.path().toStdString()));
  if (error) {
    std::fprintf(stderr, "Zentab: the demo installation cannot be copied: %s\n",
                 error.message().c_str());
    return false;
  }
  std::printf("The demo installation is %s/installation\n", qPrintable(folder.path()));
  qputenv("ZENTAB_REGISTRY_DIR", QFile::encodeName(folder.filePath(QStringLiteral("registry"))));
  qputenv("ZENTAB_SETTINGS_DIR", QFile::encodeName(folder.filePath(QStringLiteral("settings"))));
  return true;
}

int Run(int argc, char* argv[]) {
  platform::ReportFileSizeLimit();
  const std::vector<std::string> given = platform::ProgramArguments(argc, argv);
  if (app::IsWindowless(given)) return RunWithoutWindow(argc, argv, given);
  const char* const display = platform::DisplayForWindows();
  if (display != nullptr && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", display);
  }
  const QApplication application(argc, argv);
  const std::optional<Arguments> arguments = ReadArguments(application);
  if (!arguments) {
    std::fputs("Zentab: one table file at most\n", stderr);
    return kWrongUsage;
  }
  const auto& [picture, table, isDemo] = *arguments;
  const std::filesystem::path executable = platform::ExecutablePath();
  if (isDemo && !BeginDemo(executable)) return 1;
  const auto store = platform::UserSettingsStore();
  app::Settings settings = app::LoadSettings(*store, platform::BaseName(executable), kTitle);
  app::Session session = app::StartSession(settings, *platform::SystemRegistry(), executable);
  app::QtUserDialogs dialogs(session);
  NobodyToAsk nobody;
  app::UserDialogs& asked = picture.isEmpty() ? static_cast<app::UserDialogs&>(dialogs) : nobody;
  app::MainWindow window(
      {session, std::move(settings), kTitle, *store, platform::SystemFiles(), asked, executable,
       picture.isEmpty() ? platform::UserDataFolder() : std::filesystem::path()});
  dialogs.SetParent(&window);
  window.Load();
  if (!table.isEmpty()) window.findChild<app::LibraryFilesController*>()->OpenNamed(table);
  window.show();
  if (!picture.isEmpty()) return SaveScreenshot(window, picture) ? 0 : 1;
  window.ListenForEnd();
  QTimer::singleShot(0, &window, &app::MainWindow::OfferRecovery);
  return QApplication::exec();
}

}  // namespace

int main(int argc, char* argv[]) {
  const int result = Run(argc, argv);
  // A call that hangs may still use what the end of the program would destroy.
  if (platform::FileThread::HasLeftCalls()) std::_Exit(result);
  return result;
}
