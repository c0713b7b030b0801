#pragma once

#include <QObject>

#include "app/session.h"
#include "editor/widgets/chart/pinned_markers.h"

class QMenu;

namespace zentab::editor {
class Crosshair;
class CurveGridView;
}  // namespace zentab::editor

namespace zentab::app {

/// Reading the chart: the crosshair, the point and the grid row that light up together, and the
/// markers A and B with their entries of the View menu.
class ReadOutController : public QObject {
  Q_OBJECT

 public:
  ReadOutController(const Session& session, editor::CurveChart& chart, editor::CurveGridView& grid);

  /// Adds the entries for the markers at the end of a menu.
  void AddTo(QMenu& view);

 public Q_SLOTS:
  /// The value modes or the texts are others.
  void Refresh();

 private:
  void Pin(editor::PinnedMarkers::Which which);
  [[nodiscard]] editor::ReadingUnits Units() const;

  const Session& session_;
  editor::CurveChart& chart_;
  editor::Crosshair* crosshair_;
  editor::PinnedMarkers* markers_;
};

}  // namespace zentab::app
