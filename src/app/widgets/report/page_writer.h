#pragma once

#include <qcustomplot.h>
#include <QFont>
#include <QString>
#include <vector>

namespace zentab::app {

/// The letters of a page, by what they are for.
enum class PageText { Title, Heading, Line, Small, Cell, CellHeading, CellMarked };

/// Lengths on a page are tenths of a point, 1/720 inch.
inline constexpr double kPageUnitsPerInch = 720.0;
[[nodiscard]] constexpr double Points(double points) { return points * 10.0; }

/// Writes lines of text on a page from above, each as long as the place for it allows.
class PageWriter {
 public:
  explicit PageWriter(QCPPainter& painter) : painter_(painter) {}

  /// Puts a line into a place, shortened at its end or, for a path, in its middle where it is too
  /// long.
  void Put(const QRectF& place, const QString& text, PageText kind,
           Qt::Alignment alignment = Qt::AlignLeft, Qt::TextElideMode mode = Qt::ElideRight);
  /// A thin line across, at that height.
  void Rule(double left, double right, double y, bool isStrong);

  [[nodiscard]] static double LineHeight(PageText kind);
  [[nodiscard]] static double Width(const QString& text, PageText kind);
  /// The text broken into lines no wider than `width`, at most that many.
  [[nodiscard]] static std::vector<QString> Broken(const QString& text, PageText kind, double width,
                                                   std::size_t most);

 private:
  QCPPainter& painter_;
};

}  // namespace zentab::app
