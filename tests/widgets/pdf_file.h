#pragma once

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <vector>

#include "widgets/picture.h"

namespace zentab::app {

/// Wine starts programs of the system that it runs on, and cannot tell when they end.
#ifdef Q_OS_WIN
inline constexpr bool kReadsPdf = false;
#else
inline constexpr bool kReadsPdf = true;
#endif

/// What one of Poppler's programs says of a PDF file.
inline QString Said(const char* program, const QStringList& options, const QString& pdf) {
  QProcess process;
  process.setStandardInputFile(pdf);
  process.start(QStringLiteral(POPPLER "/") + QLatin1String(program), options);
  return process.waitForFinished() ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

inline QString TextOf(const QString& pdf) {
  return Said("pdftotext", {QStringLiteral("-layout"), QStringLiteral("-"), QStringLiteral("-")},
              pdf);
}

/// A page, counted from 1, looks as in its picture but for when it was written.
inline bool IsPageAsInPictures(const QString& pdf, const QString& name, int page = 1) {
  if (!kReadsPdf) return true;
  const QString number = QString::number(page);
  QProcess process;
  process.start(QStringLiteral(POPPLER "/pdftoppm"),
                {"-png", "-r", "72", "-f", number, "-l", number, pdf});
  QImage picture;
  if (!process.waitForFinished() || !picture.loadFromData(process.readAllStandardOutput())) {
    return false;
  }
  static const QRegularExpression times(
      "xMin=\"(.+)\" yMin=\"(.+)\" xMax=\"(.+)\" yMax=\"(.+)\">[\\d:-]{5,}<");
  QPainter painter(&picture);
  const QString words = Said("pdftotext", {"-bbox", "-f", number, "-l", number, "-", "-"}, pdf);
  for (const auto& match : times.globalMatch(words)) {
    const auto at = [&match](int group) { return match.captured(group).toDouble(); };
    painter.fillRect(QRectF(QPointF(at(1), at(2)), QPointF(at(3), at(4))), Qt::gray);
  }
  painter.end();
  return IsAsInPictures(picture, name);
}

/// Every word has room of its own within the margins of its page.
inline void CheckWords(const QString& pdf) {
  if (!kReadsPdf) return;
  const QString text =
      Said("pdftotext", {QStringLiteral("-bbox"), QStringLiteral("-"), QStringLiteral("-")}, pdf);
  static const QRegularExpression numbers(QStringLiteral("\"([0-9.]+)\""));
  constexpr double kMargin = 25.0;  // typographic points
  constexpr double kTouch = 1.0;
  QRectF page;
  std::vector<QRectF> words;
  for (const QString& line : text.split('\n')) {
    QList<double> sizes;
    for (const auto& match : numbers.globalMatch(line)) sizes += match.captured(1).toDouble();
    if (line.contains(QLatin1String("<page "))) {
      QCOMPARE(sizes.size(), 2);
      page = QRectF(0, 0, sizes[0], sizes[1]).adjusted(kMargin, kMargin, -kMargin, -kMargin);
      words.clear();
    } else if (line.contains(QLatin1String("<word "))) {
      QCOMPARE(sizes.size(), 4);
      const QRectF word(QPointF(sizes[0], sizes[1]), QPointF(sizes[2], sizes[3]));
      QVERIFY2(page.contains(word), qPrintable(line));
      const QRectF core = word.adjusted(kTouch, word.height() / 4, -kTouch, -word.height() / 4);
      for (const QRectF& other : words) QVERIFY2(!core.intersects(other), qPrintable(line));
      words.push_back(core);
    }
  }
  QVERIFY(!words.empty());
}

/// All fonts are in the file.
inline void CheckFonts(const QString& pdf) {
  if (!kReadsPdf) return;
  const QStringList fonts = Said("pdffonts", {QStringLiteral("-")}, pdf).split('\n').mid(2);
  for (const QString& font : fonts) {
    QVERIFY2(font.isEmpty() || font.contains(QLatin1String("yes")), qPrintable(font));
  }
}

}  // namespace zentab::app
