#include "app/widgets/report/paper_look.h"

#include <QFontInfo>
#include <QGuiApplication>

namespace zentab::app {
namespace {

constexpr int kChartFont = 12;  // pixels of the chart: 9 points

}  // namespace

QPalette PaperPalette() {
  QPalette colours(Qt::white);
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window, QPalette::Button}) {
    colours.setColor(role, Qt::white);
  }
  for (const QPalette::ColorRole role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    colours.setColor(role, Qt::black);
  }
  return colours;
}

// The same letters everywhere where they are installed; else the program's, by their real name: one
// that stands for whatever is there would rank behind the next. Those of Chinese fonts come last:
// in a PDF file their digits could not be selected.
QFont PaperFont(int size) {
  QFont font = QGuiApplication::font();
  font.setFamilies({QStringLiteral("DejaVu Sans"), QFontInfo(font).family(),
                    QStringLiteral("Noto Sans CJK SC"), QStringLiteral("Microsoft YaHei")});
  font.setPixelSize(size);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

PaperLook::PaperLook(editor::CurveChart& chart)
    : chart_(chart),
      palette_(chart.testAttribute(Qt::WA_SetPalette) ? chart.palette() : QPalette()),
      font_(chart.testAttribute(Qt::WA_SetFont) ? chart.font() : QFont()) {
  chart_.setPalette(PaperPalette());
  chart_.setFont(PaperFont(kChartFont));
}

PaperLook::~PaperLook() {
  chart_.setFont(font_);
  chart_.setPalette(palette_);
}

}  // namespace zentab::app
