#include "editor/widgets/chart/chart_colours.h"

#include <algorithm>
#include <cmath>

namespace zentab::editor {
namespace {

constexpr double kTextContrast = 4.5;
constexpr int kSteps = 32;

double Luminance(const QColor& colour) {
  const auto linear = [](double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

}  // namespace

double ContrastOf(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor Contrasting(const QColor& colour, const QColor& background, double contrast) {
  const bool lighter = ContrastOf(Qt::white, background) > ContrastOf(Qt::black, background);
  QColor shown = colour;
  for (int step = 1; step <= kSteps && ContrastOf(shown, background) < contrast; ++step) {
    shown = Mix(colour, lighter ? Qt::white : Qt::black, static_cast<double>(step) / kSteps);
  }
  return shown;
}

QColor LineOn(const QColor& background, const QColor& text, double contrast) {
  QColor line = background;
  for (int step = 1; step <= kSteps && ContrastOf(line, background) < contrast; ++step) {
    line = Mix(background, text, static_cast<double>(step) / kSteps);
  }
  return Contrasting(line, background, contrast);
}

QColor AccentOn(const QColor& background) {
  return ReadableOn(QColor(0x1F, 0x6F, 0xC4), background);
}

QColor ProposalOn(const QColor& background) {
  return ReadableOn(QColor(0xC7, 0x5B, 0x12), background);
}

QColor FailureOn(const QColor& background) {
  return ReadableOn(QColor(0xC6, 0x28, 0x28), background);
}

QColor ReadableOn(const QColor& wanted, const QColor& background) {
  return Contrasting(wanted, background, kTextContrast);
}

QColor Mix(const QColor& a, const QColor& b, double share) {
  const auto channel = [share](int x, int y) { return static_cast<int>(x + (y - x) * share); };
  return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

}  // namespace zentab::editor
