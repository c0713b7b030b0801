#pragma once

#include <QApplication>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QWidget>
#include <cstdlib>
#include <cstring>

namespace zentab::app {

/// The smallest part of two pictures that holds all in which they differ, all of the second one
/// where it has another size. A part that is drawn alone may have its antialiased edges a shade
/// off.
inline QRect DifferenceOf(const QImage& one, const QImage& other) {
  if (one.size() != other.size()) return other.rect();
  const auto areAlike = [](QRgb a, QRgb b) {
    constexpr int kShade = 26;
    return std::abs(qRed(a) - qRed(b)) < kShade && std::abs(qGreen(a) - qGreen(b)) < kShade &&
           std::abs(qBlue(a) - qBlue(b)) < kShade;
  };
  const QImage first = one.convertToFormat(QImage::Format_RGB32);
  const QImage second = other.convertToFormat(QImage::Format_RGB32);
  const int width = second.width();
  QRect difference;
  for (int y = 0; y < second.height(); ++y) {
    const auto* const a = reinterpret_cast<const QRgb*>(first.constScanLine(y));
    const auto* const b = reinterpret_cast<const QRgb*>(second.constScanLine(y));
    if (std::memcmp(a, b, static_cast<std::size_t>(width) * sizeof *a) == 0) continue;
    for (int x = 0; x < width; ++x) {
      if (a[x] != b[x] && !areAlike(a[x], b[x])) difference |= QRect(x, y, 1, 1);
    }
  }
  return difference;
}

/// A window's picture, without what names the folders of this run.
inline QImage PictureOf(QWidget& window) {
  static const QRegularExpression folder(QStringLiteral("(^|\\s)/\\w"));
  QImage picture = window.grab().toImage();
  QPainter painter(&picture);
  for (auto* const control : window.findChildren<QWidget*>()) {
    const QString text = control->property("text").toString();
    if (control->isVisible() && text.contains(folder)) {
      painter.fillRect(QRect(control->mapTo(&window, QPoint()), control->size()), Qt::gray);
    }
  }
  return picture;
}

/// Where Debian 12 draws, with its fonts and Qt's own style: the pictures were taken there.
inline bool IsDrawnAsInPictures() {
  return QLatin1String(qVersion()).startsWith(QLatin1String("6.4.")) &&
         QGuiApplication::platformName() == QLatin1String("offscreen") &&
         QFontInfo(QApplication::font()).family() == QLatin1String("DejaVu Sans");
}

/// The folder that the pictures go into, to be looked at and put into tests/data/pictures.
inline QString TakenInto() { return qEnvironmentVariable("ZENTAB_TAKE_PICTURES"); }
inline bool IsTakingPictures() { return !TakenInto().isEmpty(); }

/// Whether a picture is the one of that name, or nothing is shown and there is none; one that is
/// taken always is.
inline bool IsAsInPictures(const QImage& shown, const QString& name) {
  const QString file = '/' + name + QStringLiteral(".png");
  if (IsTakingPictures()) {
    return shown.isNull() ||
           shown.convertToFormat(QImage::Format_RGB32).save(TakenInto() + file, "PNG", 0);
  }
  if (!IsDrawnAsInPictures()) return true;
  const QImage picture(QStringLiteral(PICTURES) + file);
  return picture.size() == shown.size() && DifferenceOf(picture, shown).isEmpty();
}

}  // namespace zentab::app
