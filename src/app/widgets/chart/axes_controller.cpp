#include "app/widgets/chart/axes_controller.h"

#include "app/session_texts.h"
#include "app/widgets/chart/axes_menu.h"
#include "app/widgets/files/responsive_files.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/pickup_line.h"

namespace zentab::app {
namespace {

std::optional<editor::Range> Scaled(const std::optional<editor::Range>& range, double factor) {
  if (!range) return std::nullopt;
  return editor::Range{range->minimum * factor, range->maximum * factor};
}

}  // namespace

AxesController::AxesController(Session& session, ResponsiveFiles& files,
                               platform::SettingsStore& store, std::string title,
                               UserDialogs& dialogs, editor::CurveChart& chart)
    : QObject(&chart),
      session_(session),
      files_(files),
      store_(store),
      title_(std::move(title)),
      dialogs_(dialogs),
      chart_(chart),
      pickupLine_(new editor::PickupLine(chart)),
      kept_(KeptAxes::Load(store, title_)) {}

void AxesController::AddTo(QMenu& view) { new AxesMenu(view, *this); }

void AxesController::Change(const editor::ChartAxes& axes) {
  if (axes == axes_) return;
  kept_.Keep(session_.tablePath, axes);
  Refresh();
  // Who goes on with the chart need not hear that its axes will be the usual ones next time.
  [[maybe_unused]] const std::error_code dropped =
      files_.Ask([this, kept = kept_] { return kept.Save(store_, title_); });
}

void AxesController::AskLimits() {
  const editor::ViewAxes shown = editor::AxesFor(axes_, session_.modes);
  const LabelPair labels =
      AxisTitlesFor(session_, editor::ShowsAbsoluteLoads(axes_, session_.modes));
  const auto inView = [](const QCPAxis& axis, double factor) {
    return editor::Range{axis.range().lower * factor, axis.range().upper * factor};
  };
  const std::optional<AxisLimits> limits =
      dialogs_.AskLimits({{Scaled(shown.loads, shown.loadFactor), shown.times},
                          inView(*chart_.xAxis, shown.loadFactor),
                          inView(*chart_.yAxis, 1.0),
                          chart_.Kinds(),
                          QString::fromStdString(labels.load),
                          QString::fromStdString(labels.time)});
  if (!limits) return;
  editor::ChartAxes axes = axes_;
  editor::SetLimits(axes, session_.modes, limits->loads, limits->times);
  Change(axes);
}

void AxesController::Refresh() {
  const editor::ChartAxes axes = kept_.Of(session_.tablePath);
  const bool isChange = axes != axes_;
  axes_ = axes;
  Show();
  if (!isChange) return;
  Q_EMIT KindsWanted(axes_.logarithmic);
  Q_EMIT Changed();
}

void AxesController::Show() {
  const editor::ValueModes& modes = session_.modes;
  const LabelPair titles = AxisTitlesFor(session_, editor::ShowsAbsoluteLoads(axes_, modes));
  chart_.SetAxisTitles(QString::fromStdString(titles.load), QString::fromStdString(titles.time));
  chart_.SetAxes(editor::AxesFor(axes_, modes));
  const std::optional<double> pickup = modes.absoluteValues ? editor::PickupOf(modes) : 1.0;
  pickupLine_->Show(axes_.pickupLine ? pickup : std::nullopt,
                    QString::fromStdString(session_.texts.chart.pickupLine));
}

}  // namespace zentab::app
