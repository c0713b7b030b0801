#pragma once

#include <QFont>
#include <QPalette>

#include "editor/widgets/chart/curve_chart.h"

namespace zentab::app {

/// Pixels of a chart on paper, whatever the screen: 96 to the inch.
inline constexpr double kPixelsPerInch = 96.0;
inline constexpr double kMillimetresPerInch = 25.4;

/// Black on white, whatever the screen shows.
[[nodiscard]] QPalette PaperPalette();

/// The program's font at a size in the units of whatever is painted on: no screen's resolution and
/// no fitting to its pixels comes in. Chinese characters have the shapes of the mainland.
[[nodiscard]] QFont PaperFont(int size);

/// Gives a chart the colours and the font of paper, and its own back at the end.
class PaperLook {
 public:
  explicit PaperLook(editor::CurveChart& chart);
  ~PaperLook();
  PaperLook(const PaperLook&) = delete;
  PaperLook& operator=(const PaperLook&) = delete;

 private:
  editor::CurveChart& chart_;
  QPalette palette_;
  QFont font_;
};

}  // namespace zentab::app
