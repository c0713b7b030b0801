#include "app/widgets/testset/preview_worker.h"

namespace zentab::app {

std::shared_ptr<const std::vector<QPointF>> ChartPoints(
    const std::vector<timetest::MeasuredPoint>& points) {
  auto made = std::make_shared<std::vector<QPointF>>();
  made->reserve(points.size());
  for (const timetest::MeasuredPoint& point : points) made->emplace_back(point.load, point.time);
  return made;
}

PreviewWorker::PreviewWorker(QObject* parent) : QObject(parent) {
  pool_.setMaxThreadCount(1);
  const auto pass = [this](int number, const Preview& preview) {
    if (newest_ == number) Q_EMIT Done(preview);
  };
  connect(this, &PreviewWorker::Calculated, this, pass, Qt::QueuedConnection);
}

PreviewWorker::~PreviewWorker() {
  ++newest_;
  pool_.clear();
  pool_.waitForDone();
}

void PreviewWorker::Ask(const Points& points, const timetest::ImportOptions& options,
                        const texts::EquationTexts& equations) {
  const int number = ++newest_;
  pool_.clear();
  pool_.start([this, number, points, options, equations] {
    const timetest::ProgressReport goesOn = [this, number](double) { return newest_ == number; };
    const auto preview = std::make_shared<ImportPreview>();
    timetest::ImportEffects& effects = preview->effects;
    preview->result = timetest::ImportPoints(*points, options, equations, goesOn, &effects);
    if (newest_ != number) return;
    std::vector<timetest::MeasuredPoint> removed = effects.timeouts.removed;
    removed.insert(removed.end(), effects.filter.removed.begin(), effects.filter.removed.end());
    preview->removed = ChartPoints(removed);
    if (effects.filter.moved + effects.averaged > 0) preview->shaped = ChartPoints(effects.shaped);
    effects.shaped = {};
    Q_EMIT Calculated(number, preview);
  });
}

}  // namespace zentab::app
