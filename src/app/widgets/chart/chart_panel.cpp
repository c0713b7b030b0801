#include "app/widgets/chart/chart_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "app/widgets/roomy_splitter.h"
#include "app/widgets/window_font.h"

namespace zentab::app {
namespace {

constexpr int kReadOutWidth = 64;

}  // namespace

ChartPanel::ChartPanel(QWidget* parent)
    : QWidget(parent), split_(new RoomySplitter(Qt::Vertical, this)) {
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  split_->setChildrenCollapsible(false);
  split_->addWidget(BuildChartPlace());
  split_->setStretchFactor(0, 1);
  layout->addWidget(split_, 1);
  layout->addWidget(BuildStrip());
}

void ChartPanel::AddBelowChart(QWidget* panel) {
  split_->addWidget(panel);
  split_->setStretchFactor(split_->indexOf(panel), 0);
}

void ChartPanel::PutInEmptyChart(QWidget* panel) {
  place_->addWidget(panel, 0, 0);
  panel->stackUnder(chart);
}

QWidget* ChartPanel::BuildChartPlace() {
  auto* const place = new QFrame(this);
  place->setFrameShape(QFrame::StyledPanel);
  place->setAutoFillBackground(true);
  place->setBackgroundRole(QPalette::Base);
  auto* const hint = new QLabel(
      QStringLiteral("No curve to show yet.\nRead an entry of the list or enter two points."),
      place);
  hint->setObjectName(QStringLiteral("LabelChart"));
  hint->setAlignment(Qt::AlignCenter);
  hint->setForegroundRole(QPalette::PlaceholderText);
  chart = new editor::CurveChart(place);
  chart->hide();
  // One place for both: the chart covers the hint while it is shown.
  place_ = new QGridLayout(place);
  place_->setContentsMargins(1, 1, 1, 1);
  place_->addWidget(hint, 0, 0);
  place_->addWidget(chart, 0, 0);
  place_->setRowStretch(0, 1);
  differences = new editor::DifferencePanel(*chart, place);
  place_->addWidget(differences, 1, 0);
  legend = new editor::CurveLegend(place);
  place_->addWidget(legend, 2, 0);
  return place;
}

QWidget* ChartPanel::BuildStrip() {
  auto* const strip = new QWidget(this);
  // Two rows: with the captions of some languages one would be wider than a small screen.
  auto* const rows = new QVBoxLayout(strip);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const fields = new QHBoxLayout;
  auto* const buttons = new QHBoxLayout;
  rows->addLayout(fields);
  rows->addLayout(buttons);
  const auto button = [&](const char* name, const QString& caption, bool shown) {
    auto* const made = new QPushButton(caption, strip);
    made->setObjectName(QLatin1String(name));
    made->setEnabled(false);
    made->setVisible(shown);
    buttons->addWidget(made);
    return made;
  };
  const auto field = [&](const char* name, const char* labelName, const QString& caption) {
    auto* const label = new QLabel(caption, strip);
    auto* const text = new QLineEdit(strip);
    label->setObjectName(QLatin1String(labelName));
    label->setBuddy(text);
    label->hide();
    text->setObjectName(QLatin1String(name));
    text->setMaximumWidth(static_cast<int>(kReadOutWidth * TextScale()));
    text->hide();
    fields->addWidget(label);
    fields->addWidget(text);
    return text;
  };
  // The Tab key follows the order in which they are made.
  fields->addStretch(1);
  text4 = field("Text4", "LabelText4", QStringLiteral("Difference type"));
  text5 = field("Text5", "LabelText5", QStringLiteral("Filter type"));
  text6 = field("Text6", "LabelText6", QStringLiteral("Mean"));
  text6->setToolTip(
      QStringLiteral("Each time value is calculated as the mean of the last (this "
                     "number) number of values"));
  // Set GRH has its caption from the chosen instrument.
  command5 = button("Command5", QStringLiteral("?"), true);
  command6 = button("Command6", QStringLiteral("Import &GRH"), false);
  command6->setEnabled(true);
  buttons->addStretch(1);
  command10 = button("Command10", QStringLiteral("Im&port time test"), true);
  command10->setToolTip(QStringLiteral("Imports the table from the time test."));
  commandPreview = button("CommandPreview", QStringLiteral("Import with preview…"), true);
  commandPreview->setToolTip(
      QStringLiteral("Shows the points of the last time test and what the import makes of them, "
                     "before it is done"));
  auto* const preview = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_I), commandPreview);
  connect(preview, &QShortcut::activated, commandPreview, &QPushButton::click);
  return strip;
}

}  // namespace zentab::app
