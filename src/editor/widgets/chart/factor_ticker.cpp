#include "editor/widgets/chart/factor_ticker.h"

namespace zentab::editor {

void FactorTicker::generate(const QCPRange& range, const QLocale& locale, QChar formatChar,
                            int precision, QVector<double>& ticks, QVector<double>* subTicks,
                            QVector<QString>* tickLabels) {
  ticker_->generate({range.lower * factor_, range.upper * factor_}, locale, formatChar, precision,
                    ticks, subTicks, tickLabels);
  for (double& tick : ticks) tick /= factor_;
  if (subTicks == nullptr) return;
  for (double& tick : *subTicks) tick /= factor_;
}

}  // namespace zentab::editor
