#pragma once

#include <QImage>
#include <array>
#include <memory>
#include <vector>

#include "editor/widgets/chart/chart_view.h"

namespace zentab::editor {

/// Points of load and time by the thousand, as dots under the curves of the chart. What falls on
/// one pixel is one dot, whatever the number of points; they are drawn once for a view and put down
/// as a picture after that.
class PointCloud : public QCPLayerable {
  Q_OBJECT

 public:
  using Points = std::shared_ptr<const std::vector<QPointF>>;  // null: none
  /// What the dots stand for; the later ones lie above the former.
  enum class Kind { Measured, Shaped, Removed };
  static constexpr std::size_t kKinds = 3;

  explicit PointCloud(CurveChart& chart);

  /// Shows points in the units of the chart's axes. The measured ones belong into its view.
  void Show(Kind kind, Points points);
  void Hide();

  /// The colour of a kind's dots on a background.
  [[nodiscard]] static QColor ColourOf(Kind kind, const QColor& background, const QColor& text);

 protected:
  [[nodiscard]] QRect clipRect() const override;
  void applyDefaultAntialiasingHint(QCPPainter* painter) const override;
  void draw(QCPPainter* painter) override;

 private:
  // The points of a kind, and the picture of their dots; null where it is to be made.
  struct Dots {
    Points points;
    QImage picture;
  };

  [[nodiscard]] QImage PictureOf(Kind kind, const std::vector<QPointF>& points) const;
  void DrawDots(QImage& picture, const std::vector<QPointF>& points, const QColor& colour,
                int size) const;

  CurveChart& chart_;
  std::array<Dots, kKinds> dots_;
  ChartView shown_;
};

}  // namespace zentab::editor
