#include "app/widgets/chart/overlay_controller.h"

#include <QFileInfo>
#include <QMenu>
#include <algorithm>

#include "app/library_commands.h"
#include "app/widgets/chart/chart_panel.h"
#include "app/widgets/chart/entry_drop.h"
#include "app/widgets/files/responsive_files.h"
#include "app/widgets/library/entry_list_model.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/library/library_panel.h"
#include "app/widgets/status_line.h"
#include "app/widgets/user_dialogs.h"
#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_legend.h"
#include "editor/widgets/chart/difference_panel.h"
#include "editor/widgets/chart/overlay_curves.h"
#include "editor/widgets/chart/overlay_style.h"
#include "platform/paths.h"
#include "texts/template_text.h"

namespace zentab::app {
namespace {

using editor::OverlayFault;

constexpr double kCurveWidth = 2.0;
constexpr std::size_t kMostAtOnce = 50;

QString With(const std::string& text, const std::string& name) {
  return QString::fromStdString(texts::ExpandTemplate(text, {}, {ShownName(name).toStdString()}));
}

}  // namespace

OverlayController::OverlayController(Session& session, ResponsiveFiles& files,
                                     LibraryController& library, UserDialogs& dialogs,
                                     ChartPanel& panel, const LibraryPanel& list)
    : QObject(&panel),
      session_(session),
      files_(files),
      library_(library),
      list_(list),
      dialogs_(dialogs),
      chart_(*panel.chart),
      legend_(*panel.legend),
      differences_(*panel.differences),
      drawn_(new editor::OverlayCurves(chart_)),
      legendMenu_(new QMenu(&panel)) {
  legendMenu_->setObjectName(QStringLiteral("m_legend"));
  const auto add = [this](const char* name, const QString& caption, auto act) {
    QAction* const action = legendMenu_->addAction(caption);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, [this, act] { (this->*act)(legend_.CurrentRow()); });
  };
  add("m_reference", QStringLiteral("Take as re&ference"), &OverlayController::TakeReference);
  add("m_cmpremove", QStringLiteral("&Remove from the chart"), &OverlayController::Remove);
  legend_.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&legend_, &QWidget::customContextMenuRequested, this, &OverlayController::ShowMenu);
  connect(&legend_, &editor::CurveLegend::Switched, this, &OverlayController::Switch);
  connect(&legend_, &editor::CurveLegend::RemovalWanted, this, &OverlayController::Remove);
  connect(&chart_, &editor::CurveChart::CurveShown, this, &OverlayController::ShowDifference);
  connect(&chart_, &editor::CurveChart::PaletteChanged, this, &OverlayController::ShowLegend);
  auto* const drop = new EntryDrop(*chart_.parentWidget());
  connect(drop, &EntryDrop::Dropped, this, &OverlayController::AddEntries);
}

void OverlayController::AddTo(QMenu& view) {
  QMenu* const menu = view.addMenu(QStringLiteral("Co&mpare"));
  menu->setObjectName(QStringLiteral("m_compare"));
  const auto add = [menu](const char* name, const QString& caption) {
    QAction* const action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    return action;
  };
  connect(add("m_cmpentry", QStringLiteral("Selected &entries as further curves")),
          &QAction::triggered, this, &OverlayController::AddSelectedEntries);
  connect(add("m_cmpfile", QStringLiteral("Entries of another &file…")), &QAction::triggered, this,
          &OverlayController::AddFromFile);
  difference_ = add("m_difference", QStringLiteral("&Difference in per cent"));
  difference_->setCheckable(true);
  connect(difference_, &QAction::toggled, this, &OverlayController::Show);
  connect(add("m_cmpnone", QStringLiteral("&Remove all")), &QAction::triggered, this,
          &OverlayController::RemoveAll);
}

void OverlayController::AddSelectedEntries() { AddEntries(list_.SelectedPlaces()); }

void OverlayController::AddEntries(const std::vector<std::size_t>& entries) {
  if (files_.IsAtWork()) return;
  if (entries.size() > kMostAtOnce) {
    const std::string& text = session_.texts.library.tooManyCurves;
    Q_EMIT library_.Failed(With(text, std::to_string(kMostAtOnce)));
    return;
  }
  // Reading one may list all anew.
  std::vector<std::pair<std::string, tables::EntryMark>> named;
  for (const std::size_t entry : entries) {
    if (entry >= session_.listing.names.size()) continue;
    named.emplace_back(session_.listing.names[entry], session_.listing.MarkOfName(entry));
  }
  for (const auto& [name, mark] : named) {
    std::string line;
    if (!library_.ReadLine(mark, line)) break;
    Add(name, line);
  }
  Show();
}

void OverlayController::AddFromFile() {
  if (files_.IsAtWork()) return;
  const QString chosen = dialogs_.ChooseTableFile();
  if (chosen.isEmpty()) return;
  const std::filesystem::path file = platform::ToPath(chosen.toStdString());
  tables::TableListing listing;
  std::error_code error;
  {
    const ResponsiveFiles::Work work(files_);
    error = tables::ListEntries(files_, file, listing);
  }
  const texts::ProgramTexts& words = session_.texts.program;
  const std::string shortName = QFileInfo(chosen).fileName().toStdString();
  std::vector<std::size_t> entries;
  if (!error) {
    entries =
        dialogs_.ChooseEntries(With(session_.texts.chart.chooseCurves, shortName), listing.names);
  }
  const ResponsiveFiles::Work work(files_);
  const std::string origin = " (" + shortName + ")";
  for (const std::size_t entry : entries) {
    tables::EntryMark mark = listing.MarkOf(entry);
    std::string name = listing.names[entry];
    name += origin;
    std::string line;
    // What was changed meanwhile is another curve than the one that was chosen.
    error = tables::ReadEntryLine(files_, file, listing, mark, line);
    if (error) break;
    Add(name, line);
  }
  if (error) Q_EMIT library_.Failed(FailureText(words, words.readFailed, error));
  Show();
}

int OverlayController::FreeNumber() const {
  int number = 0;
  const auto isTaken = [&] {
    return std::any_of(overlays_.begin(), overlays_.end(),
                       [number](const Overlay& each) { return each.number == number; });
  };
  while (isTaken()) ++number;
  return number;
}

void OverlayController::Add(const std::string& name, const std::string& line) {
  overlays_.push_back(
      {editor::OverlayFrom(name, tables::ParseEntryLine(line), session_.modes), FreeNumber()});
}

void OverlayController::Remove(int row) {
  if (row < 1 || row > static_cast<int>(overlays_.size())) return;
  overlays_.erase(overlays_.begin() + (row - 1));
  if (reference_ == row) reference_ = 0;
  if (reference_ > row) --reference_;
  Show();
}

void OverlayController::RemoveAll() {
  overlays_.clear();
  reference_ = 0;
  Show();
}

void OverlayController::Switch(int row, bool on) {
  if (row < 1) return;
  overlays_.at(static_cast<std::size_t>(row) - 1).isOn = on;
  Show();
}

void OverlayController::TakeReference(int row) {
  if (row < 0) return;
  reference_ = row;
  difference_->setChecked(true);
  Show();
}

void OverlayController::ShowMenu(const QPoint& place) {
  if (legend_.CurrentRow() < 0) return;
  legendMenu_->popup(legend_.viewport()->mapToGlobal(place));
}

void OverlayController::Refresh() {
  differences_.SetTitle(QString::fromStdString(session_.texts.chart.difference));
  Show();
}

void OverlayController::Show() {
  std::vector<editor::DrawnOverlay> drawn;
  for (Overlay& overlay : overlays_) {
    overlay.shown = editor::Converted(overlay.table, session_.modes);
    if (overlay.IsShown()) drawn.push_back({overlay.number, overlay.shown.curve});
  }
  drawn_->Show(std::move(drawn));
  ShowLegend();
  ShowDifference();
}

void OverlayController::ShowLegend() {
  const texts::ChartTexts& texts = session_.texts.chart;
  const QColor background = chart_.palette().color(QPalette::Base);
  std::vector<editor::LegendRow> rows = {
      {QString::fromStdString(texts.gridCurve), QPen(editor::AccentOn(background), kCurveWidth)}};
  for (const Overlay& overlay : overlays_) {
    const OverlayFault fault = overlay.shown.fault;
    const std::string& words = fault == OverlayFault::NoPickup  ? texts.noPickup
                               : fault == OverlayFault::NoCurve ? texts.noCurve
                                                                : std::string("%1");
    rows.push_back({With(words, overlay.table.name), editor::OverlayPen(overlay.number, background),
                    overlay.isOn, fault == OverlayFault::None});
  }
  if (difference_ != nullptr && difference_->isChecked()) {
    QString& reference = rows.at(static_cast<std::size_t>(reference_)).text;
    reference = With(texts.reference, reference.toStdString());
  }
  legend_.Show(rows);
}

void OverlayController::ShowDifference() {
  std::vector<editor::DrawnDifference> shown;
  if (difference_ == nullptr || !difference_->isChecked() || overlays_.empty()) {
    if (!differences_.isHidden()) differences_.Show(shown);
    return;
  }
  const editor::ChartCurve& own = chart_.Curve();
  const editor::ChartCurve& reference =
      reference_ == 0 ? own : overlays_.at(static_cast<std::size_t>(reference_) - 1).shown.curve;
  const QColor background = chart_.palette().color(QPalette::Base);
  const auto add = [&](const editor::ChartCurve& curve, const QPen& pen) {
    if (&curve == &reference) return;
    shown.push_back({pen, editor::DifferenceOf(curve, reference, chart_.Kinds())});
  };
  add(own, QPen(editor::AccentOn(background), kCurveWidth));
  for (const Overlay& overlay : overlays_) {
    if (overlay.IsShown()) add(overlay.shown.curve, editor::OverlayPen(overlay.number, background));
  }
  differences_.Show(shown);
}

}  // namespace zentab::app
