#include "app/widgets/symbolic_icon.h"

#include <QApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>

namespace zentab::app {
namespace {

// Draws anew each time: the palette may be another one.
class SymbolicEngine : public QIconEngine {
 public:
  explicit SymbolicEngine(QImage mask) : mask_(std::move(mask)) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
    const qreal scale = painter->device()->devicePixelRatio();
    painter->drawPixmap(place, pixmap(place.size() * scale, mode, state));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    QImage picture = mask_.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), QApplication::palette().color(group, QPalette::ButtonText));
    painter.end();
    return QPixmap::fromImage(picture);
  }

  [[nodiscard]] QIconEngine* clone() const override { return new SymbolicEngine(*this); }

 private:
  QImage mask_;
};

}  // namespace

QIcon SymbolicIcon(const QString& name) {
  QImage mask(QStringLiteral(":/icons/%1.png").arg(name));
  if (mask.isNull()) return {};
  return QIcon(
      new SymbolicEngine(std::move(mask).convertToFormat(QImage::Format_ARGB32_Premultiplied)));
}

}  // namespace zentab::app
