#pragma once

#include <QListView>
#include <QPen>
#include <vector>

class QStandardItemModel;

namespace zentab::editor {

/// A row of the legend.
struct LegendRow {
  QString text;
  QPen pen;
  bool isOn = true;
  bool isShowable = true;  // others cannot be switched
};

/// The names of the curves in the chart with their lines, each with a box that switches it off.
class CurveLegend : public QListView {
  Q_OBJECT

 public:
  explicit CurveLegend(QWidget* parent);

  /// The first row is the grid's own curve, which stays. Without another there is no legend.
  void Show(const std::vector<LegendRow>& rows);

  /// The row with the keyboard's place, -1 for none.
  [[nodiscard]] int CurrentRow() const { return currentIndex().row(); }

 Q_SIGNALS:
  void Switched(int row, bool on);
  void RemovalWanted(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  QStandardItemModel* model_;
};

}  // namespace zentab::editor
