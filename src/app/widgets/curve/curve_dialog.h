#pragma once

#include <QDialog>
#include <variant>

#include "app/session.h"
#include "app/standard_curve.h"

class QFormLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace zentab::editor {
class PreviewCurve;
}

namespace zentab::app {

/// A dialog that proposes another table for the grid and shows it in the chart while it is open.
/// It can only be confirmed while there is something to propose.
class CurveDialog : public QDialog {
  Q_OBJECT

 public:
  /// `name` is the object's name.
  CurveDialog(const char* name, const Session& session, editor::PreviewCurve& preview,
              QWidget* parent);

  /// Opens beside a part of its window, where the screen has the room, and returns.
  void OpenBeside(const QWidget& chart);

  /// What it proposes; no points where that is nothing.
  [[nodiscard]] const CurveProposal& Proposal() const { return proposal_; }
  /// The values to begin with the next time.
  [[nodiscard]] virtual FormValues Values() const = 0;

 protected:
  using Proposed = std::variant<CurveProposal, FormFault>;

  [[nodiscard]] virtual Proposed Propose() = 0;
  /// What to say of a proposal.
  [[nodiscard]] virtual std::string Describe(const CurveProposal& proposal) const;
  /// Whether what is proposed may be confirmed as well.
  [[nodiscard]] virtual bool CanBeTaken() const { return true; }
  /// Where to say what is wrong with a field; nothing: with the rest.
  [[nodiscard]] virtual QLabel* PlaceFor(const FormFault& fault);

  /// Something was changed, or the dialog is built.
  void Refresh();

  [[nodiscard]] const Session& CurrentSession() const { return session_; }
  [[nodiscard]] QVBoxLayout& Content() { return *content_; }

 private:
  const Session& session_;
  editor::PreviewCurve& preview_;
  QVBoxLayout* content_;
  QLabel* outcome_;
  QPushButton* ok_;
  CurveProposal proposal_;
};

}  // namespace zentab::app
