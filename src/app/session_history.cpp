#include "app/session_history.h"

#include <utility>

#include "app/library_commands.h"

namespace zentab::app {

editor::TableState StateOf(const Session& session) {
  const editor::CurveGrid& grid = session.table.grid;
  return {
      editor::Pack(grid, session.modes, session.instrument),
      std::make_shared<editor::TableOrigin>(editor::TableOrigin{session.source, session.stored}),
      grid.Row(), grid.Col(), session.table.tableModified};
}

void Restore(const editor::TableState& state, Session& session) {
  editor::Unpack(state.table, session.table.grid, session.modes, session.instrument);
  session.table.grid.MoveTo(state.row, state.column);
  session.table.tableModified = state.modified;
  session.source = state.origin->source;
  session.stored = state.origin->stored;
}

SessionHistory::SessionHistory(Session& session, tables::TableWriter& writer)
    : session_(session), writer_(writer) {
  writer.OnChange([this](const tables::LineChange& change) {
    if (isMaking_) return;
    // What was copied into another file is not the library's.
    if (IsLibrary(change.file)) history_.Attach(change, Now());
  });
}

bool SessionHistory::IsLibrary(const std::filesystem::path& file) const {
  const auto ask = [file, active = ActiveTableFile(writer_.Files(), PlaceOf(session_))] {
    std::error_code unknown;
    return file == active || std::filesystem::equivalent(file, active, unknown);
  };
  return platform::AskFor(writer_.Files(), ask).value_or(false);
}

// Steps in a row mostly have one origin, which is kept once.
editor::TableState SessionHistory::Now() {
  editor::TableState state = StateOf(session_);
  if (!origin_ || *origin_ != *state.origin) origin_ = state.origin;
  state.origin = origin_;
  return state;
}

void SessionHistory::FollowField() {
  session_.table.tableModified = history_.MarkBefore(Now()).value_or(session_.table.tableModified);
}

std::error_code SessionHistory::Make(const tables::LineChange& change, HistoryOutcome& outcome) {
  isMaking_ = true;
  outcome.error = writer_.Make(change, session_.listing);
  isMaking_ = false;
  outcome.changedLibrary = true;
  if (!outcome.error) outcome.entry = tables::FirstEntry(change, session_.listing);
  return outcome.error;
}

HistoryOutcome SessionHistory::Undo() {
  return Go(history_.ToUndo(Now()), &editor::EditHistory::Undo, &editor::EditHistory::DropUndo);
}

HistoryOutcome SessionHistory::Redo() {
  return Go(history_.ToRedo(Now()), &editor::EditHistory::Redo, &editor::EditHistory::DropRedo);
}

HistoryOutcome SessionHistory::Go(const editor::HistoryStep* step, Move move, Drop drop) {
  HistoryOutcome outcome;
  if (step == nullptr) return outcome;
  outcome.step = step->kind;
  // On either side of the step its change is the one that led there.
  if (step->change && Make(step->change->Reversed(), outcome)) {
    if (outcome.error == tables::kEntryChanged) (history_.*drop)();
    return outcome;
  }
  Restore((history_.*move)(Now()), session_);
  return outcome;
}

}  // namespace zentab::app
