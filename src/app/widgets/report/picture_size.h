#pragma once

#include <QSizeF>
#include <QString>

namespace zentab::app {

/// How large a picture is, on any screen.
struct PictureSize {
  QSizeF millimetres{160.0, 120.0};
  int dotsPerInch = 300;  // of PNG
};
inline constexpr int kFewestDots = 36;
inline constexpr int kMostDots = 2400;
inline constexpr int kShortestSide = 20;    // mm
inline constexpr int kLongestSide = 2'000;  // mm

/// The question for the size of a picture.
struct PictureSizeQuestion {
  QString title;
  PictureSize size;      // offered
  bool hasDots = false;  // it is made of pixels
};

}  // namespace zentab::app
