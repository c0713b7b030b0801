#pragma once

#include <QObject>
#include <QPointF>
#include <QThreadPool>
#include <atomic>
#include <memory>
#include <vector>

#include "timetest/import_pipeline.h"

namespace zentab::app {

/// What an import would make of points.
struct ImportPreview {
  timetest::ImportResult result;
  timetest::ImportEffects effects;
  // For the chart: what went and what was moved about.
  std::shared_ptr<const std::vector<QPointF>> removed;
  std::shared_ptr<const std::vector<QPointF>> shaped;  // null where nothing moved
};

/// Calculates previews beside the window: the one asked for last, all others are broken off.
class PreviewWorker : public QObject {
  Q_OBJECT

 public:
  using Points = std::shared_ptr<const timetest::ReadPoints>;

  explicit PreviewWorker(QObject* parent);
  ~PreviewWorker() override;

  /// Begins with a preview; Done tells of it unless another one is asked for before.
  void Ask(const Points& points, const timetest::ImportOptions& options,
           const texts::EquationTexts& equations);

 Q_SIGNALS:
  void Done(const std::shared_ptr<const zentab::app::ImportPreview>& preview);
  /// The preview of that number is ready; emitted beside the window's thread.
  void Calculated(int number, const std::shared_ptr<const zentab::app::ImportPreview>& preview);

 private:
  using Preview = std::shared_ptr<const ImportPreview>;

  QThreadPool pool_;
  std::atomic<int> newest_ = 0;
};

/// Points as the chart has them.
[[nodiscard]] std::shared_ptr<const std::vector<QPointF>> ChartPoints(
    const std::vector<timetest::MeasuredPoint>& points);

}  // namespace zentab::app
