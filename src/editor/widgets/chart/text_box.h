#pragma once

#include <QStringList>
#include <QWidget>

namespace zentab::editor {

/// A few short texts in a frame over the chart, in rows of columns. The mouse acts on what lies
/// below. It takes the size that its texts need.
class TextBox : public QWidget {
  Q_OBJECT

 public:
  explicit TextBox(QWidget* parent);

  void SetRows(const QList<QStringList>& rows);
  [[nodiscard]] const QList<QStringList>& Rows() const { return rows_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Measure();

  QList<QStringList> rows_;
  QList<int> widths_;  // of the columns, logical pixels
};

}  // namespace zentab::editor
