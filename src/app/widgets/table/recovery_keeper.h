#pragma once

#include <QObject>
#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/recovery_files.h"
#include "app/session.h"
#include "app/widgets/user_dialogs.h"
#include "editor/edit_step.h"
#include "platform/file_thread.h"

class QMenu;
class QTimer;

namespace zentab::app {

/// Keeps the edited table in a recovery file as long as no library has it, half a second behind the
/// user's hand and on a thread of its own, and brings it back at a later start.
class RecoveryKeeper : public QObject {
  Q_OBJECT

 public:
  /// Nothing is kept in an empty folder.
  RecoveryKeeper(Session& session, platform::FileLayer& files, const std::filesystem::path& folder,
                 UserDialogs& dialogs, QObject* parent);
  ~RecoveryKeeper() override;

  /// The table may have changed.
  void Follow();

  /// Keeps what there is to be kept without delay, and waits for that, two seconds at most.
  void KeepNow();

  /// The program ends in order. What the user was asked about and discarded goes; what nobody was
  /// asked about stays: unsaved edits are offered at the next start, another table than the one
  /// stored last can be brought back by command.
  void End(bool discarded);

  /// Nobody can answer any more: what was just offered will be offered again.
  void StopAsking() { isStopped_ = true; }

  /// Looks for the tables that were left unsaved, and offers them, the last one first.
  void Offer();
  /// Whether it is still looking.
  [[nodiscard]] bool IsLooking() const { return looking_ != nullptr; }
  /// Whether there is a table that BringBack would bring back.
  [[nodiscard]] bool HasTable() const { return !found_.empty(); }
  /// Puts that command at the end of a menu.
  void AddTo(QMenu& menu);
  /// Brings the table back that was left last.
  void BringBack();

 Q_SIGNALS:
  /// An open cell editor closes.
  void GridNeeded();
  /// The table is about to be replaced, in one step of the user's.
  void AboutToChange(zentab::editor::EditStep step);
  /// The grid holds another table.
  void BroughtBack();

 private:
  using FoundTable = RecoveryFiles::FoundTable;

  void Write();
  void Take(std::size_t index);
  void Call(std::function<void(RecoveryFiles&)> call);
  void WaitForCalls();
  void PutOwnAside();
  [[nodiscard]] KeptTable TableNow() const;
  void OfferWhenFound();
  [[nodiscard]] bool IsUnsaved(const editor::TableState& state) const;
  [[nodiscard]] texts::MessageText Question(const KeptTable& kept) const;

  Session& session_;
  UserDialogs& dialogs_;
  // Used by the calls on the thread only, which may outlive this.
  std::shared_ptr<RecoveryFiles> recovery_;
  std::shared_ptr<std::atomic<bool>> failed_;  // at the last try
  std::vector<FoundTable> found_;
  platform::FileThread thread_;
  std::shared_ptr<platform::FileThread::Call> call_;  // the last one
  std::shared_ptr<platform::FileThread::Call> looking_;
  std::shared_ptr<std::vector<FoundTable>> looked_;  // what it finds
  QTimer* timer_;
  QTimer* lookAgain_;
  KeptTable written_;           // what the file holds; an empty table: there is none
  int numbers_ = 0;             // of the tables found or put aside so far
  int former_ = 0;              // how many of them former editors have left
  bool isBroughtBack_ = false;  // the table, and not stored since
  bool isStopped_ = false;
  bool hasEnded_ = false;
};

}  // namespace zentab::app
