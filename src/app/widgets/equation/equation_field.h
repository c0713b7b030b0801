#pragma once

#include <QLineEdit>
#include <vector>

#include "app/equation_words.h"

class QCompleter;
class QStandardItemModel;

namespace zentab::app {

/// A field for an equation: completes the names of its variables, of functions, constants and
/// units as they are typed (or at Ctrl+Space), shows what each of them means, and underlines the
/// character at fault.
class EquationField : public QLineEdit {
  Q_OBJECT

 public:
  /// `variables` are the equation's own.
  EquationField(const Session& session, std::vector<EquationWord> variables, QWidget* parent);

  /// What is to be said of the text as it stands.
  [[nodiscard]] const EquationRemark& Remark() const { return remark_; }

  /// Whether the Return key belongs to the field: Confirmed is emitted, and no dialog closes by it.
  void SetTakesReturn(bool takes) { takesReturn_ = takes; }

 Q_SIGNALS:
  void Confirmed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void paintEvent(QPaintEvent* event) override;

 public Q_SLOTS:
  /// Looks at the text again; every change of it does.
  void Check();

 private:
  void Offer(bool isAsked);
  void ShowMeaning(const QModelIndex& index);
  void Insert(const QModelIndex& index);
  [[nodiscard]] bool IsOffering() const;
  [[nodiscard]] std::optional<WordAtCursor> WordHere() const;

  const Session& session_;
  std::vector<EquationWord> variables_;
  QStandardItemModel* names_;
  QStandardItemModel* units_;
  QCompleter* completer_;
  EquationRemark remark_;
  bool takesReturn_ = false;
};

}  // namespace zentab::app
