#pragma once

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QListView>
#include <QMimeData>
#include <QPrinter>
#include <QTemporaryDir>
#include <QUrl>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "app/library_commands.h"
#include "app/settings.h"
#include "app/widgets/main_window.h"
#include "app/widgets/user_dialogs.h"
#include "editor/clipboard_text.h"
#include "support/failing_file_layer.h"
#include "support/simulated_modules.h"

namespace zentab::app {

/// Answers the window's questions and keeps what was asked.
class AnsweringDialogs : public UserDialogs {
 public:
  bool answer = true;
  QString file;
  int filesAsked = 0;
  std::optional<double> number;
  std::vector<double> offered;  // numbers, of a picture its dots or its width
  std::optional<AxisLimits> limits;
  std::optional<PictureSize> picture = PictureSize();
  std::vector<std::size_t> entries;
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
    offered.push_back(question.number);
    return number && question.accepts(*number) ? number : std::nullopt;
  }
  /// Gives `choices`, where it is not empty; keeps the offered answers.
  std::vector<std::size_t> choices;
  std::optional<std::vector<std::size_t>> Choose(const ChoiceQuestion& question) override {
    asked.push_back(question.title.toStdString());
    for (const Choice& choice : question.choices) {
      asked.push_back(choice.answers.at(choice.given).toStdString());
    }
    return choices.empty() ? std::nullopt : std::optional(choices);
  }
  std::optional<AxisLimits> AskLimits(const LimitsQuestion& question) override {
    asked.push_back(question.loadLabel.toStdString());
    return limits;
  }
  std::optional<PictureSize> AskPictureSize(const PictureSizeQuestion& question) override {
    asked.push_back(question.title.toStdString());
    const auto& [millimetres, dots] = question.size;
    offered.push_back(question.hasDots ? dots : millimetres.width());
    return picture;
  }
  QString ChooseTableFile() override { return ++filesAsked, file; }
  std::vector<std::size_t> ChooseEntries(const QString& title,
                                         const std::vector<std::string>&) override {
    asked.push_back(title.toStdString());
    return entries;
  }
  QString ChooseGraphFile() override { return ++filesAsked, file; }
  QString ChooseNewTableFile() override { return ++filesAsked, file; }
  void OpenFolder(const QString& folder) override { asked.push_back(folder.toStdString()); }
  bool OpenPage(const QString& page) override {
    asked.push_back(page.toStdString());
    return answer;
  }
  bool StartProgram(const QString& program, const QStringList& arguments) override {
    asked.push_back((QStringList(program) + arguments).join(' ').toStdString());
    return answer;
  }
  QString ChooseFileToRead(const QString&) override { return ++filesAsked, file; }
  QString ChooseTargetFile() override { return ++filesAsked, file; }
  QString ChooseFileToWrite(const WriteQuestion& question) override {
    asked.push_back(question.name.toStdString());
    return file;
  }
  /// What would be printed becomes the PDF file `printed`.
  QString printed;
  std::pair<int, int> pages;  // the first and the last one, all unless given
  bool ChoosePrinter(QPrinter& printer) override {
    printer.setFromTo(pages.first, pages.second);
    printer.setOutputFileName(printed);
    return answer;
  }
  void ShowPreview(QPrinter& printer, const PagePainter& paint) override {
    printer.setOutputFileName(printed);
    paint(printer);
  }
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
  std::map<std::string, std::string> places;  // of what was saved

  std::optional<std::string> Read(std::string_view application, std::string_view section,
                                  std::string_view key) const override {
    const auto found = values.find(std::string(key));
    const auto saved = places.find(std::string(key));
    const bool isElsewhere = saved != places.end() && saved->second != Place(application, section);
    return found == values.end() || isElsewhere ? std::nullopt : std::optional(found->second);
  }
  std::error_code Save(std::string_view application, std::string_view section,
                       const std::vector<platform::Setting>& settings) override {
    for (const platform::Setting& setting : settings) {
      values[setting.key] = setting.value;
      places[setting.key] = Place(application, section);
    }
    return {};
  }

 private:
  static std::string Place(std::string_view application, std::string_view section) {
    return std::string(application) + '/' + std::string(section);
  }
};

/// A main window on an installation folder with the simulated instruments, thrown away at the end.
class WindowFixture {
 public:
  static constexpr int kLookEvery = 10;  // milliseconds

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
    window = std::make_unique<MainWindow>(MainWindowParts{session, settings, "Zentab", store,
                                                          layer_, dialogs, executable,
                                                          recoveryFolder, kLookEvery});
    window->Load();
    for (const auto* const view : window->findChildren<QAbstractItemView*>()) {
      // Looks at the model whenever it changes, for as long as it lives.
      new QAbstractItemModelTester(
          view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal, view->model());
    }
    window->show();
  }

  /// Opens it anew with the shipped catalogue of a language, "" for English.
  void OpenIn(const QString& language) {
    const QString catalogue = QStringLiteral(CATALOGUES "/Zentab%1.txt").arg(language);
    QFile::remove(Path(QStringLiteral("Zentab.txt")));
    if (!QFile::copy(catalogue, Path(QStringLiteral("Zentab.txt")))) qFatal("no catalogue");
    window.reset();
    Open();
  }
  /// The points of the grid, one line each, loads and times apart by a tab.
  [[nodiscard]] QStringList Points() const {
    QString rows =
        QString::fromStdString(editor::BlockText(session.table.grid, {1, 1, editor::kLastRow, 2}));
    while (rows.endsWith('\t') || rows.endsWith('\r')) rows.chop(1);
    return rows.split('\r');
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
  /// Drags entries of the list to a place of a part of the window, where they are held, ...
  void HoldEntries(std::initializer_list<int> rows, QWidget& target, const QPoint& place) {
    const auto* const model = Find<QListView>("List1")->model();
    QModelIndexList chosen;
    for (const int row : rows) chosen += model->index(row, 0);
    held_.reset(model->mimeData(chosen));
    QDragEnterEvent enter(place, Qt::CopyAction, held_.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(&target, &enter);
    QDragMoveEvent over(place, Qt::CopyAction, held_.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(&target, &over);
  }
  /// ... and lets them go.
  void LetGo(QWidget& target, const QPoint& place) {
    QDropEvent drop(place, Qt::CopyAction, held_.get(), Qt::LeftButton, {});
    QCoreApplication::sendEvent(&target, &drop);
  }
  void DragEntries(std::initializer_list<int> rows, QWidget& target, const QPoint& place) {
    HoldEntries(rows, target, place);
    LetGo(target, place);
  }
  /// Whether the window takes what is dropped.
  [[nodiscard]] bool DropFiles(const QList<QUrl>& urls) const {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(window.get(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window.get(), &drop);
    return true;
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
  void Activate() const {
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get())) qFatal("the window stays inactive");
  }
  /// A time test with the current module's result of these lines; `measured` is its time, now
  /// unless given.
  void WriteTimeTest(const QByteArray& points, const QDateTime& measured = {}) const {
    Write("fo.txt", "HEADING.CURRENT.TIMETEST.TXT {Test}\r\n");
    QDir(Path(".")).mkpath("data/current");
    Write("data/current/result.txt", "Test\r\n" + points);
    QFile file(Path("data/current/result.txt"));
    if (measured.isValid() && !(file.open(QIODevice::ReadWrite) &&
                                file.setFileTime(measured, QFileDevice::FileModificationTime))) {
      qFatal("the file's time could not be set");
    }
  }
  /// Four timeouts, then a curve with a spike at every ninth point.
  static QByteArray SixtyPoints() {
    QByteArray points;
    for (int point = 1; point <= 60; ++point) {
      const int time = point < 5 ? 60000 : 90000 / point + (point % 9 == 0 ? 700 : 0);
      points += QByteArray::number(point) + '\t' + QByteArray::number(point / 10.0) + '\t' +
                QByteArray::number(time) + "\t\r\n";
    }
    return points;
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
  std::unique_ptr<QMimeData> held_;
  QTemporaryDir folder_;
  QTemporaryDir elsewhere_;
};

}  // namespace zentab::app
