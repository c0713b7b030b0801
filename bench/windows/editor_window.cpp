#include "app/start_up.h"
#include "app/widgets/main_window.h"
#include "app/widgets/qt_user_dialogs.h"
#include "end_after_paint.h"
#include "platform/paths.h"

int main(int argc, char* argv[]) {
  using namespace zentab;
  QApplication application(argc, argv);
  const auto store = platform::UserSettingsStore();
  app::Settings settings = app::LoadSettings(*store, "Zentab", "Zentab");
  app::Session session =
      app::StartSession(settings, *platform::SystemRegistry(), platform::ExecutablePath());
  app::QtUserDialogs dialogs(session);
  app::MainWindow window({session, std::move(settings), "Zentab", *store, platform::SystemFiles(),
                          dialogs, platform::ExecutablePath()});
  [[maybe_unused]] const EndAfterPaint end(window);
  window.Load();
  window.show();
  return QApplication::exec();
}
