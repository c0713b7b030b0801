#include "app/widgets/status_line.h"

#include <QDir>
#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

#include "app/session_texts.h"
#include "app/widgets/files/held_input.h"
#include "platform/paths.h"

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
  label->setContentsMargins(6, 0, 6, 0);
  return label;
}

}  // namespace

QString FailureText(const texts::ProgramTexts& texts, const std::string& what,
                    std::error_code error) {
  return QStringLiteral("%1: %2").arg(QString::fromStdString(what),
                                      QString::fromLocal8Bit(ReasonText(texts, error).c_str()));
}

StatusLine::StatusLine(const Session& session, QStatusBar* bar)
    : QObject(bar),
      session_(session),
      bar_(bar),
      file_(Cell("StatusFile", bar)),
      count_(Cell("StatusCount", bar)),
      modified_(Cell("StatusModified", bar)),
      waiting_(Cell("StatusWaiting", bar)),
      giveUp_(new QToolButton(bar)) {
  giveUp_->setObjectName(QLatin1String(HeldInput::kGiveUpButton));
  connect(giveUp_, &QToolButton::clicked, this, &StatusLine::GivenUp);
  bar->addWidget(file_, 1);
  bar->addPermanentWidget(waiting_);
  bar->addPermanentWidget(giveUp_);
  HideWaiting();
  bar->addPermanentWidget(modified_);
  bar->addPermanentWidget(count_);
}

void StatusLine::Refresh() {
  const QString path = QDir::toNativeSeparators(QString::fromStdString(session_.tablePath));
  file_->setText(Shortened(path));
  // An absolute path stays as it is.
  const std::filesystem::path full =
      platform::ToPath(session_.installFolder) / platform::ToPath(session_.tablePath);
  file_->setToolTip(QDir::toNativeSeparators(QString::fromStdString(platform::ToText(full))));
  const std::size_t count = session_.listing.names.size();
  const texts::ProgramTexts& texts = session_.texts.program;
  const std::string& entries = texts::ForCount(count, texts.oneEntry, texts.entries);
  count_->setText(QString::fromStdString(Expanded(session_, entries, {std::to_string(count)})));
  RefreshModified();
}

void StatusLine::RefreshModified() {
  const texts::ProgramTexts& texts = session_.texts.program;
  modified_->setText(session_.table.tableModified
                         ? QStringLiteral("● ") + QString::fromStdString(texts.modified)
                         : QString());
  Q_EMIT Refreshed();
}

void StatusLine::Clear() { bar_->clearMessage(); }

void StatusLine::ShowWaiting(ResponsiveFiles::WaitsFor reason) {
  const texts::ProgramTexts& texts = session_.texts.program;
  const bool isWriter = reason == ResponsiveFiles::WaitsFor::Writer;
  waiting_->setText(QString::fromStdString(isWriter ? texts.waitsForWriter : texts.waitsForFile));
  giveUp_->setText(QString::fromStdString(texts.giveUp));
  giveUp_->setAccessibleName(giveUp_->text());
  giveUp_->setAccessibleDescription(waiting_->text());
  waiting_->show();
  giveUp_->show();
}

void StatusLine::HideWaiting() {
  waiting_->hide();
  giveUp_->hide();
}

void StatusLine::ShowFailure(const QString& text) { bar_->showMessage(text, kFailureShown); }

}  // namespace zentab::app
