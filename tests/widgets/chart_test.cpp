#include <QTest>
#include <QWheelEvent>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"

namespace zentab::editor {
namespace {

ChartCurve Curve(std::initializer_list<QPointF> points) {
  CurveGrid grid;
  int row = kFirstRow;
  for (const QPointF& point : points) {
    grid.SetCell(row, kLoadColumn, QString::number(point.x()).toStdString());
    grid.SetCell(row, kTimeColumn, QString::number(point.y()).toStdString());
    ++row;
  }
  return CurveOf(grid, ".");
}

const ChartCurve& Usual() {
  static const ChartCurve curve = Curve({{1, 30}, {1.5, 10.3}, {2.7, 4.1}, {5.3, 2}, {9, 1}});
  return curve;
}

// The middle of what is drawn around a place, both in logical pixels.
QPointF MiddleOfMark(const QImage& picture, const QPointF& place, const QColor& background) {
  const double ratio = picture.devicePixelRatioF();
  const QPoint centre = (place * ratio).toPoint();
  const int reach = static_cast<int>(10 * ratio);
  QPointF sum;
  double weights = 0;
  for (int y = centre.y() - reach; y <= centre.y() + reach; ++y) {
    for (int x = centre.x() - reach; x <= centre.x() + reach; ++x) {
      const double weight = std::abs(qGray(picture.pixel(x, y)) - qGray(background.rgb()));
      sum += QPointF(x + 0.5, y + 0.5) * weight;
      weights += weight;
    }
  }
  return sum / weights / ratio;
}

// Runs at several scales of the screen.
class ChartTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<CurveChart> made_;

  CurveChart& Start() {
    made_ = std::make_unique<CurveChart>(nullptr);
    made_->resize(520, 410);
    made_->hide();
    made_->ShowCurve(Usual());
    if (!QTest::qWaitForWindowExposed(made_.get())) qFatal("the chart is not shown");
    made_->replot();
    return *made_;
  }
  void Zoom(const QPointF& place, int steps) {
    for (int step = 0; step < steps; ++step) {
      QWheelEvent wheel(place, made_->mapToGlobal(place), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                        false);
      QCoreApplication::sendEvent(made_.get(), &wheel);
    }
  }
  [[nodiscard]] bool IsWholeInView(const ChartCurve& curve) const {
    return made_->xAxis->range().contains(curve.load.minimum) &&
           made_->xAxis->range().contains(curve.load.maximum) &&
           made_->yAxis->range().contains(curve.time.minimum) &&
           made_->yAxis->range().contains(curve.time.maximum);
  }

 private Q_SLOTS:
  void cleanup() { made_.reset(); }

  void MarkersLieOnTheirPoints() {
    CurveChart& chart = Start();
    const double scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
    QCOMPARE(chart.devicePixelRatioF(), scale);
    static_cast<QCPCurve*>(chart.plottable(0))->setLineStyle(QCPCurve::lsNone);
    for (QCPAxis* const axis : {chart.xAxis, chart.yAxis}) axis->grid()->setVisible(false);
    chart.MarkRow(2);
    const QColor background = chart.palette().color(QPalette::Base);
    // From the plot's own picture, and drawn straight to the window as after an edit.
    for (const bool straight : {false, true}) {
      chart.replot();
      if (straight) chart.ShowCurve(Curve({{1, 30}, {1.6, 10.3}, {2.7, 4.1}, {5.3, 2}, {9, 1}}));
      const QImage picture = chart.grab().toImage();
      for (const QPointF& point : {QPointF(1, 30), QPointF(straight ? 1.6 : 1.5, 10.3),
                                   QPointF(2.7, 4.1), QPointF(5.3, 2), QPointF(9, 1)}) {
        const QPointF place(chart.xAxis->coordToPixel(point.x()),
                            chart.yAxis->coordToPixel(point.y()));
        // A coordinate is drawn in the middle of its pixel.
        const QPointF off =
            MiddleOfMark(picture, place, background) * scale - (place * scale + QPointF(0.5, 0.5));
        const double most = std::max(std::abs(off.x()), std::abs(off.y()));
        QVERIFY2(
            most <= 0.25,
            qPrintable(QStringLiteral("%1 device pixels at load %2").arg(most).arg(point.x())));
      }
    }
  }

  void TheCurveStandsOutOnAnyPalette() {
    CurveChart& chart = Start();
    for (const char* const base :
         {"white", "black", "#232629", "#1e1e1e", "#757575", "#777777", "#808080", "#fdf6e3",
          "#002b36", "red", "lime", "blue", "yellow", "#1f6fc4", "#308cc6", "#5e7fa0"}) {
      for (const char* const highlight : {"#308cc6", "white", "black", "#4a4a4a"}) {
        QPalette colours;
        colours.setColor(QPalette::Base, QColor(base));
        colours.setColor(QPalette::Highlight, QColor(highlight));
        chart.setPalette(colours);
        const QCPGrid& grid = *chart.xAxis->grid();
        const struct {
          QPen pen;
          double least;
        } lines[] = {{chart.plottable(0)->pen(), 4.5},
                     {chart.xAxis->basePen(), 3.0},
                     {grid.pen(), 1.3},
                     {grid.subGridPen(), 1.3}};
        for (const auto& [pen, least] : lines) {
          const double contrast = ContrastOf(pen.color(), QColor(base));
          QVERIFY2(contrast >= least, qPrintable(QStringLiteral("%1: %2").arg(base).arg(contrast)));
        }
      }
    }
    QCOMPARE(LineOn(Qt::white, Qt::red, 3.0).red(), 255);
    QVERIFY(std::abs(ContrastOf(Qt::black, Qt::white) - 21.0) < 1e-9);
    QVERIFY(std::abs(ContrastOf(QColor("#777777"), Qt::white) - 4.478) < 1e-3);
  }

  void AZoomLastsWhileAnyOfTheCurveIsInView() {
    CurveChart& chart = Start();
    const auto showsWhole = [&](const ChartCurve& curve) {
      chart.ShowCurve(curve);
      return IsWholeInView(curve);
    };
    QVERIFY(showsWhole(Usual()));
    const QPointF place(chart.xAxis->coordToPixel(2.7), chart.yAxis->coordToPixel(4.1));
    Zoom(place, 8);
    const QCPRange loads = chart.xAxis->range();
    // One point is left in view, then none but the line between two of them.
    for (const ChartCurve& left : {Curve({{1, 30}, {2.7, 4.2}, {9, 1}}),
                                   Curve({{2.7, 4.1}, {1, 30}}), Curve({{1, 4.1}, {9, 4.1}})}) {
      QVERIFY(!showsWhole(left));
      QCOMPARE(chart.xAxis->range(), loads);
    }
    chart.HoldView(true);
    chart.HoldView(false);
    chart.SetExtent(&chart, Extent{{1, 99}, {1, 99}});
    QCOMPARE(chart.xAxis->range(), loads);
    const ChartCurve far = Curve({{100, 0.7}, {200, 0.5}});
    QVERIFY(showsWhole(far));
    for (const bool isCurve : {true, false}) {
      Zoom(place, 8);
      chart.SetExtent(&chart, {});
      QVERIFY(!showsWhole({}) && chart.isHidden());
      isCurve ? chart.ShowCurve(far) : chart.SetExtent(&chart, Extent{far.load, far.time});
      QVERIFY(IsWholeInView(far) && chart.IsLogarithmic());
    }
    Zoom(place, 8);
    QVERIFY2(showsWhole(Curve({{0, 9}, {150, 0.6}})), "on other axes");
  }
};

}  // namespace
}  // namespace zentab::editor

QTEST_MAIN(zentab::editor::ChartTest)
#include "chart_test.moc"
