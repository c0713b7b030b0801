#pragma once

#include "app/widgets/curve/curve_dialog.h"

namespace zentab::app {

class FormFields;

/// The table's curve at other loads.
class ResampleDialog final : public CurveDialog {
  Q_OBJECT

 public:
  /// `logarithmic` as the chart's axes are.
  ResampleDialog(const Session& session, editor::PreviewCurve& preview, const FormValues& last,
                 bool logarithmic, QWidget* parent);

  [[nodiscard]] FormValues Values() const override;

 protected:
  [[nodiscard]] Proposed Propose() override;

 private:
  void FollowFields();

  FormFields* fields_;
  bool logarithmic_;
};

}  // namespace zentab::app
