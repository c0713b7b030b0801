#pragma once

#include <QObject>
#include <functional>

#include "app/entry_commands.h"
#include "app/widgets/library/entry_parts.h"
#include "editor/edit_step.h"

class QMenu;

namespace zentab::app {

/// The commands on several entries at once, and on their names and order in the file. Each is one
/// step of the history; an entry that someone else has changed meanwhile stops it.
class EntriesController : public QObject {
  Q_OBJECT

 public:
  EntriesController(const EntryParts& parts, QObject* parent);

  /// Adds the commands on entries, and the one on the file.
  void AddTo(QMenu& menu);
  void AddSortTo(QMenu& menu) const;

 public Q_SLOTS:
  void RemoveChosen();
  void Duplicate();
  void Rename(const zentab::tables::EntryMark& entry, const QString& name);
  /// One place up (-1) or down (1); entries that stand apart come together.
  void Move(int by);
  void MoveTo(std::size_t place);
  void SortFile();

 Q_SIGNALS:
  void CommandBegun();
  void AboutToChange(zentab::editor::EditStep step);
  void Failed(const QString& text);

 private:
  using Work = std::function<std::error_code(EntryMarks& marks)>;

  [[nodiscard]] bool Begin();
  [[nodiscard]] bool MayMove();
  std::error_code Run(editor::EditStep step, EntryMarks marks, const Work& work);

  EntryParts parts_;
  EntryCommands commands_;
};

}  // namespace zentab::app
