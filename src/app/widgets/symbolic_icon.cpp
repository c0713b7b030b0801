#include "app/widgets/symbolic_icon.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// The pictures lie in a static library: without this call nobody would ask for them.
static void TakeIcons() { Q_INIT_RESOURCE(icons); }

namespace zentab::app {
namespace {

// Draws anew each time: the palette may be another one.
class SymbolicEngine : public QIconEngine {
 public:
  explicit SymbolicEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
    const QPalette palette = QApplication::palette();
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    QByteArray drawing = drawing_;
    drawing.replace("currentColor", palette.color(group, QPalette::ButtonText).name().toLatin1());
    QSvgRenderer(drawing).render(painter, place);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  [[nodiscard]] QIconEngine* clone() const override { return new SymbolicEngine(*this); }

 private:
  QByteArray drawing_;
};

}  // namespace

QIcon SymbolicIcon(const QString& name) {
  TakeIcons();
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new SymbolicEngine(file.readAll()));
}

}  // namespace zentab::app
