#include "editor/widgets/chart/log_paper_ticker.h"

#include <cmath>
#include <initializer_list>

namespace zentab::editor {
namespace {

constexpr double kManyDecades = 3.2;
constexpr double kFewDecades = 1.3;
constexpr int kMostDecades = 16;

QVector<double> InEveryDecade(const QCPRange& range, std::initializer_list<double> digits) {
  QVector<double> ticks;
  const int first = static_cast<int>(std::floor(std::log10(range.lower)));
  const int last = static_cast<int>(std::ceil(std::log10(range.upper)));
  const int step = (last - first) / kMostDecades + 1;
  for (int decade = first; decade <= last; decade += step) {
    for (const double digit : digits) ticks.append(digit * std::pow(10.0, decade));
  }
  return ticks;
}

}  // namespace

QVector<double> LogPaperTicker::createTickVector(double tickStep, const QCPRange& range) {
  range_ = range;
  if (range.lower <= 0.0) return QCPAxisTicker::createTickVector(tickStep, range);
  const double decades = std::log10(range.upper / range.lower);
  if (decades > kManyDecades) return InEveryDecade(range, {1});
  if (decades > kFewDecades) return InEveryDecade(range, {1, 2, 5});
  // Zoomed into less than a third of a decade, round digits are too far apart.
  if (decades < 0.3) return QCPAxisTicker::createTickVector(getTickStep(range), range);
  return InEveryDecade(range, {1, 1.5, 2, 3, 4, 5, 6, 8});
}

QVector<double> LogPaperTicker::createSubTickVector(int, const QVector<double>&) {
  if (range_.lower <= 0.0) return {};
  if (std::log10(range_.upper / range_.lower) > 2 * kManyDecades) return {};
  return InEveryDecade(range_, {1, 2, 3, 4, 5, 6, 7, 8, 9});
}

QString LogPaperTicker::getTickLabel(double tick, const QLocale& locale, QChar, int) {
  return locale.toString(tick, 'g', 4);
}

}  // namespace zentab::editor
