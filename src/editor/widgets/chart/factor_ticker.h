#pragma once

#include <qcustomplot.h>

namespace zentab::editor {

/// The ticks of another ticker for coordinates times a factor: the axis is labelled in another unit
/// while what is drawn on it stays as it is.
class FactorTicker : public QCPAxisTicker {
 public:
  /// `factor` is above zero.
  FactorTicker(QSharedPointer<QCPAxisTicker> ticker, double factor)
      : ticker_(std::move(ticker)), factor_(factor) {}

  void generate(const QCPRange& range, const QLocale& locale, QChar formatChar, int precision,
                QVector<double>& ticks, QVector<double>* subTicks,
                QVector<QString>* tickLabels) override;

 private:
  QSharedPointer<QCPAxisTicker> ticker_;
  double factor_;
};

}  // namespace zentab::editor
