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

constexpr int kWelcomeWidth = 360;

}  // namespace

Welcome::Welcome(const Parts& parts)
    : session_(parts.session),
      dialogs_(parts.dialogs),
      chart_(parts.chart),
      form_(parts.form),
      executable_(parts.executable) {
  setObjectName(QStringLiteral("PanelWelcome"));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  AddButtons(parts);
  hide();
  chart_.PutInEmptyChart(this);
  connect(&parts.library, &LibraryController::LibraryChanged, this, &Welcome::Refresh);
  connect(chart_.chart, &editor::CurveChart::CurveShown, this, &Welcome::Refresh);
}

void Welcome::AddButtons(const Parts& parts) {
  auto* const column = new QVBoxLayout;
  auto* const text = new QLabel(
      QStringLiteral("No installation of the test-set suite is known here. Where do you want to "
                     "begin?"),
      this);
  text->setObjectName(QStringLiteral("LabelWelcome"));
  text->setWordWrap(true);
  text->setFixedWidth(kWelcomeWidth);
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
  demo->setVisible(HasDemo(parts.executable));
  connect(demo, &QPushButton::clicked, this, &Welcome::OpenDemo);
  connect(add("CommandOpenFile", "Open a file…"), &QPushButton::clicked, &parts.library,
          &LibraryController::SetActiveTable);
  connect(add("CommandNewLibrary", "Start a new library…"), &QPushButton::clicked, &parts.files,
          &LibraryFilesController::NewLibrary);
  column->addStretch(1);
}

void Welcome::Refresh() {
  isOver_ = isOver_ || session_.listing.stamp.has_value() || chart_.chart->Curve().IsShown();
  const bool wasHidden = isHidden();
  setVisible(!isOver_);
  if (isOver_ || !wasHidden) return;
  for (auto* const button : findChildren<QPushButton*>()) {
    if (!button->isHidden()) return button->setFocus();
  }
}

// With settings and a registry of its own: these are another session's.
void Welcome::OpenDemo() {
  const QString program = QString::fromStdString(platform::ToText(executable_));
  if (dialogs_.StartProgram(program, {QStringLiteral("--demo")})) form_.close();
}

}  // namespace zentab::app
