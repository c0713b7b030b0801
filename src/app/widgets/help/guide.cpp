#include "app/widgets/help/guide.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

#include "app/session_texts.h"
#include "platform/paths.h"

namespace zentab::app {
namespace {

struct PageRow {
  const char* part;  // a class of widgets
  const char* page;
};

// Of parts within parts the inner one counts.
constexpr PageRow kPages[] = {
    {"zentab::app::LibraryPanel", "libraries"},
    {"zentab::app::TablePanel", "first-curve"},
    {"zentab::app::AssessmentPanel", "assess"},
    {"zentab::app::ChartPanel", "chart"},
    {"zentab::app::StandardCurveDialog", "first-curve"},
    {"zentab::app::ThinDialog", "first-curve"},
    {"zentab::app::ResampleDialog", "first-curve"},
    {"zentab::app::FitDialog", "assess"},
    {"zentab::app::EquationEditor", "equations"},
    {"zentab::app::WorkbenchDialog", "time-test"},
    {"zentab::app::ComparisonDialog", "libraries"},
    {"zentab::app::CurveImportDialog", "libraries"},
    {"zentab::exchange::ExchangeDialog", "libraries"},
    {"zentab::app::ReportDialog", "reports"},
    {"zentab::app::PictureSizeDialog", "reports"},
    {"zentab::app::LimitsDialog", "chart"},
    {"zentab::app::TextTableDialog", "keys"},
};

constexpr const char* kFirstPage = "index";

const char* PageOf(const QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    for (const PageRow& row : kPages) {
      if (widget->inherits(row.part)) return row.page;
    }
  }
  return kFirstPage;
}

}  // namespace

Guide::Guide(const Session& session, UserDialogs& dialogs, const std::filesystem::path& executable,
             QWidget& form)
    : QObject(&form),
      session_(session),
      dialogs_(dialogs),
      folder_(executable.parent_path() / "guide"),
      form_(form) {
  QCoreApplication::instance()->installEventFilter(this);
}

void Guide::OpenFor(const QWidget* widget) { Open(QLatin1String(PageOf(widget))); }

void Guide::Open(const QString& name) {
  std::error_code error;
  // A browser that sees a part of the file system only is given the place itself.
  const auto page = std::filesystem::canonical(folder_ / (name.toStdString() + ".html"), error);
  const texts::HelpTexts& texts = session_.texts.help;
  if (error) return Told(QString::fromStdString(texts.noGuide));
  const std::string file = platform::ToText(page);
  if (dialogs_.OpenPage(QString::fromStdString(file))) return;
  Q_EMIT Told(QString::fromStdString(Expanded(session_, texts.noBrowser, {file})));
}

bool Guide::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const auto& widget = *static_cast<QWidget*>(watched);
  const bool isWanted = key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
  if (!isWanted || widget.window() == &form_) return false;
  OpenFor(&widget);
  return true;
}

}  // namespace zentab::app
