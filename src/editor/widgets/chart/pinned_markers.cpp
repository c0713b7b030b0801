#include "editor/widgets/chart/pinned_markers.h"

#include <QPainter>
#include <utility>

#include "editor/widgets/chart/chart_colours.h"
#include "editor/widgets/chart/curve_chart.h"
#include "editor/widgets/chart/text_box.h"

namespace zentab::editor {
namespace {

constexpr int kCross = 11;   // the side of the cross; its middle is the place
constexpr int kLetter = 14;  // beside it
constexpr int kCorner = 8;   // from the box to the plot's edges

// A cross on the place, and the marker's letter at its upper right.
class Flag : public QWidget {
 public:
  Flag(QWidget* parent, QChar letter) : QWidget(parent), letter_(letter) {
    setObjectName(QStringLiteral("Marker") + letter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(kCross + kLetter, kCross + kLetter);
    hide();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QColor text = palette().color(QPalette::Text);
    constexpr int kMiddle = kCross / 2;
    painter.setPen(QPen(text, 1.0));
    painter.drawLine(0, kLetter + kMiddle, kCross - 1, kLetter + kMiddle);
    painter.drawLine(kMiddle, kLetter, kMiddle, kLetter + kCross - 1);
    const QRect letter(kCross, 0, kLetter, kLetter);
    painter.fillRect(letter, text);
    painter.setPen(palette().color(QPalette::Base));
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(letter, Qt::AlignCenter, letter_);
  }

 private:
  QChar letter_;
};

}  // namespace

PinnedMarkers::PinnedMarkers(CurveChart& chart, Words words)
    : QObject(&chart), chart_(chart), words_(std::move(words)), box_(new TextBox(&chart)) {
  markers_[0].flag = new Flag(&chart, 'A');
  markers_[1].flag = new Flag(&chart, 'B');
  box_->setObjectName(QStringLiteral("MarkerText"));
  connect(&chart, &CurveChart::CurveShown, this, &PinnedMarkers::Place);
  connect(&chart, &QCustomPlot::afterReplot, this, &PinnedMarkers::Place);
}

void PinnedMarkers::Pin(Which which, const Reading& place) {
  markers_.at(static_cast<std::size_t>(which)).place = place;
  Refresh();
}

void PinnedMarkers::Clear() {
  for (Marker& marker : markers_) marker.place.reset();
  Refresh();
}

void PinnedMarkers::Refresh() {
  const QList<QStringList> rows = words_(markers_[0].place, markers_[1].place);
  box_->SetRows(rows);
  box_->setVisible(!rows.isEmpty());
  Place();
}

void PinnedMarkers::Place() {
  const QRect area = chart_.axisRect()->rect();
  for (const Marker& marker : markers_) {
    if (!marker.place) {
      marker.flag->hide();
      continue;
    }
    const QPointF place(chart_.xAxis->coordToPixel(marker.place->load),
                        chart_.yAxis->coordToPixel(marker.place->time.value_or(0.0)));
    // Beyond the limits of a window, a place has no pixel.
    const bool isInView = QRectF(area).contains(place);
    marker.flag->setVisible(isInView);
    if (isInView) {
      marker.flag->move(static_cast<int>(place.x()) - kCross / 2,
                        static_cast<int>(place.y()) - kCross / 2 - kLetter);
    }
  }
  // Where operating times fall with the load, the curve leaves this corner free.
  box_->move(area.right() - kCorner - box_->width(), area.top() + kCorner);
}

}  // namespace zentab::editor
