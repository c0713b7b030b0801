#include "app/widgets/help/welcome.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/demo_copy.h"
#include "app/widgets/chart/chart_panel.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/library/library_files_controller.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

constexpr int kWidth = 360;

}  // namespace

Welcome::Welcome(Parts parts) : parts_(std::move(parts)) {
  setObjectName(QStringLiteral("PanelWelcome"));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  AddButtons();
  hide();
  parts_.chart.PutInEmptyChart(this);
  connect(&parts_.library, &LibraryController::LibraryChanged, this, &Welcome::Refresh);
  connect(parts_.chart.chart, &editor::CurveChart::CurveShown, this, &Welcome::Refresh);
}

void Welcome::AddButtons() {
  auto* const column = new QVBoxLayout;
  auto* const text = new QLabel(
      QStringLiteral("No installation of the test-set suite is known here. Where do you want to "
                     "begin?"),
      this);
  text->setObjectName(QStringLiteral("LabelWelcome"));
  text->setWordWrap(true);
  text->setFixedWidth(kWidth);
  auto* const layout = new QHBoxLayout(this);
  layout->addStretch(1);
  layout->addLayout(column);
  layout->addStretch(1);
  column->addStretch(1);
  column->addWidget(text);
  const auto add = [&](const char* name, const char* caption) {
    auto* const button = new QPushButton(QString::fromUtf8(caption), this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);
    column->addWidget(button);
    return button;
  };
  QPushButton* const demo = add("CommandDemo", "Open the demo");
  demo->setVisible(HasDemo(parts_.executable));
  connect(demo, &QPushButton::clicked, this, &Welcome::OpenDemo);
  connect(add("CommandOpenFile", "Open a file…"), &QPushButton::clicked, &parts_.library,
          &LibraryController::SetActiveTable);
  connect(add("CommandNewLibrary", "Start a new library…"), &QPushButton::clicked, &parts_.files,
          &LibraryFilesController::NewLibrary);
  column->addStretch(1);
}

void Welcome::Refresh() {
  const Session& session = parts_.session;
  isOver_ = isOver_ || session.listing.stamp.has_value() || parts_.chart.chart->Curve().IsShown();
  const bool wasHidden = isHidden();
  setVisible(!isOver_);
  if (isOver_ || !wasHidden) return;
  for (auto* const button : findChildren<QPushButton*>()) {
    if (!button->isHidden()) return button->setFocus();
  }
}

// With settings and a registry of its own: these are another session's.
void Welcome::OpenDemo() {
  const QString program = QString::fromStdString(platform::ToText(parts_.executable));
  if (parts_.dialogs.StartProgram(program, {QStringLiteral("--demo")})) parts_.form.close();
}

}  // namespace zentab::app
