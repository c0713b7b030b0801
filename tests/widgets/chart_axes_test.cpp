#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <set>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/difference_panel.h"
#include "editor/widgets/chart/overlay_style.h"
#include "widgets/chart_fixture.h"

namespace zentab::app {
namespace {

// The axes, further curves and colours.
class ChartAxesTest : public ChartFixture {
  Q_OBJECT

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
        {"m_log", "log/log", "lin/lin", true},      {"m_logtime", "log/lin", "lin/lin", false},
        {"m_logtime", "log/log", "lin/lin", true},
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
    f.dialogs.limits = AxisLimits{editor::Range{1, 100}, editor::Range{1, 20}};
    Choose("m_limits");
    QCOMPARE(View(), QStringLiteral("1..100 1..20"));
    QCOMPARE(Chart().xAxis->tickVectorLabels().last(), QStringLiteral("100"));
    Read(1);
    QVERIFY2(View().endsWith(QStringLiteral(" 1e+03..2e+04")), qPrintable(View()));
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("5"));
    QCOMPARE(View(), QStringLiteral("5..500 1e+03..2e+04"));
    // A curve is never outside of the view.
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("1000"));
    QVERIFY(View().startsWith(QStringLiteral("8.8")));
    f.window.reset();
    f.Open();
    Read(0);
    QCOMPARE(View(), QStringLiteral("1..100 1..20"));
    f.Write("other.dat", "{\"SI\"\t(2;10)(4;5) 001}\r\n");
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
    DragBy(PlaceOf(12, 8), {-60, 30});
    const QString view = View();
    f.window->resize(1200, 800);
    QCoreApplication::processEvents();
    QCOMPARE(View(), view);
    Choose("m_square");
    Choose("m_log");
    QVERIFY(std::abs(DecadeRatio() - 1.0) > 0.05);
  }

  void LoadsAreLabelledInTheOtherUnitAndTheCurveStays() {
    WindowFixture& f = Start();
    const double place = Chart().xAxis->coordToPixel(4);
    Chart().SetDecimalSeparator(QStringLiteral(","));  // whose languages group digits
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
    Read(1);
    f.Find<QLineEdit>("Text2")->clear();
    QVERIFY2(!Chart().item(0)->visible(), "amperes without a pickup value have no such line");
  }

  void FurtherCurvesAreConvertedListedAndCompared() {
    WindowFixture& f = Start();
    QVERIFY(Legend().isEmpty());
    QMimeData text;
    text.setText(QStringLiteral("1"));
    QDragEnterEvent other({20, 20}, Qt::CopyAction, &text, Qt::LeftButton, {});
    other.ignore();
    QCoreApplication::sendEvent(Chart().parentWidget(), &other);
    QVERIFY2(!other.isAccepted(), "what is no entry is for others");
    DropEntries({0, 1});
    f.Select(2);
    Choose("m_cmpentry");
    QCOMPARE(Legend(), QStringLiteral("+Table in the grid|+SI|-Amperes (not shown: the pickup "
                                      "value is missing)|+Zero"));
    QCOMPARE(Kinds(), QStringLiteral("lin/lin"));
    auto& legend = *f.Find<editor::CurveLegend>("ListLegend");
    legend.setFocus();
    legend.setCurrentIndex({});
    Choose("m_reference");
    Q_EMIT legend.customContextMenuRequested({5, 5});
    QVERIFY2(QApplication::activePopupWidget() == nullptr, "no curve is chosen");
    legend.setCurrentIndex(legend.model()->index(3, 0));
    QTest::keyClick(&legend, Qt::Key_Space);
    QCOMPARE(Kinds(), QStringLiteral("log/log"));
    QVERIFY(!Chart().xAxis->range().contains(20));
    f.Find<QLineEdit>("Text2")->setText(QStringLiteral("2"));
    QCOMPARE(Legend(), QStringLiteral("+Table in the grid|+SI|+Amperes|-Zero"));
    QVERIFY2(Chart().xAxis->range().contains(40), "80 A of a pickup value of 2 A");
    QVERIFY(Chart().yAxis->range().contains(2.5) && Chart().yAxis->range().contains(10));
    auto& panel = *f.Find<editor::DifferencePanel>("DifferencePanel");
    QVERIFY(panel.isHidden());
    Choose("m_difference");
    QVERIFY(panel.isVisible());
    QCOMPARE(Legend().section('|', 0, 0), QStringLiteral("+Table in the grid (reference)"));
    QCOMPARE(panel.plottableCount(), 2);
    legend.setCurrentIndex(legend.model()->index(1, 0));
    Choose("m_reference");
    f.session.table.grid.SetCell(2, 2, "6");
    Chart().ShowCurve(editor::CurveOf(f.session.table.grid, "."));
    auto& own = *static_cast<QCPCurve*>(panel.plottable(0))->data();
    const auto most = std::max_element(
        own.begin(), own.end(), [](const auto& a, const auto& b) { return a.value < b.value; });
    QCOMPARE(most->key, 4.0);
    QVERIFY(std::abs(most->value - 20.0) < 1e-9);
    QTest::keyClick(&legend, Qt::Key_Delete);
    QCOMPARE(Legend(), QStringLiteral("+Table in the grid (reference)|+Amperes|-Zero"));
    f.Write("other.dat", "{\"One\"\t(1;1)(2;2) 001}\r\n{\"Two\"\t(2;4)(3;3) 001}\r\n");
    f.dialogs.file = f.Path("other.dat");
    f.dialogs.entries = {1};
    Choose("m_cmpfile");
    QCOMPARE(f.dialogs.asked.back(), "Curves of other.dat");
    QVERIFY(Legend().endsWith(QStringLiteral("|+Two (other.dat)")));
    legend.setCurrentIndex(legend.model()->index(3, 0));
    Choose("m_reference");
    Choose("m_cmpnone");
    QVERIFY(Legend().isEmpty() && panel.isHidden());
    QVERIFY(Chart().isVisible());
  }

  void FurtherCurvesDifferInDashAndColourOnAnyBackground() {
    for (const char* const base : {"white", "black", "#232629", "#777777", "yellow"}) {
      std::set<std::pair<QRgb, QList<qreal>>> pens;
      for (int number = 0; number < 42; ++number) {
        const QPen pen = editor::OverlayPen(number, QColor(base));
        QVERIFY(editor::ContrastOf(pen.color(), QColor(base)) >= 3.0);
        pens.insert({pen.color().rgb(), pen.dashPattern()});
        QVERIFY(pen.dashPattern() != editor::OverlayPen(number + 1, QColor(base)).dashPattern());
      }
      QVERIFY2(pens.size() >= 35, base);
    }
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

QTEST_MAIN(zentab::app::ChartAxesTest)
#include "chart_axes_test.moc"
