#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTimer>
#include <cstdlib>

#include "app/settings.h"
#include "app/start_up.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/main_window.h"
#include "app/widgets/qt_user_dialogs.h"
#include "platform/file_size_limit.h"
#include "platform/file_thread.h"
#include "platform/paths.h"

namespace {

using namespace zentab;

constexpr const char* kTitle = "Zentab";

// A picture is drawn without anyone who could answer.
class NobodyToAsk final : public app::UserDialogs {
 public:
  bool Confirm(const texts::MessageText&) override { return false; }
  void Inform(const texts::MessageText&) override {}
  void ReportError(const texts::MessageText&) override {}
  std::optional<double> AskNumber(const app::NumberQuestion&) override { return {}; }
  std::optional<app::AxisLimits> AskLimits(const app::LimitsQuestion&) override { return {}; }
  QString ChooseTableFile() override { return {}; }
  std::vector<std::size_t> ChooseEntries(const QString&, const std::vector<std::string>&) override {
    return {};
  }
  QString ChooseTargetFile() override { return {}; }
  QString ChooseGraphFile() override { return {}; }
};

// Renders the window with its first entry read, for places without a display.
bool SaveScreenshot(app::MainWindow& window, const QString& file) {
  constexpr QSize kPictureSize(1240, 820);
  window.resize(kPictureSize);
  window.findChild<app::LibraryController*>()->Read();
  QCoreApplication::processEvents();
  return window.grab().save(file);
}

int Run(int argc, char* argv[]) {
  platform::ReportFileSizeLimit();
  QApplication application(argc, argv);
  QCommandLineParser arguments;
  const QCommandLineOption screenshot(
      QStringLiteral("screenshot"),
      QStringLiteral("Draw the window with the first entry into a PNG file and end."),
      QStringLiteral("file"));
  arguments.addHelpOption();
  arguments.addOption(screenshot);
  arguments.process(application);
  const QString picture = arguments.isSet(screenshot)
                              ? QFileInfo(arguments.value(screenshot)).absoluteFilePath()
                              : QString();

  const std::filesystem::path executable = platform::ExecutablePath();
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
