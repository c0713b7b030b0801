#pragma once

#include <QObject>
#include <functional>

#include "app/widgets/status_line.h"
#include "app/widgets/table/recovery_keeper.h"
#include "editor/edit_step.h"
#include "editor/widgets/curve_grid_view.h"

namespace zentab::app {

/// Who in the window listens to what commands of every kind tell, by the names of their signals.
struct CommandListeners {
  StatusLine& status;
  editor::CurveGridView& grid;
  RecoveryKeeper& recovery;
  std::function<void(editor::EditStep)> remember;

  /// Connects those signals that the commands have.
  template <typename Commands>
  void Follow(const Commands* commands) const {
    if constexpr (requires { &Commands::CommandBegun; }) {
      QObject::connect(commands, &Commands::CommandBegun, &status, &StatusLine::Clear);
    }
    if constexpr (requires { &Commands::GridNeeded; }) {
      QObject::connect(commands, &Commands::GridNeeded, &grid, &editor::CurveGridView::CloseEditor);
      QObject::connect(commands, &Commands::GridNeeded, &status, &StatusLine::Clear);
    }
    if constexpr (requires { &Commands::AboutToChange; }) {
      QObject::connect(commands, &Commands::AboutToChange, &status, remember);
    }
    if constexpr (requires { &Commands::TableChanged; }) {
      QObject::connect(commands, &Commands::TableChanged, &recovery, &RecoveryKeeper::Follow);
    }
    if constexpr (requires { &Commands::TableImported; }) {
      QObject::connect(commands, &Commands::TableImported, &recovery, &RecoveryKeeper::Follow);
    }
    if constexpr (requires { &Commands::Failed; }) {
      QObject::connect(commands, &Commands::Failed, &status, &StatusLine::ShowFailure);
    }
    if constexpr (requires { &Commands::Told; }) {
      QObject::connect(commands, &Commands::Told, &status, &StatusLine::ShowFailure);
    }
  }
  template <typename... Commands>
  void FollowAll(const Commands*... commands) const {
    (Follow(commands), ...);
  }
};

}  // namespace zentab::app
