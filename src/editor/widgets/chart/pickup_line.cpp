#include "editor/widgets/chart/pickup_line.h"

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"

namespace zentab::editor {
namespace {

constexpr double kPickupContrast = 4.5;
constexpr double kDown = 0.02;  // of the plot's height, from its top to the name

}  // namespace

PickupLine::PickupLine(CurveChart& chart)
    : QObject(&chart),
      chart_(chart),
      line_(new QCPItemStraightLine(&chart)),
      name_(new QCPItemText(&chart)) {
  // Below the curve and its markers.
  line_->setLayer(QStringLiteral("grid"));
  line_->setAntialiased(false);
  name_->setLayer(QStringLiteral("grid"));
  name_->position->setTypeX(QCPItemPosition::ptPlotCoords);
  name_->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
  name_->setRotation(-90);
  name_->setPositionAlignment(Qt::AlignRight | Qt::AlignBottom);
  name_->setPadding(QMargins(2, 1, 2, 1));
  line_->setVisible(false);
  name_->setVisible(false);
  connect(&chart, &CurveChart::PaletteChanged, this, &PickupLine::ApplyColours);
  ApplyColours();
}

void PickupLine::Show(std::optional<double> load, const QString& name) {
  const double place = load.value_or(0.0);
  const bool isSame = line_->visible() == load.has_value() && name_->text() == name &&
                      (!load || line_->point1->coords().x() == place);
  if (isSame) return;
  line_->setVisible(load.has_value());
  name_->setVisible(load.has_value());
  name_->setText(name);
  line_->point1->setCoords(place, 1.0);
  line_->point2->setCoords(place, 2.0);
  name_->position->setCoords(place, kDown);
  chart_.replot(QCustomPlot::rpQueuedReplot);
}

void PickupLine::ApplyColours() {
  const QColor base = chart_.palette().color(QPalette::Base);
  const QColor colour = LineOn(base, chart_.palette().color(QPalette::Text), kPickupContrast);
  line_->setPen(QPen(colour, 1.0, Qt::DashLine));
  name_->setColor(colour);
  name_->setFont(chart_.font());
}

}  // namespace zentab::editor
