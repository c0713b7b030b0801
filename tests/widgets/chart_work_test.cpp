#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/curve_grid_view.h"
#include "widgets/window_fixture.h"

namespace zentab::app {
namespace {

using editor::CurveChart;

const QByteArray kLibrary =
    "{\"SI\"\t(2;10)(4;5)(8;3)(16;2) 001}\r\n"
    "{\"Amperes\"\t(10;9000)(20;4000)(80;2500) 111}\r\n"
    "{\"Zero\"\t(0;10)(4;5) 001}\r\n";

// Works with the chart of the window by mouse and keys.
class ChartWorkTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<WindowFixture> made_;

  WindowFixture& Start() {
    made_ = std::make_unique<WindowFixture>(kLibrary);
    made_->window->resize(1240, 820);
    made_->window->activateWindow();
    if (!QTest::qWaitForWindowActive(made_->window.get())) qFatal("the window stays inactive");
    Read(0);
    return *made_;
  }
  void Read(int row) {
    made_->session.table.tableModified = false;
    made_->Select(row);
    made_->Click("Command1");
    QCoreApplication::processEvents();
    Chart().replot();
  }
  [[nodiscard]] CurveChart& Chart() const { return *made_->Find<CurveChart>("MSChart1"); }
  void Choose(const char* action) {
    auto* const found = made_->Find<QAction>(action);
    if (found == nullptr) qFatal("there is no %s", action);
    found->trigger();
    QCoreApplication::processEvents();
    Chart().replot();
  }
  // "loads from..to, times from..to" in view, as the axes are labelled with three digits.
  [[nodiscard]] QString View() const {
    const auto range = [](const QCPAxis& axis) {
      return QStringLiteral("%1..%2")
          .arg(axis.range().lower, 0, 'g', 3)
          .arg(axis.range().upper, 0, 'g', 3);
    };
    return range(*Chart().xAxis) + ' ' + range(*Chart().yAxis);
  }
  [[nodiscard]] QString Kinds() const {
    const editor::AxisKinds kinds = Chart().Kinds();
    return QLatin1String(kinds.load ? "log" : "lin") + '/' +
           QLatin1String(kinds.time ? "log" : "lin");
  }
  [[nodiscard]] double DecadeRatio() const {
    const auto decade = [](const QCPAxis& axis) {
      return std::abs(axis.coordToPixel(10) - axis.coordToPixel(1));
    };
    return decade(*Chart().xAxis) / decade(*Chart().yAxis);
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void EachAxisIsLogarithmicByItself() {
    Start();
    const struct {
      const char* action;
      const char* kinds;
      const char* kindsAtZero;
      bool both;
    } cases[] = {
        {"m_logload", "lin/log", "lin/log", false}, {"m_logtime", "lin/lin", "lin/lin", false},
        {"m_log", "log/log", "lin/log", true},      {"m_logtime", "log/lin", "lin/lin", false},
        {"m_logtime", "log/log", "lin/log", true},
    };
    for (const auto& [action, kinds, kindsAtZero, both] : cases) {
      Choose(action);
      QCOMPARE(Kinds(), QLatin1String(kinds));
      QCOMPARE(made_->Find<QAction>("m_log")->isChecked(), both);
      Read(2);
      QCOMPARE(Kinds(), QLatin1String(kindsAtZero));
      Read(0);
    }
  }

  void LimitsByHandAreKeptForTheFileInTheUnitsOfItsTables() {
    WindowFixture& f = Start();
    const QString whole = View();
    Choose("m_limits");
    QCOMPARE(View(), whole);
    f.dialogs.limits = AxisLimits{editor::Range{1, 40}, editor::Range{1, 20}};
    Choose("m_limits");
    QCOMPARE(View(), QStringLiteral("1..40 1..20"));
    Read(1);
    QVERIFY2(View().endsWith(QStringLiteral(" 1e+03..2e+04")), qPrintable(View()));
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    QCOMPARE(View(), QStringLiteral("5..200 1e+03..2e+04"));
    // A curve is never outside of the view.
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("1000"));
    QVERIFY(View().startsWith(QStringLiteral("8.8")));
    f.window.reset();
    f.Open();
    Read(0);
    QCOMPARE(View(), QStringLiteral("1..40 1..20"));
    f.Write("other.dat", kLibrary);
    f.dialogs.file = f.Path("other.dat");
    Choose("m_act");
    QCOMPARE(View(), whole);
  }

  void DecadesStaySquareWhateverTheWindowsSize() {
    WindowFixture& f = Start();
    QVERIFY(std::abs(DecadeRatio() - 1.0) > 0.05);
    Choose("m_square");
    for (const QSize& size : {QSize(1240, 820), QSize(1400, 700), QSize(1100, 900)}) {
      f.window->resize(size);
      QCoreApplication::processEvents();
      Chart().replot();
      QVERIFY2(std::abs(DecadeRatio() - 1.0) < 0.01, qPrintable(QString::number(DecadeRatio())));
      QVERIFY(Chart().xAxis->range().contains(2) && Chart().xAxis->range().contains(16));
      QVERIFY(Chart().yAxis->range().contains(2) && Chart().yAxis->range().contains(10));
    }
    Choose("m_log");
    Choose("m_square");
    Choose("m_log");
    QVERIFY(std::abs(DecadeRatio() - 1.0) > 0.05);
  }

  void LoadsAreLabelledInTheOtherUnitAndTheCurveStays() {
    WindowFixture& f = Start();
    const double place = Chart().xAxis->coordToPixel(4);
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("100"));
    const struct {
      const char* action;
      const char* title;
      bool thousand;
    } cases[] = {{"m_unitabs", "Load level (A)", true},
                 {"m_unitmult", "Load level (× pickup)", false},
                 {"m_unitgrid", "Load level (× pickup)", false}};
    f.Find<QAbstractButton>("Option1")->setChecked(true);
    for (const auto& [action, title, thousand] : cases) {
      Choose(action);
      QCOMPARE(Chart().xAxis->coordToPixel(4), place);
      QCOMPARE(Chart().xAxis->tickVectorLabels().contains(QStringLiteral("1000")), thousand);
      QVERIFY2(Chart().xAxis->label().startsWith(QStringLiteral("Load level")), title);
      QCOMPARE(Chart().xAxis->label() ==
                   Chart().xAxis->label().section('(', 0, 0) + QStringLiteral("(× pickup)"),
               !thousand);
    }
    QVERIFY(Chart().item(0)->visible());
    Choose("m_pickup");
    QVERIFY(!Chart().item(0)->visible());
    Choose("m_pickup");
    Read(1);
    f.Find<QLineEdit>("Text2")->clear();
    QVERIFY2(!Chart().item(0)->visible(), "amperes without a pickup value have no such line");
  }

  void ColoursAreChosenKeptAndGivenBack() {
    WindowFixture& f = Start();
    const QColor system = Chart().palette().color(QPalette::Base);
    const auto colour = [&] { return Chart().palette().color(QPalette::Base).lightness(); };
    Choose("m_coldark");
    QVERIFY(colour() < 80);
    QVERIFY(Chart().palette().color(QPalette::Text).lightness() > 180);
    f.window.reset();
    QCOMPARE(QApplication::palette().color(QPalette::Base), system);
    f.Open();
    QVERIFY(colour() < 80 && f.Find<QAction>("m_coldark")->isChecked());
    Choose("m_collight");
    QVERIFY(colour() > 200);
    Choose("m_colsystem");
    QCOMPARE(Chart().palette().color(QPalette::Base), system);
  }
};

}  // namespace
}  // namespace zentab::app

QTEST_MAIN(zentab::app::ChartWorkTest)
#include "chart_work_test.moc"
