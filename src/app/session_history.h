#pragma once

#include <memory>
#include <optional>
#include <system_error>

#include "app/session.h"
#include "editor/edit_history.h"
#include "tables/table_writer.h"

namespace zentab::app {

/// The table of a session with all that belongs to it, as it is now.
[[nodiscard]] editor::TableState StateOf(const Session& session);
/// Makes it the session's table. The current cell of the grid moves with it.
void Restore(const editor::TableState& state, Session& session);

/// What came of taking a step back or making it again.
struct HistoryOutcome {
  std::optional<editor::EditStep> step;    // nothing: there was none
  std::error_code error;                   // then nothing has changed
  std::optional<tables::EntryMark> entry;  // the one that the library has got back
  bool changedLibrary = false;
};

/// The history of a session's table and library: each command says what it is about to do, and what
/// it writes into the active table file is taken from the writer.
class SessionHistory {
 public:
  SessionHistory(Session& session, tables::TableWriter& writer);

  /// A command is about to change the table or the library.
  void Remember(editor::EditStep kind) { history_.Remember(kind, Now()); }

  /// The field of an open cell has taken back what was typed: the modified mark follows.
  void FollowField();

  /// What Undo and Redo would take back or make again.
  [[nodiscard]] std::optional<editor::EditStep> UndoStep() { return history_.NextUndo(Now()); }
  [[nodiscard]] std::optional<editor::EditStep> RedoStep() { return history_.NextRedo(Now()); }

  /// A step whose entry someone else has changed is left out of the history, and the error is
  /// tables::kEntryChanged. After any other error it can be tried again.
  HistoryOutcome Undo();
  HistoryOutcome Redo();

  /// Another table file was chosen.
  void EndLibrary() { history_.EndLibrary(); }

 private:
  using Move = editor::TableState (editor::EditHistory::*)(editor::TableState);
  using Drop = void (editor::EditHistory::*)();

  [[nodiscard]] editor::TableState Now();
  [[nodiscard]] bool IsLibrary(const std::filesystem::path& file) const;
  [[nodiscard]] HistoryOutcome Go(const editor::HistoryStep* step, Move move, Drop drop);
  [[nodiscard]] std::error_code Make(const tables::LineChange& change, HistoryOutcome& outcome);

  Session& session_;
  tables::TableWriter& writer_;
  editor::EditHistory history_;
  std::shared_ptr<const editor::TableOrigin> origin_;  // of the state that was asked for last
  bool isMaking_ = false;
};

}  // namespace zentab::app
