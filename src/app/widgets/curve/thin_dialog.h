#pragma once

#include "app/widgets/curve/curve_dialog.h"

class QSpinBox;

namespace zentab::app {

/// Fewer of the table's points.
class ThinDialog final : public CurveDialog {
  Q_OBJECT

 public:
  /// `logarithmic` as the chart's axes are.
  ThinDialog(const Session& session, editor::PreviewCurve& preview, const FormValues& last,
             bool logarithmic, QWidget* parent);

  [[nodiscard]] FormValues Values() const override;

 protected:
  [[nodiscard]] Proposed Propose() override;
  [[nodiscard]] std::string Describe(const CurveProposal& proposal) const override;

 private:
  QSpinBox* count_;
  std::size_t points_;  // of the table
  bool logarithmic_;
};

}  // namespace zentab::app
