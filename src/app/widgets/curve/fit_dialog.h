#pragma once

#include <optional>
#include <set>
#include <vector>

#include "app/curve_fitting.h"
#include "app/widgets/curve/curve_dialog.h"

class QCheckBox;
class QListWidget;
class QTableWidget;

namespace zentab::app {

/// The characteristics that come closest to the table's points, of which one can be chosen; points
/// can be left out.
class FitDialog final : public CurveDialog {
  Q_OBJECT

 public:
  FitDialog(const Session& session, editor::PreviewCurve& preview, const FormValues& last,
            QWidget* parent);

  [[nodiscard]] FormValues Values() const override;

 protected:
  [[nodiscard]] Proposed Propose() override;
  [[nodiscard]] std::string Describe(const CurveProposal& proposal) const override;

 private:
  void BuildPoints();
  void BuildFits();
  void FitAgain();
  void ShowFits(const std::vector<curves::FamilyFit>& fits);
  [[nodiscard]] std::set<int> Excluded() const;

  QListWidget* points_;
  QTableWidget* table_;
  QCheckBox* pickupFree_;
  std::vector<curves::FamilyFit> fits_;
  std::optional<curves::Family> chosen_;
  std::string fault_;
  std::size_t leftOut_ = 0;
};

}  // namespace zentab::app
