#include "app/widgets/status_line.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>

#include "app/session_texts.h"

namespace zentab::app {
namespace {

constexpr int kFailureShown = 15000;  // milliseconds
constexpr int kLongestPath = 70;

// The end of a long path tells the file; its beginning is the part one knows.
QString Shortened(const QString& path) {
  return path.size() <= kLongestPath ? path : QChar(0x2026) + path.right(kLongestPath);
}

QLabel* Cell(const char* name, QStatusBar* bar) {
  auto* const label = new QLabel(bar);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setContentsMargins(6, 0, 6, 0);
  return label;
}

}  // namespace

QString FailureText(const std::string& what, std::error_code error) {
  return QStringLiteral("%1: %2").arg(QString::fromStdString(what),
                                      QString::fromLocal8Bit(error.message().c_str()));
}

StatusLine::StatusLine(const Session& session, QStatusBar* bar)
    : QObject(bar),
      session_(session),
      bar_(bar),
      file_(Cell("StatusFile", bar)),
      count_(Cell("StatusCount", bar)),
      modified_(Cell("StatusModified", bar)) {
  bar->addWidget(file_, 1);
  bar->addPermanentWidget(modified_);
  bar->addPermanentWidget(count_);
}

void StatusLine::Refresh() {
  const QString path = QDir::toNativeSeparators(QString::fromStdString(session_.tablePath));
  file_->setText(Shortened(path));
  file_->setToolTip(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()));
  const std::string count = std::to_string(session_.listing.names.size());
  const texts::ProgramTexts& texts = session_.texts.program;
  const std::string& entries = count == "1" ? texts.oneEntry : texts.entries;
  count_->setText(QString::fromStdString(Expanded(session_, entries, {count})));
  RefreshModified();
}

void StatusLine::RefreshModified() {
  const texts::ProgramTexts& texts = session_.texts.program;
  modified_->setText(session_.table.tableModified
                         ? QStringLiteral("● ") + QString::fromStdString(texts.modified)
                         : QString());
}

void StatusLine::ShowFailure(const QString& text) { bar_->showMessage(text, kFailureShown); }

}  // namespace zentab::app
