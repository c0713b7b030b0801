#pragma once

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QDir>
#include <QFile>
#include <QListView>
#include <QTemporaryDir>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "app/library_commands.h"
#include "app/settings.h"
#include "app/widgets/main_window.h"
#include "app/widgets/user_dialogs.h"
#include "support/failing_file_layer.h"
#include "support/simulated_modules.h"

namespace zentab::app {

/// Answers the window's questions and keeps what was asked.
class AnsweringDialogs : public UserDialogs {
 public:
  bool answer = true;
  QString file;
  std::optional<double> number;
  std::vector<std::string> asked;
  std::function<void()> onError;
  std::function<void()> onConfirm;

  bool Confirm(const texts::MessageText& message) override {
    asked.push_back(message.text);
    if (onConfirm) onConfirm();
    return answer;
  }
  void Inform(const texts::MessageText& message) override { asked.push_back(message.text); }
  void ReportError(const texts::MessageText& message) override {
    asked.push_back(message.title + ": " + message.text);
    if (onError) onError();
  }
  /// Gives `number` where the question takes it for an answer.
  std::optional<double> AskNumber(const NumberQuestion& question) override {
    asked.push_back(question.title.toStdString());
    return number && question.accepts(*number) ? number : std::nullopt;
  }
  QString ChooseTableFile() override { return file; }
  QString ChooseGraphFile() override { return file; }
  QString ChooseTargetFile() override { return file; }
};

/// The names in a window's list.
inline QString NamesIn(const QWidget& window) {
  const auto* const model = window.findChild<QListView*>(QStringLiteral("List1"))->model();
  QStringList names;
  for (int row = 0; row < model->rowCount(); ++row) {
    names.append(model->index(row, 0).data().toString());
  }
  return names.join('|');
}

class MemoryStore : public platform::SettingsStore {
 public:
  std::map<std::string, std::string> values;

  std::optional<std::string> Read(std::string_view, std::string_view,
                                  std::string_view key) const override {
    const auto found = values.find(std::string(key));
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
  std::error_code Save(std::string_view, std::string_view,
                       const std::vector<platform::Setting>& settings) override {
    for (const platform::Setting& setting : settings) values[setting.key] = setting.value;
    return {};
  }
};

/// A main window on an installation folder with the simulated instruments, thrown away at the end.
class WindowFixture {
 public:
  /// `layer` serves in the place of `files`.
  explicit WindowFixture(const QByteArray& library, const std::string& separator = ".",
                         platform::FileLayer* layer = nullptr)
      : layer_(layer != nullptr ? *layer : files) {
    Write("relayTables.dat", library);
    test::InstallSimulators(folder_.path().toStdString());
    // Nothing may depend on where it is.
    QDir::setCurrent(elsewhere_.path());
    executable = Path("Zentab").toStdString();
    session.localeDecimalSeparator = separator;
    Open();
  }
  ~WindowFixture() {
    window.reset();
    QDir::setCurrent(QDir::tempPath());
    if (!QDir(elsewhere_.path()).isEmpty()) qFatal("files were left in the working folder");
  }
  WindowFixture(const WindowFixture&) = delete;
  WindowFixture& operator=(const WindowFixture&) = delete;

  void Open() {
    const Settings settings = LoadSettings(store, "Zentab", "Zentab");
    session.baseName = "Zentab";
    session.installFolder = folder_.path().toStdString();
    session.tablePath = settings.tableName;
    session.modes.absoluteValues = settings.absValues == "1";
    window = std::make_unique<MainWindow>(MainWindowParts{
        session, settings, "Zentab", store, layer_, dialogs, executable, recoveryFolder});
    window->Load();
    for (const auto* const view : window->findChildren<QAbstractItemView*>()) {
      // Looks at the model whenever it changes, for as long as it lives.
      new QAbstractItemModelTester(
          view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal, view->model());
    }
    window->show();
  }

  template <typename Control>
  [[nodiscard]] Control* Find(const char* name) const {
    return window->findChild<Control*>(QLatin1String(name));
  }
  void Click(const char* button) const { Find<QAbstractButton>(button)->click(); }
  void Select(int row) const {
    auto* const list = Find<QListView>("List1");
    list->setCurrentIndex(list->model()->index(row, 0));
  }
  [[nodiscard]] int SelectedRow() const {
    const QModelIndexList rows = Find<QListView>("List1")->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
  }
  [[nodiscard]] QString Path(const QString& name) const { return folder_.filePath(name); }
  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
      qFatal("a test file could not be written");
    }
  }
  [[nodiscard]] QByteArray Bytes(const QString& name = QStringLiteral("relayTables.dat")) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  Session session;
  MemoryStore store;
  AnsweringDialogs dialogs;
  test::FailingFileLayer files;
  std::filesystem::path recoveryFolder;  // none unless a test gives one before it opens
  std::filesystem::path executable;      // in the folder, with the default catalogue beside it
  std::unique_ptr<MainWindow> window;

 private:
  platform::FileLayer& layer_;
  QTemporaryDir folder_;
  QTemporaryDir elsewhere_;
};

}  // namespace zentab::app
