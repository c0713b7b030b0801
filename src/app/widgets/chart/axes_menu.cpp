#include "app/widgets/chart/axes_menu.h"

#include <QActionGroup>
#include <QMenu>

#include "app/widgets/chart/axes_controller.h"

namespace zentab::app {
namespace {

using editor::ChartAxes;

struct UnitRow {
  const char* name;
  const char* caption;
  editor::LoadUnit unit;
};

constexpr std::array<UnitRow, 3> kUnits = {{
    {"m_unitgrid", "Loads as in the &grid", editor::LoadUnit::AsInGrid},
    {"m_unitmult", "Loads in &multiples of the pickup value", editor::LoadUnit::Multiples},
    {"m_unitabs", "Loads in &amperes or volts", editor::LoadUnit::Absolute},
}};

}  // namespace

AxesMenu::AxesMenu(QMenu& view, AxesController& axes)
    : QObject(&view), axes_(axes), units_(new QActionGroup(this)) {
  QAction* const both = AddSwitch(
      view, "m_log", QStringLiteral("&Logarithmic axes"),
      [](const ChartAxes& on) { return on.logarithmic.AreLogarithmic(); },
      [](ChartAxes& to, bool on) {
        to.logarithmic = {on, on};
      });
  both->setShortcut(Qt::CTRL | Qt::Key_L);
  QMenu* const menu = view.addMenu(QStringLiteral("A&xes"));
  menu->setObjectName(QStringLiteral("m_axes"));
  AddSwitches(*menu);
  menu->addSeparator();
  AddUnits(*menu);
  menu->addSeparator();
  QAction* const limits = menu->addAction(QStringLiteral("L&imits…"));
  limits->setObjectName(QStringLiteral("m_limits"));
  connect(limits, &QAction::triggered, &axes_, &AxesController::AskLimits);
  connect(&axes_, &AxesController::Changed, this, &AxesMenu::Refresh);
  Refresh();
}

void AxesMenu::AddSwitches(QMenu& menu) {
  AddSwitch(
      menu, "m_logload", QStringLiteral("&Load axis logarithmic"),
      [](const ChartAxes& on) { return on.logarithmic.load; },
      [](ChartAxes& to, bool on) { to.logarithmic.load = on; });
  AddSwitch(
      menu, "m_logtime", QStringLiteral("&Time axis logarithmic"),
      [](const ChartAxes& on) { return on.logarithmic.time; },
      [](ChartAxes& to, bool on) { to.logarithmic.time = on; });
  AddSwitch(
      menu, "m_square", QStringLiteral("&Square decades"),
      [](const ChartAxes& on) { return on.squareDecades; },
      [](ChartAxes& to, bool on) { to.squareDecades = on; });
  AddSwitch(
      menu, "m_pickup", QStringLiteral("&Pickup line"),
      [](const ChartAxes& on) { return on.pickupLine; },
      [](ChartAxes& to, bool on) { to.pickupLine = on; });
}

void AxesMenu::AddUnits(QMenu& menu) {
  for (const UnitRow& row : kUnits) {
    const editor::LoadUnit unit = row.unit;
    units_->addAction(AddSwitch(
        menu, row.name, QString::fromUtf8(row.caption),
        [unit](const ChartAxes& on) { return on.unit == unit; },
        [unit](ChartAxes& to, bool) { to.unit = unit; }));
  }
}

QAction* AxesMenu::AddSwitch(QMenu& menu, const char* name, const QString& caption, Read isOn,
                             Write set) {
  QAction* const action = menu.addAction(caption);
  action->setObjectName(QLatin1String(name));
  action->setCheckable(true);
  connect(action, &QAction::triggered, this, [this, set = std::move(set)](bool on) {
    ChartAxes wanted = axes_.Axes();
    set(wanted, on);
    axes_.Change(wanted);
  });
  entries_.push_back({action, std::move(isOn)});
  return action;
}

void AxesMenu::Refresh() {
  for (const Entry& entry : entries_) entry.action->setChecked(entry.isOn(axes_.Axes()));
}

}  // namespace zentab::app
