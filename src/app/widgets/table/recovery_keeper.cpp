#include "app/widgets/table/recovery_keeper.h"

#include <QDateTime>
#include <QLocale>
#include <QMenu>
#include <QTimer>
#include <utility>

#include "app/session_history.h"
#include "app/session_texts.h"
#include "editor/row_tools.h"

namespace zentab::app {
namespace {

constexpr int kBehind = 500;  // milliseconds
constexpr std::chrono::milliseconds kLookAgain(20);
constexpr std::chrono::milliseconds kLongest(2000);  // that anyone waits for the file

}  // namespace

RecoveryKeeper::RecoveryKeeper(Session& session, platform::FileLayer& files,
                               const std::filesystem::path& folder, UserDialogs& dialogs,
                               QObject* parent)
    : QObject(parent),
      session_(session),
      dialogs_(dialogs),
      recovery_(std::make_shared<RecoveryFiles>(files, folder)),
      failed_(std::make_shared<std::atomic<bool>>(false)),
      timer_(new QTimer(this)),
      lookAgain_(new QTimer(this)) {
  timer_->setSingleShot(true);
  timer_->setInterval(kBehind);
  connect(timer_, &QTimer::timeout, this, &RecoveryKeeper::Write);
  lookAgain_->setSingleShot(true);
  connect(lookAgain_, &QTimer::timeout, this, &RecoveryKeeper::OfferWhenFound);
}

RecoveryKeeper::~RecoveryKeeper() = default;

// An empty table is nothing that anybody would miss.
bool RecoveryKeeper::IsUnsaved(const editor::TableState& state) const {
  return editor::LastUsedRow(session_.table.grid) > 0 &&
         (state.modified || state.DiffersFromStored());
}

// Not put off by what is typed meanwhile: the file is never further behind than that.
void RecoveryKeeper::Follow() {
  if (!timer_->isActive() && !hasEnded_) timer_->start();
}

KeptTable RecoveryKeeper::TableNow() const {
  KeptTable kept;
  kept.editedAt = QDateTime::currentSecsSinceEpoch();
  kept.tablePath = session_.tablePath;
  kept.state = StateOf(session_);
  return kept;
}

void RecoveryKeeper::Call(std::function<void(RecoveryFiles&)> call) {
  call_ = thread_.Start([recovery = recovery_, call = std::move(call)] { call(*recovery); });
}

void RecoveryKeeper::WaitForCalls() {
  // What takes longer goes on by itself.
  [[maybe_unused]] const bool dropped = !call_ || call_->WaitFor(kLongest);
}

void RecoveryKeeper::Write() {
  if (hasEnded_) return;
  KeptTable kept = TableNow();
  const bool keeps = IsUnsaved(kept.state);
  if (!keeps) kept = {};
  const bool isNew =
      kept.state.table != written_.state.table || kept.tablePath != written_.tablePath;
  if (!isNew && !failed_->exchange(false)) return;
  if (!keeps && isBroughtBack_) {
    isBroughtBack_ = false;
    // A table that was brought back is not lost by taking that back.
    if (!written_.state.table.starts_with(session_.stored)) {
      PutOwnAside();
      return;
    }
  }
  written_ = kept;
  if (keeps) {
    std::erase_if(found_, [this](const FoundTable& found) {
      return found.number < former_ && found.kept.kind == KeptTable::Kind::PutAside;
    });
  }
  Call([kept = std::move(kept), keeps, failed = failed_](RecoveryFiles& recovery) {
    // Nobody can be told while he types; the next look tries again.
    if (keeps ? recovery.Keep(kept) : recovery.Forget()) *failed = true;
  });
  Follow();
}

void RecoveryKeeper::PutOwnAside() {
  if (written_.state.table.empty()) return;
  written_.kind = KeptTable::Kind::PutAside;
  const int number = numbers_++;
  found_.insert(found_.begin(), {number, std::exchange(written_, {})});
  Call([number](RecoveryFiles& recovery) {
    // What cannot be marked is offered at the next start.
    [[maybe_unused]] const std::error_code dropped = recovery.PutOwnAside(number);
  });
}

void RecoveryKeeper::KeepNow() {
  Write();
  WaitForCalls();
}

void RecoveryKeeper::End(bool discarded) {
  timer_->stop();
  hasEnded_ = true;
  KeptTable kept = TableNow();
  const bool isEdited = session_.table.tableModified;
  const bool keeps = IsUnsaved(kept.state) && !(isEdited && discarded);
  if (!isEdited) kept.kind = KeptTable::Kind::PutAside;
  Call([kept = std::move(kept), keeps](RecoveryFiles& recovery) {
    // The program ends whether or not its last table is remembered.
    [[maybe_unused]] const std::error_code dropped =
        keeps ? recovery.Keep(kept) : recovery.Forget();
  });
  WaitForCalls();
}

void RecoveryKeeper::Offer() {
  const auto found = std::make_shared<std::vector<FoundTable>>();
  Call([found](RecoveryFiles& recovery) { *found = recovery.Look(); });
  looking_ = call_;
  looked_ = found;
  OfferWhenFound();
}

// The window does not wait for the folder.
void RecoveryKeeper::OfferWhenFound() {
  if (!looking_->WaitFor(std::chrono::milliseconds(0))) {
    lookAgain_->start(kLookAgain);
    return;
  }
  looking_.reset();
  if (isStopped_) return;
  found_ = std::move(*looked_);
  former_ = numbers_ = static_cast<int>(found_.size());
  for (std::size_t index = 0; index < found_.size(); ++index) {
    if (found_[index].kept.kind == KeptTable::Kind::PutAside) continue;
    if (dialogs_.Confirm(Question(found_[index].kept))) {
      Take(index);
      return;
    }
    if (isStopped_) return;
    found_[index].kept.kind = KeptTable::Kind::PutAside;
    Call([number = found_[index].number](RecoveryFiles& recovery) {
      // One that cannot be marked is offered again.
      [[maybe_unused]] const std::error_code dropped = recovery.PutAside(number);
    });
  }
}

texts::MessageText RecoveryKeeper::Question(const KeptTable& kept) const {
  const texts::HistoryTexts& texts = session_.texts.history;
  const QDateTime edited = QDateTime::fromSecsSinceEpoch(kept.editedAt);
  const std::string when = QLocale().toString(edited, QLocale::ShortFormat).toStdString();
  const std::optional<editor::EntryInGrid>& source = kept.state.origin->source;
  const std::string& text = source ? texts.recoveryEntryText : texts.recoveryText;
  const std::string name = source ? source->name : std::string();
  return {texts.recoveryHeading, Expanded(session_, text, {kept.tablePath, when, name})};
}

void RecoveryKeeper::AddTo(QMenu& menu) {
  menu.addSeparator();
  QAction* const action = menu.addAction(QStringLiteral("&Bring back the last table"));
  action->setObjectName(QStringLiteral("m_back"));
  connect(action, &QAction::triggered, this, &RecoveryKeeper::BringBack);
  connect(&menu, &QMenu::aboutToShow, action, [this, action] { action->setEnabled(HasTable()); });
}

void RecoveryKeeper::BringBack() {
  if (HasTable()) Take(0);
}

void RecoveryKeeper::Take(std::size_t index) {
  Q_EMIT GridNeeded();
  Q_EMIT AboutToChange(editor::EditStep::BringBack);
  const FoundTable table = found_[index];
  found_.erase(found_.begin() + static_cast<std::ptrdiff_t>(index));
  PutOwnAside();
  editor::TableState state = table.kept.state;
  // What is stored is not what was stored when the table was left.
  state.origin = std::make_shared<editor::TableOrigin>(
      editor::TableOrigin{state.origin->source, session_.stored});
  Restore(state, session_);
  Call([number = table.number](RecoveryFiles& recovery) { recovery.Adopt(number); });
  isBroughtBack_ = true;
  written_ = table.kept;
  // The file may still say that the table was put aside.
  *failed_ = true;
  Q_EMIT BroughtBack();
}

}  // namespace zentab::app
