#include "editor/edit_history.h"

#include <algorithm>
#include <utility>

namespace zentab::editor {
namespace {

std::size_t BytesOf(const HistoryStep& step) {
  std::size_t bytes = sizeof step + step.table.table.capacity();
  if (step.change) bytes += step.change->before.capacity() + step.change->after.capacity();
  return bytes;
}

// What was stored by a step that is no longer there, or never will be, no file has any more.
void LeaveUnstored(EditStep dropped, std::deque<HistoryStep>& others) {
  if (dropped != EditStep::Update) return;
  for (HistoryStep& step : others) step.table.modified = true;
}

}  // namespace

void EditHistory::Push(std::deque<HistoryStep>& steps, HistoryStep step) {
  bytes_ += BytesOf(step);
  steps.push_back(std::move(step));
}

HistoryStep EditHistory::Pop(std::deque<HistoryStep>& steps) {
  HistoryStep step = std::move(steps.back());
  steps.pop_back();
  bytes_ -= BytesOf(step);
  return step;
}

void EditHistory::Clear(std::deque<HistoryStep>& steps) {
  while (!steps.empty()) Pop(steps);
}

void EditHistory::Add(HistoryStep step) {
  Clear(undone_);
  Push(done_, std::move(step));
  while (bytes_ > kMostBytes && done_.size() > 1) {
    bytes_ -= BytesOf(done_.front());
    done_.pop_front();
  }
}

void EditHistory::Settle(const TableState& now) {
  if (!pending_) return;
  HistoryStep step = *std::exchange(pending_, std::nullopt);
  if (step.table.table != now.table) Add(std::move(step));
}

void EditHistory::Remember(EditStep kind, TableState now) {
  Settle(now);
  pending_ = HistoryStep{kind, std::move(now), std::nullopt};
}

void EditHistory::Attach(tables::LineChange change, const TableState& now) {
  HistoryStep step = pending_ ? *std::exchange(pending_, std::nullopt)
                              : HistoryStep{EditStep::Import, now, std::nullopt};
  step.change = std::move(change);
  Add(std::move(step));
}

std::optional<bool> EditHistory::MarkBefore(const TableState& now) const {
  if (!pending_ || pending_->table.table != now.table) return std::nullopt;
  return pending_->table.modified;
}

std::optional<EditStep> EditHistory::NextUndo(const TableState& now) const {
  if (pending_ && pending_->table.table != now.table) return pending_->kind;
  return done_.empty() ? std::nullopt : std::optional(done_.back().kind);
}

std::optional<EditStep> EditHistory::NextRedo(const TableState& now) const {
  if (undone_.empty() || (pending_ && pending_->table.table != now.table)) return std::nullopt;
  return undone_.back().kind;
}

const HistoryStep* EditHistory::ToUndo(const TableState& now) {
  Settle(now);
  return done_.empty() ? nullptr : &done_.back();
}

const HistoryStep* EditHistory::ToRedo(const TableState& now) {
  Settle(now);
  return undone_.empty() ? nullptr : &undone_.back();
}

// On either side a step holds what leads to the other one.
TableState EditHistory::Move(std::deque<HistoryStep>& from, std::deque<HistoryStep>& to,
                             TableState now) {
  HistoryStep step = Pop(from);
  TableState other = std::exchange(step.table, std::move(now));
  if (step.change) step.change = step.change->Reversed();
  Push(to, std::move(step));
  return other;
}

TableState EditHistory::Undo(TableState now) { return Move(done_, undone_, std::move(now)); }

TableState EditHistory::Redo(TableState now) { return Move(undone_, done_, std::move(now)); }

void EditHistory::DropUndo() { LeaveUnstored(Pop(done_).kind, done_); }

void EditHistory::DropRedo() { LeaveUnstored(Pop(undone_).kind, undone_); }

void EditHistory::EndLibrary() {
  // What follows a change of the library in the row of undone steps builds on it.
  const bool redoesLibrary = std::any_of(undone_.begin(), undone_.end(),
                                         [](const HistoryStep& step) { return step.change; });
  if (redoesLibrary) Clear(undone_);
  bool wasStored = false;
  std::deque<HistoryStep> kept;
  for (; !done_.empty(); Pop(done_)) {
    HistoryStep& step = done_.back();
    if (!step.change) {
      // The file has what was stored later, and nothing stores this one again.
      step.table.modified = step.table.modified || wasStored;
      kept.push_front(step);
    }
    wasStored = wasStored || (step.change && step.kind == EditStep::Update);
  }
  for (HistoryStep& step : kept) Push(done_, std::move(step));
}

}  // namespace zentab::editor
