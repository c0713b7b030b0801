#pragma once

#include <memory>
#include <optional>

#include "app/last_result.h"
#include "app/widgets/curve/curve_dialog.h"
#include "app/widgets/testset/preview_worker.h"
#include "app/widgets/testset/stage_fields.h"

class QLabel;

namespace zentab::editor {
class PointCloud;
}

namespace zentab::app {

class EquationEditor;

/// A time test with what an import would make of it: its points in the chart, the parameters of the
/// stages, the equations. What changes is shown at once.
class WorkbenchDialog final : public CurveDialog {
  Q_OBJECT

 public:
  /// The points, as the chart has them as well.
  struct Test {
    TimeTestPoints points;
    std::shared_ptr<const std::vector<QPointF>> shown;
  };

  WorkbenchDialog(const Session& session, editor::PreviewCurve& preview, editor::PointCloud& cloud,
                  const timetest::ImportOptions& first, const StageTips& tips, QWidget* parent);

  /// The points have been read; `last` is the result that was imported last, if any.
  void TakeTest(std::shared_ptr<const Test> test, const std::optional<ResultFile>& last);
  [[nodiscard]] const StageFields& Stages() const { return *stages_; }
  [[nodiscard]] EquationEditor& Equations() { return *equations_; }
  [[nodiscard]] FormValues Values() const override { return {}; }

 protected:
  [[nodiscard]] Proposed Propose() override;
  [[nodiscard]] std::string Describe(const CurveProposal& proposal) const override;
  [[nodiscard]] bool CanBeTaken() const override;

 private:
  void Follow();
  void FollowNumber(texts::EquationStage stage, int number);
  void TakePreview(const std::shared_ptr<const ImportPreview>& preview);
  void ShowSource(const std::optional<ResultFile>& last);
  [[nodiscard]] std::optional<EquationId> UnwrittenInUse() const;

  editor::PointCloud& cloud_;
  PreviewWorker worker_;
  std::shared_ptr<const Test> test_;
  std::shared_ptr<const ImportPreview> preview_;
  QLabel* source_;
  QLabel* older_;
  StageFields* stages_;
  EquationEditor* equations_;
};

}  // namespace zentab::app
