#pragma once

#include <qcustomplot.h>

namespace zentab::editor {

/// Ticks for a logarithmic axis as on log paper: labelled at round numbers of every decade (more
/// of them the fewer decades are in view), with unlabelled lines at the other whole digits.
class LogPaperTicker : public QCPAxisTicker {
 protected:
  QVector<double> createTickVector(double tickStep, const QCPRange& range) override;
  QVector<double> createSubTickVector(int subTickCount, const QVector<double>& ticks) override;
  QString getTickLabel(double tick, const QLocale& locale, QChar formatChar,
                       int precision) override;

 private:
  QCPRange range_;
};

}  // namespace zentab::editor
