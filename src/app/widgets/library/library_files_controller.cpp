#include "app/widgets/library/library_files_controller.h"

#include <QAction>
#include <QDir>
#include <QMenu>

#include "app/library_commands.h"
#include "app/library_files.h"
#include "app/session_texts.h"
#include "app/widgets/exchange/exchange_controller.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/status_line.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

constexpr const char* kRecentFiles = "RecentFiles";

struct FileCommandRow {
  const char* name;
  const char* caption;
  void (LibraryFilesController::*command)();
};
constexpr FileCommandRow kFileCommands[] = {
    {"m_newlib", "New &library…", &LibraryFilesController::NewLibrary},
    {"m_savecopy", "Save a &copy…", &LibraryFilesController::SaveCopy},
    {"m_folder", "Open the &folder", &LibraryFilesController::OpenFolder},
    {"m_backup", "Entries of the &backup…", &LibraryFilesController::ShowBackup},
};

QString CopiedText(const Session& session, const QString& path) {
  const std::string place = QDir::toNativeSeparators(path).toStdString();
  return QString::fromStdString(Expanded(session, session.texts.library.copied, {place}));
}

}  // namespace

LibraryFilesController::LibraryFilesController(Parts parts, QObject* parent)
    : QObject(parent), parts_(std::move(parts)) {
  connect(&parts_.library, &LibraryController::TableFileChosen, this,
          &LibraryFilesController::Remember);
  connect(&parts_.exchange, &ExchangeController::EntriesAdded, &parts_.library,
          &LibraryController::ShowAddedEntries);
}

void LibraryFilesController::AddTo(QMenu& menu) {
  for (const FileCommandRow& row : kFileCommands) {
    QAction* const action = menu.addAction(QString::fromUtf8(row.caption));
    action->setObjectName(QLatin1String(row.name));
    connect(action, &QAction::triggered, this, row.command);
    if (row.command != &LibraryFilesController::NewLibrary) continue;
    recent_ = menu.addMenu(QStringLiteral("&Recently used"));
    recent_->setObjectName(QStringLiteral("m_recent"));
    connect(recent_, &QMenu::aboutToShow, this, &LibraryFilesController::FillRecent);
  }
}

void LibraryFilesController::FillRecent() {
  recent_->clear();
  const std::vector<std::string> paths = RecentFilesIn(parts_.forms.Last(kRecentFiles));
  for (std::size_t at = 0; at < paths.size(); ++at) {
    QString name = QString::fromStdString(paths[at]);
    QAction* const action = recent_->addAction(
        QStringLiteral("&%1  %2").arg(at + 1).arg(QString(name).replace('&', QLatin1String("&&"))));
    connect(action, &QAction::triggered, this, [this, name] { Open(name); });
  }
  if (paths.empty()) {
    recent_->addAction(QString::fromStdString(parts_.session.texts.library.noRecent))
        ->setEnabled(false);
  }
}

void LibraryFilesController::Remember() const {
  const FormValues kept = parts_.forms.Last(kRecentFiles);
  parts_.forms.Keep(kRecentFiles, WithRecentFile(kept, parts_.session.tablePath));
}

void LibraryFilesController::Open(const QString& path) { parts_.library.OpenTable(path); }

void LibraryFilesController::OpenNamed(const QString& path) {
  std::optional<platform::FileStamp> stamp;
  std::error_code error = parts_.files.StampOf(platform::ToPath(path.toStdString()), stamp);
  if (!error && !stamp) error = std::make_error_code(std::errc::no_such_file_or_directory);
  if (!error) return Open(path);
  const texts::ProgramTexts& texts = parts_.session.texts.program;
  const std::string what = QDir::toNativeSeparators(path).toStdString() + ": " + texts.listFailed;
  Q_EMIT Told(FailureText(texts, what, error));
}

void LibraryFilesController::NewLibrary() {
  if (parts_.files.IsAtWork()) return;
  const QString path = parts_.dialogs.ChooseNewTableFile();
  if (path.isEmpty() || parts_.files.IsAtWork()) return;
  Q_EMIT CommandBegun();
  const texts::CatalogueTexts& texts = parts_.session.texts;
  std::error_code error;
  {
    const ResponsiveFiles::Work work(parts_.files);
    error = CreateTableFile(parts_.files, platform::ToPath(path.toStdString()));
  }
  if (error) {
    Q_EMIT Told(FailureText(texts.program, texts.library.notCreated, error));
  } else {
    parts_.library.OpenTable(path);
  }
}

void LibraryFilesController::SaveCopy() {
  if (parts_.files.IsAtWork()) return;
  const QString path = parts_.dialogs.ChooseNewTableFile();
  if (path.isEmpty() || parts_.files.IsAtWork()) return;
  Q_EMIT CommandBegun();
  const Session& session = parts_.session;
  const ResponsiveFiles::Work work(parts_.files);
  const std::error_code error =
      CopyTableFile(parts_.files, ActiveTableFile(parts_.files, PlaceOf(session)),
                    platform::ToPath(path.toStdString()));
  Q_EMIT Told(error ? FailureText(session.texts.program, session.texts.library.notCopied, error)
                    : CopiedText(session, path));
}

void LibraryFilesController::OpenFolder() {
  if (parts_.files.IsAtWork()) return;
  Q_EMIT CommandBegun();
  const std::filesystem::path file = ActiveTableFile(parts_.files, PlaceOf(parts_.session));
  parts_.dialogs.OpenFolder(QString::fromStdString(platform::ToText(file.parent_path())));
}

void LibraryFilesController::ShowBackup() {
  if (parts_.files.IsAtWork()) return;
  Q_EMIT CommandBegun();
  std::filesystem::path backup = ActiveTableFile(parts_.files, PlaceOf(parts_.session));
  backup += ".bak";
  std::optional<platform::FileStamp> stamp;
  if (parts_.files.StampOf(backup, stamp) || !stamp) {
    Q_EMIT Told(QString::fromStdString(parts_.session.texts.library.noBackup));
    return;
  }
  parts_.exchange.ImportFrom(QString::fromStdString(platform::ToText(backup)));
}

}  // namespace zentab::app
