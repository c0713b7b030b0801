#include "app/widgets/chart_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace zentab::app {
namespace {

constexpr int kFieldWidth = 64;

}  // namespace

ChartPanel::ChartPanel(QWidget* parent) : QWidget(parent) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(BuildChartPlace(), 1);
  layout->addWidget(BuildStrip());
}

QWidget* ChartPanel::BuildChartPlace() {
  auto* const place = new QFrame(this);
  place->setFrameShape(QFrame::StyledPanel);
  place->setAutoFillBackground(true);
  place->setBackgroundRole(QPalette::Base);
  auto* const hint = new QLabel(
      QStringLiteral("No curve to show yet.\nRead an entry of the list, or type two points."),
      place);
  hint->setAlignment(Qt::AlignCenter);
  hint->setForegroundRole(QPalette::PlaceholderText);
  chart = new editor::CurveChart(place);
  chart->hide();
  // One place for both: the chart covers the hint while it is shown.
  auto* const layout = new QGridLayout(place);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->addWidget(hint, 0, 0);
  layout->addWidget(chart, 0, 0);
  return place;
}

QWidget* ChartPanel::BuildStrip() {
  auto* const strip = new QWidget(this);
  auto* const layout = new QHBoxLayout(strip);
  layout->setContentsMargins(0, 0, 0, 0);
  const auto button = [&](const char* name, const QString& caption, bool shown) {
    auto* const made = new QPushButton(caption, strip);
    made->setObjectName(QLatin1String(name));
    made->setEnabled(false);
    made->setVisible(shown);
    layout->addWidget(made);
  };
  const auto field = [&](const char* name, const char* labelName, const QString& caption) {
    auto* const label = new QLabel(caption, strip);
    auto* const text = new QLineEdit(strip);
    label->setObjectName(QLatin1String(labelName));
    label->setBuddy(text);
    label->hide();
    text->setObjectName(QLatin1String(name));
    text->setMaximumWidth(kFieldWidth);
    text->hide();
    layout->addWidget(label);
    layout->addWidget(text);
  };
  // Set GRH has its caption from the chosen instrument.
  button("Command5", QStringLiteral("?"), true);
  button("Command6", QStringLiteral("Import &GRH"), false);
  layout->addStretch(1);
  field("Text4", "Label5", QStringLiteral("Difference type"));
  field("Text5", "Label6", QStringLiteral("Filter type"));
  field("Text6", "Label7", QStringLiteral("Mean"));
  button("Command10", QStringLiteral("Im&port time test"), true);
  return strip;
}

}  // namespace zentab::app
