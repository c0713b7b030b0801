#pragma once

#include <cstddef>
#include <deque>
#include <optional>

#include "editor/edit_step.h"
#include "editor/table_state.h"
#include "tables/line_change.h"

namespace zentab::editor {

/// A step of the user's work that can be taken back.
struct HistoryStep {
  EditStep kind;
  TableState table;                          // as it was on the other side of the step
  std::optional<tables::LineChange> change;  // of the library; of undoing it once it is undone
};

/// What the user has done with the table and the library, in one row, to be taken back and done
/// again. A step is remembered before it is made; one that turned out to change nothing is none.
class EditHistory {
 public:
  /// The bytes that all steps may take; beyond them the oldest ones go.
  static constexpr std::size_t kMostBytes = std::size_t{256} << 20;

  /// A step is about to change `now`. Every step before that is complete.
  void Remember(EditStep kind, TableState now);

  /// The step remembered last has changed the library as well; `now` is the table before that when
  /// nothing was remembered.
  void Attach(tables::LineChange change, const TableState& now);

  /// What has been done since the last step was remembered has been taken back by other means: the
  /// modified mark that `now` had before. Nothing when it has not.
  [[nodiscard]] std::optional<bool> MarkBefore(const TableState& now) const;

  /// What Undo or Redo would do. The step being made goes on.
  [[nodiscard]] std::optional<EditStep> NextUndo(const TableState& now) const;
  [[nodiscard]] std::optional<EditStep> NextRedo(const TableState& now) const;

  /// The step that Undo would take back from `now`, or Redo make again; nothing when there is none.
  [[nodiscard]] const HistoryStep* ToUndo(const TableState& now);
  [[nodiscard]] const HistoryStep* ToRedo(const TableState& now);

  /// Takes the last step back, which ToUndo has just told: the table to be shown instead of `now`.
  [[nodiscard]] TableState Undo(TableState now);
  [[nodiscard]] TableState Redo(TableState now);

  /// Leaves out the step that ToUndo or ToRedo has just told, because nothing can bring it back.
  void DropUndo();
  void DropRedo();

  /// The library of the steps is no longer at hand: only what they did in the grid stays.
  void EndLibrary();

  [[nodiscard]] std::size_t Size() const { return done_.size() + undone_.size(); }
  /// What the steps take, in bytes.
  [[nodiscard]] std::size_t Bytes() const { return bytes_; }

 private:
  [[nodiscard]] TableState Move(std::deque<HistoryStep>& from, std::deque<HistoryStep>& to,
                                TableState now);
  void Settle(const TableState& now);
  void Add(HistoryStep step);
  void Push(std::deque<HistoryStep>& steps, HistoryStep step);
  HistoryStep Pop(std::deque<HistoryStep>& steps);
  void Clear(std::deque<HistoryStep>& steps);

  std::deque<HistoryStep> done_;
  std::deque<HistoryStep> undone_;
  std::optional<HistoryStep> pending_;  // remembered, not known yet to change anything
  std::size_t bytes_ = 0;
};

}  // namespace zentab::editor
