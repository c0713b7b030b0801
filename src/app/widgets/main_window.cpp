#include "app/widgets/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>

#include "app/session_texts.h"
#include "app/start_up.h"
#include "app/widgets/accessible_names.h"
#include "app/widgets/chart/axes_controller.h"
#include "app/widgets/chart/chart_panel.h"
#include "app/widgets/chart/overlay_controller.h"
#include "app/widgets/chart/point_hand_controller.h"
#include "app/widgets/chart/read_out_controller.h"
#include "app/widgets/colour_scheme.h"
#include "app/widgets/command_listeners.h"
#include "app/widgets/context_menus.h"
#include "app/widgets/curve/assessment_controller.h"
#include "app/widgets/curve/curve_controller.h"
#include "app/widgets/exchange/exchange_controller.h"
#include "app/widgets/help/guide.h"
#include "app/widgets/help/help_menu.h"
#include "app/widgets/help/welcome.h"
#include "app/widgets/instrument_captions.h"
#include "app/widgets/interchange/interchange_commands.h"
#include "app/widgets/language_menu.h"
#include "app/widgets/library/entry_work.h"
#include "app/widgets/library/library_controller.h"
#include "app/widgets/library/library_files_controller.h"
#include "app/widgets/library/library_panel.h"
#include "app/widgets/panel_focus.h"
#include "app/widgets/panel_walk.h"
#include "app/widgets/plain_texts.h"
#include "app/widgets/quick_commands.h"
#include "app/widgets/report/report_controller.h"
#include "app/widgets/report/report_menu.h"
#include "app/widgets/roomy_splitter.h"
#include "app/widgets/scrolling_frame.h"
#include "app/widgets/session_end.h"
#include "app/widgets/status_line.h"
#include "app/widgets/table/check_marks.h"
#include "app/widgets/table/clipboard_controller.h"
#include "app/widgets/table/history_controller.h"
#include "app/widgets/table/point_tools_controller.h"
#include "app/widgets/table/point_tools_menu.h"
#include "app/widgets/table/recovery_keeper.h"
#include "app/widgets/table/table_panel.h"
#include "app/widgets/table/value_mode_binding.h"
#include "app/widgets/table_file_drop.h"
#include "app/widgets/testset/instrument_controller.h"
#include "app/widgets/testset/reference_graph_controller.h"
#include "app/widgets/testset/time_test_controller.h"
#include "app/widgets/testset/workbench_controller.h"
#include "app/widgets/window_font.h"
#include "app/widgets/window_placement.h"
#include "app/widgets/window_texts.h"
#include "app/widgets/window_title.h"
#include "editor/chart_curve.h"

namespace zentab::app {
namespace {

constexpr QSize kDesignedSize(1240, 820);  // of a screen that has the room
constexpr int kMargin = 9;

}  // namespace

MainWindow::MainWindow(MainWindowParts parts)
    : session_(parts.session),
      settings_(std::move(parts.settings)),
      catalogues_(CatalogueCandidates(session_.installFolder, parts.executable)),
      files_(parts.files),
      writer_(files_, tables::Backups::AtFirstWrite),
      history_(session_, writer_),
      log_(session_, files_),
      library_(new LibraryPanel(session_.listing, this)),
      table_(new TablePanel(session_.table, this)),
      chart_(new ChartPanel(this)),
      libraryController_(new LibraryController(session_, files_, writer_, parts.dialogs, *library_,
                                               parts.lookEvery)),
      timeTest_(new TimeTestController(session_, files_, parts.dialogs, log_, *chart_)),
      instruments_(new InstrumentController(session_, log_, parts.dialogs, *table_)),
      graphs_(new ReferenceGraphController(session_, files_, parts.dialogs, log_,
                                           instruments_->Instruments(), *this)),
      clipboard_(new ClipboardController(session_, *table_)),
      tools_(new PointToolsController(session_, *table_, parts.dialogs)),
      exchange_(new ExchangeController(session_, files_, writer_, parts.dialogs, parts.store,
                                       parts.title, *this)),
      modes_(new ValueModeBinding(session_, *table_)),
      axes_(new AxesController(session_, files_, parts.store, parts.title, parts.dialogs,
                               *chart_->chart)),
      hand_(new PointHandController(session_, *chart_->chart, *table_->grid)),
      overlays_(new OverlayController(session_, files_, *libraryController_, parts.dialogs, *chart_,
                                      *library_)),
      readOut_(new ReadOutController(session_, *chart_->chart, *table_->grid)),
      status_(new StatusLine(session_, statusBar())),
      undo_(new HistoryController(
          {session_, history_, files_, *table_, *modes_, *libraryController_, *instruments_})),
      recovery_(
          new RecoveryKeeper(session_, parts.files, parts.recoveryFolder, parts.dialogs, this)),
      report_(new ReportController(
          {session_, files_, parts.dialogs, parts.store, parts.title, *chart_->chart, *this})),
      checks_(new CheckMarks(session_, *table_->grid, *statusBar())),
      forms_(files_, parts.store, parts.title),
      tableFiles_(new LibraryFilesController(
          {session_, files_, parts.dialogs, forms_, *libraryController_, *exchange_}, this)),
      interchange_(new InterchangeCommands({session_, files_, writer_, parts.dialogs,
                                            *libraryController_, *undo_, *chart_->chart, *this})),
      entries_(new EntryWork(
          {session_, files_, writer_, parts.dialogs, forms_, *libraryController_, *library_})),
      curves_(new CurveController(session_, forms_, *chart_->chart, *this)),
      assessment_(
          new AssessmentController({session_, forms_, *libraryController_, *chart_, *curves_,
                                    [this] { return library_->SelectedIndex(); }})),
      end_(new SessionEnd({*this, *table_->grid, session_, parts.title, parts.store, parts.dialogs,
                           files_, *recovery_, log_, instruments_->Instruments()})) {
  modes_->setParent(this);
  new PlainTexts(this);
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Relay curve table editor"));
  resize(SizeOnScreen(kDesignedSize, screen()->availableSize()));
  BuildPanels();
  BuildMenus(parts);
  ConnectCommands();
  ConnectPanels();
  ConnectLibraryFiles();
  ConnectTools();
  ConnectCurves();
  ConnectTimeTest();
  ConnectInstruments();
  ConnectHistory();
  new ContextMenus(*this);
  new QuickCommands(*menuBar());
  names_ = new AccessibleNames(*this);
  texts_ = std::make_unique<WindowTexts>(*this, session_, files_, [this](std::error_code error) {
    const texts::ProgramTexts& texts = session_.texts.program;
    status_->ShowFailure(FailureText(texts, texts.catalogueFailed, error));
  });
}

// A field that loses the focus still needs what the window works with.
MainWindow::~MainWindow() { hide(); }

void MainWindow::BuildPanels() {
  auto* const splitter = new RoomySplitter(this);
  splitter->addWidget(library_);
  splitter->addWidget(table_);
  splitter->addWidget(chart_);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(kMargin);
  splitter->setSizes({250, 300, 690});
  splitter->setStretchFactor(0, 0);
  splitter->setStretchFactor(1, 0);
  splitter->setStretchFactor(2, 1);
  auto* const frame = new QWidget(this);
  auto* const layout = new QHBoxLayout(frame);
  layout->setContentsMargins(kMargin, kMargin, kMargin, 0);
  layout->addWidget(splitter);
  setCentralWidget(new ScrollingFrame(frame, this));
  new PanelFocus(frame, {library_, table_, chart_});
}

void MainWindow::BuildMenus(const MainWindowParts& parts) {
  QMenu* const options = menuBar()->addMenu(QStringLiteral("&Options"));
  options->setObjectName(QStringLiteral("m_opt"));
  const auto add = [&](QMenu* menu, const char* name, const QString& caption,
                       const QKeySequence& key) {
    QAction* const action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    return action;
  };
  connect(add(options, "m_act", QStringLiteral("Set &active table…"), QKeySequence::Open),
          &QAction::triggered, libraryController_, &LibraryController::SetActiveTable);
  options->addSeparator();
  connect(add(options, "m_imp", QStringLiteral("&Import…"), {}), &QAction::triggered, exchange_,
          &ExchangeController::Import);
  connect(add(options, "m_exp", QStringLiteral("&Export…"), {}), &QAction::triggered, exchange_,
          &ExchangeController::Export);
  options->addSeparator();
  QAction* const exit =
      add(options, "m_exit", QStringLiteral("E&xit"), QKeySequence(Qt::CTRL | Qt::Key_Q));
  connect(exit, &QAction::triggered, this, &QWidget::close);
  new ReportMenu(*options, *exit, *report_);

  edit_ = new PointToolsMenu(session_, *menuBar(), *table_->grid, *tools_, *checks_);
  undo_->AddTo(edit_->Menu());
  recovery_->AddTo(edit_->Menu());

  interchange_->AddTo(*entries_->AddMenu(*menuBar(), *tableFiles_));
  assessment_->AddTo(*curves_->AddMenu(*menuBar()));

  QMenu* const view = menuBar()->addMenu(QStringLiteral("Vie&w"));
  view->setObjectName(QStringLiteral("m_view"));
  connect(add(view, "m_fit", QStringLiteral("&Whole curve"), QKeySequence(Qt::CTRL | Qt::Key_0)),
          &QAction::triggered, chart_->chart, &editor::CurveChart::Fit);
  axes_->AddTo(*view);
  readOut_->AddTo(*view);
  overlays_->AddTo(*view);
  new ColourScheme(*view, files_, parts.store, parts.title);
  languages_ = new LanguageMenu(
      *view, {session_, files_, parts.store, parts.title, parts.executable, catalogues_});
  new PanelWalk(*view, {{{library_, library_->findChild<QListView*>()},
                         {table_, table_->grid},
                         {chart_, chart_->chart}}});
  guide_ = new Guide(session_, parts.dialogs, parts.executable, *this);
  new HelpMenu({session_, log_, *this, *guide_});
  if (session_.isWithoutSuite) {
    new Welcome({session_, parts.dialogs, *libraryController_, *tableFiles_, *chart_, *this,
                 parts.executable});
  }
}

void MainWindow::ConnectCommands() {
  const CommandListeners listeners = {*status_, *table_->grid, *recovery_,
                                      [this](editor::EditStep step) { Remember(step); }};
  listeners.FollowAll(libraryController_, tableFiles_, entries_, interchange_, exchange_,
                      clipboard_, tools_, hand_, curves_, assessment_, report_, modes_,
                      instruments_, timeTest_, graphs_, undo_, recovery_, guide_);
}

void MainWindow::ConnectPanels() {
  editor::CurveGridView* const grid = table_->grid;
  connect(grid, &editor::CurveGridView::Edited, status_, &StatusLine::RefreshModified);
  connect(grid, &editor::CurveGridView::EditingLeft, this, &MainWindow::RefreshChart);
  connect(grid, &editor::CurveGridView::RowChanged, chart_->chart, &editor::CurveChart::MarkRow);
  connect(libraryController_, &LibraryController::TableRead, this, [this] {
    modes_->Show();
    ShowTable();
    instruments_->FollowSession();
  });
  connect(libraryController_, &LibraryController::TableFileChosen, this, [this] {
    texts_->Apply(catalogues_.front());
    RefreshCaptions();
  });
  connect(libraryController_, &LibraryController::LibraryChanged, status_, &StatusLine::Refresh);
  connect(&files_, &ResponsiveFiles::Waiting, status_, &StatusLine::ShowWaiting);
  connect(&files_, &ResponsiveFiles::WaitEnded, status_, &StatusLine::HideWaiting);
  connect(status_, &StatusLine::GivenUp, &files_, &ResponsiveFiles::GiveUp);
  connect(clipboard_, &ClipboardController::TableChanged, this, &MainWindow::ShowEdits);
  connect(modes_, &ValueModeBinding::Changed, this, &MainWindow::RefreshCaptions);
  connect(languages_, &LanguageMenu::Switched, this, &MainWindow::RefreshCaptions);
}

void MainWindow::ConnectLibraryFiles() {
  auto* const drop = new TableFileDrop(*this);
  connect(drop, &TableFileDrop::Dropped, tableFiles_, &LibraryFilesController::Open);
  connect(drop, &TableFileDrop::CurvesDropped, interchange_, &InterchangeCommands::ImportFrom);
  connect(status_, &StatusLine::Refreshed, new WindowTitle(session_, *this), &WindowTitle::Refresh);
}

void MainWindow::ConnectTools() {
  connect(tools_, &PointToolsController::TableChanged, this, &MainWindow::ShowEdits);
  connect(tools_, &PointToolsController::ModesChanged, this, [this] {
    modes_->Show();
    RefreshCaptions();
  });
  connect(axes_, &AxesController::KindsWanted, tools_, &PointToolsController::SetLogarithmic);
  connect(hand_, &PointHandController::PointsChanged, this, &MainWindow::ShowEdits);
}

void MainWindow::ConnectCurves() {
  editor::CurveGridView* const grid = table_->grid;
  connect(curves_, &CurveController::CommandBegun, grid, &editor::CurveGridView::CloseEditor);
  connect(curves_, &CurveController::TableChanged, this, &MainWindow::ShowEdits);
  connect(assessment_, &AssessmentController::Assessed, report_, &ReportController::TakeAssessment);
  connect(assessment_, &AssessmentController::RowChosen, chart_->chart,
          &editor::CurveChart::MarkRow);
}

void MainWindow::ConnectTimeTest() {
  connect(timeTest_, &TimeTestController::TableImported, this, &MainWindow::ShowTable);
  connect(instruments_, &InstrumentController::ResultsWanted, timeTest_,
          &TimeTestController::UpdateTimeTestAvailability);
  connect(instruments_, &InstrumentController::OpenFailed, timeTest_,
          &TimeTestController::Withdraw);
  workbench_ =
      new WorkbenchController({session_, files_, forms_, catalogues_, *timeTest_, *chart_});
}

void MainWindow::ConnectInstruments() {
  connect(instruments_, &InstrumentController::InstrumentChosen, this,
          &MainWindow::RefreshCaptions);
  connect(instruments_, &InstrumentController::Chosen, this, &MainWindow::RefreshChart);
  connect(instruments_, &InstrumentController::InstrumentChosen, status_, &StatusLine::Clear);
  connect(chart_->command5, &QPushButton::clicked, this, [this] {
    const std::optional<std::size_t> index = library_->SelectedIndex();
    graphs_->SetGraph(index ? session_.listing.names[*index] : std::string());
  });
  connect(chart_->command6, &QPushButton::clicked, graphs_, &ReferenceGraphController::ImportGraph);
  connect(graphs_, &ReferenceGraphController::GridNeeded, modes_,
          &ValueModeBinding::LeaveMultiplier);
  connect(graphs_, &ReferenceGraphController::TableImported, this, &MainWindow::ShowTable);
}

void MainWindow::Remember(editor::EditStep step) {
  history_.Remember(step);
  const bool isField = step == editor::EditStep::Pickup || step == editor::EditStep::Multiplier;
  if (!isField) modes_->EndTyping();
}

void MainWindow::ConnectHistory() {
  editor::CurveGridView* const grid = table_->grid;
  connect(grid, &editor::CurveGridView::EditBegins, this, &MainWindow::Remember);
  connect(grid, &editor::CurveGridView::TypingUndone, this, [this] {
    history_.FollowField();
    status_->RefreshModified();
  });
  connect(libraryController_, &LibraryController::TableFileChosen, this,
          [this] { history_.EndLibrary(); });
  connect(undo_, &HistoryController::TableShown, this, &MainWindow::RefreshCaptions);
  connect(undo_, &HistoryController::TableShown, this, &MainWindow::RefreshChart);
  connect(recovery_, &RecoveryKeeper::BroughtBack, undo_, &HistoryController::ShowTable);
  connect(recovery_, &RecoveryKeeper::BroughtBack, libraryController_,
          &LibraryController::SelectSource);
  connect(grid, &editor::CurveGridView::Edited, recovery_, &RecoveryKeeper::Follow);
  connect(libraryController_, &LibraryController::LibraryChanged, recovery_,
          &RecoveryKeeper::Follow);
  connect(modes_, &ValueModeBinding::Changed, recovery_, &RecoveryKeeper::Follow);
  connect(instruments_, &InstrumentController::Chosen, recovery_, &RecoveryKeeper::Follow);
  connect(undo_, &HistoryController::TableShown, recovery_, &RecoveryKeeper::Follow);
}

void MainWindow::Load() {
  chart_->chart->SetDecimalSeparator(QString::fromStdString(session_.localeDecimalSeparator));
  for (const std::filesystem::path& catalogue : catalogues_) texts_->Apply(catalogue);
  languages_->Begin(*texts_);
  libraryController_->FillEntryList();
  log_.WriteLogLine("%D %E Started");
  QCoreApplication::processEvents();
  ApplyUiFont(*this, font_);
  // The pickup value belongs to an instrument: it is shown once one is chosen.
  session_.modes.pickup.clear();
  modes_->Show();
  RefreshCaptions();
  RefreshChart();
  RestorePlacement(*this, settings_.window);
}

void MainWindow::OfferRecovery() { recovery_->Offer(); }

void MainWindow::ListenForEnd() { end_->Listen(); }

void MainWindow::ShowTable() {
  chart_->chart->Fit();
  RefreshCaptions();
  RefreshChart();
}

void MainWindow::ShowEdits() {
  table_->grid->ShowAll();
  RefreshChart();
  status_->RefreshModified();
}

void MainWindow::RefreshChart() {
  const editor::ChartCurve curve =
      editor::CurveOf(session_.table.grid, session_.localeDecimalSeparator);
  chart_->chart->ShowCurve(curve);
  library_->SetStorable(curve.IsShown());
  chart_->command5->setEnabled(curve.IsShown() && instruments_->Instruments().IsOpen());
}

void MainWindow::RefreshCaptions() {
  ShowInstrumentCaptions(session_, *table_, *chart_);
  session_.table.grid.SetHeadings(session_.texts.program.loadHeading,
                                  session_.texts.program.timeHeading);
  table_->grid->ShowAll();
  undo_->RefreshTexts();
  axes_->Refresh();
  overlays_->Refresh();
  readOut_->Refresh();
  status_->Refresh();
  names_->Refresh();
  assessment_->RefreshTexts();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    RefreshChart();
    timeTest_->LookAgain();
  }
}

void MainWindow::closeEvent(QCloseEvent* event) { event->setAccepted(end_->MayClose()); }

}  // namespace zentab::app
