#pragma once

#include <QProcess>
#include <QStringList>

namespace zentab::app {

/// What the command-line companion prints, without the remark behind it.
[[nodiscard]] inline QStringList Printed(const QStringList& arguments, QString* remark = nullptr) {
  QProcess process;
  process.start(QStringLiteral(COMPANION), arguments);
  if (!process.waitForFinished()) qFatal("the companion does not end");
  QStringList lines =
      QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
  if (!lines.isEmpty() && lines.last().startsWith('#')) {
    const QString last = lines.takeLast();
    if (remark != nullptr) *remark = last.section('=', 1);
  }
  return lines;
}

}  // namespace zentab::app
