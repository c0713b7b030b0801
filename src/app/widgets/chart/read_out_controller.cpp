#include "app/widgets/chart/read_out_controller.h"

#include <QAccessible>
#include <QMenu>

#include "app/session_texts.h"
#include "editor/widgets/chart/crosshair.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/point_ring.h"
#include "editor/widgets/curve_grid_view.h"
#include "editor/widgets/row_light.h"

namespace zentab::app {
namespace {

using editor::PinnedMarkers;
using editor::Reading;

QStringList ToQt(const std::vector<std::string>& texts) {
  QStringList shown;
  for (const std::string& text : texts) shown.append(QString::fromStdString(text));
  return shown;
}

// In place of what the chart is otherwise, until it is left.
void Say(QWidget& chart, const QString& text) {
  chart.setAccessibleDescription(text);
  QAccessibleEvent event(&chart, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

ReadOutController::ReadOutController(const Session& session, editor::CurveChart& chart,
                                     editor::CurveGridView& grid)
    : QObject(&chart),
      session_(session),
      chart_(chart),
      crosshair_(new editor::Crosshair(chart,
                                       [this](const Reading& reading) {
                                         return ToQt(editor::LinesOf(reading, Units(),
                                                                     session_.texts.chart));
                                       })),
      markers_(new PinnedMarkers(
          chart, [this](const std::optional<Reading>& a, const std::optional<Reading>& b) {
            QList<QStringList> shown;
            for (const auto& row : editor::RowsOf(a, b, Units(), session_.texts.chart)) {
              shown.append(ToQt(row));
            }
            return shown;
          })) {
  auto* const ring = new editor::PointRing(chart);
  auto* const light = new editor::RowLight(grid);
  connect(crosshair_, &editor::Crosshair::PointFound, ring, &editor::PointRing::Light);
  connect(crosshair_, &editor::Crosshair::PointFound, light, &editor::RowLight::Light);
  connect(light, &editor::RowLight::RowHovered, ring, &editor::PointRing::Light);
  connect(light, &editor::RowLight::RowHovered, light, &editor::RowLight::Light);
  connect(crosshair_, &editor::Crosshair::Said, this,
          [this](const QString& text) { Say(chart_, text); });
}

void ReadOutController::AddTo(QMenu& view) {
  const auto add = [&](const char* name, const QString& caption, const QKeySequence& key) {
    QAction* const action = view.addAction(caption);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    // A letter alone is a key of the chart, and text everywhere else.
    action->setShortcutContext(Qt::WidgetShortcut);
    chart_.addAction(action);
    return action;
  };
  connect(add("m_marka", QStringLiteral("Pin marker &A"), Qt::Key_A), &QAction::triggered, this,
          [this] { Pin(PinnedMarkers::Which::A); });
  connect(add("m_markb", QStringLiteral("Pin marker &B"), Qt::Key_B), &QAction::triggered, this,
          [this] { Pin(PinnedMarkers::Which::B); });
  connect(add("m_marknone", QStringLiteral("&Remove the markers"), Qt::Key_Backspace),
          &QAction::triggered, this, [this] { markers_->Clear(); });
}

void ReadOutController::Refresh() {
  crosshair_->Refresh();
  markers_->Refresh();
}

void ReadOutController::Pin(PinnedMarkers::Which which) {
  if (const std::optional<Reading> place = crosshair_->Last()) markers_->Pin(which, *place);
}

editor::ReadingUnits ReadOutController::Units() const {
  return {session_.modes, InstrumentInUse(session_).unit, session_.localeDecimalSeparator};
}

}  // namespace zentab::app
