#include "app/widgets/files/responsive_files.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <mutex>
#include <string>
#include <vector>

#include "app/widgets/files/held_input.h"
#include "app/widgets/files/quiet_reading.h"
#include "platform/file_errors.h"

namespace zentab::app {
namespace {

using platform::FileError;

constexpr int kEventsEvery = 20;            // milliseconds
constexpr int kPointerAfter = 200;          // milliseconds
constexpr int kToldAfter = 500;             // milliseconds
constexpr std::size_t kPortion = 1u << 20;  // bytes that one call writes
// A system that is left to gather more than it likes stops a write for long in the end.
constexpr std::size_t kFlushEvery = 32u << 20;

// An open file, used and closed on the files' thread. A call that hangs shares it.
template <class Interface>
class OnThread : public Interface {
 public:
  OnThread(ResponsiveFiles& files, std::unique_ptr<Interface> file)
      : files_(files), file_(std::move(file)) {}
  ~OnThread() override {
    files_.Post([file = std::move(file_)]() mutable { file.reset(); });
  }
  OnThread(const OnThread&) = delete;
  OnThread& operator=(const OnThread&) = delete;

 protected:
  [[nodiscard]] ResponsiveFiles& Files() const { return files_; }
  [[nodiscard]] const std::shared_ptr<Interface>& File() const { return file_; }

 private:
  ResponsiveFiles& files_;
  std::shared_ptr<Interface> file_;
};

using LockOnThread = OnThread<platform::FileLock>;

template <class Interface>
std::error_code AwaitStamp(ResponsiveFiles& files, const std::shared_ptr<Interface>& file,
                           platform::FileStamp& stamp) {
  const auto read = std::make_shared<platform::FileStamp>();
  const std::error_code error = files.Await([file, read] { return file->Stamp(*read); });
  if (!error) stamp = *read;
  return error;
}

class InputOnThread final : public OnThread<platform::InputFile> {
 public:
  using OnThread::OnThread;

  std::error_code ReadAt(std::uint64_t offset, char* to, std::size_t size,
                         std::size_t& count) override {
    count = 0;
    if (!block_ || block_->size() < size) block_ = std::make_shared<std::vector<char>>(size);
    const auto got = std::make_shared<std::size_t>(0);
    const std::error_code error = Files().Await([file = File(), block = block_, got, offset, size] {
      return file->ReadAt(offset, block->data(), size, *got);
    });
    // A call that was left to itself keeps its block.
    if (error) {
      block_.reset();
      return error;
    }
    std::copy_n(block_->data(), *got, to);
    count = *got;
    return {};
  }
  std::error_code Stamp(platform::FileStamp& stamp) override {
    return AwaitStamp(Files(), File(), stamp);
  }

 private:
  std::shared_ptr<std::vector<char>> block_;
};

class OutputOnThread final : public OnThread<platform::OutputFile> {
 public:
  using OnThread::OnThread;

  std::error_code Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto portion = std::make_shared<std::string>(bytes.substr(0, kPortion));
      const auto write = [file = File(), portion] { return file->Write(*portion); };
      if (const std::error_code error = Files().Await(write)) return error;
      bytes.remove_prefix(portion->size());
      unflushed_ += portion->size();
      if (unflushed_ < kFlushEvery) continue;
      unflushed_ = 0;
      if (const std::error_code error = Flush()) return error;
    }
    return {};
  }
  std::error_code Flush() override {
    return Files().Await([file = File()] { return file->Flush(); });
  }
  std::error_code Stamp(platform::FileStamp& stamp) override {
    return AwaitStamp(Files(), File(), stamp);
  }
  std::error_code Close() override {
    return Files().Await([file = File()] { return file->Close(); });
  }

 private:
  std::size_t unflushed_ = 0;
};

}  // namespace

// The way back from the thread, which may outlive the window.
class ResponsiveFiles::Mailbox {
 public:
  explicit Mailbox(ResponsiveFiles& owner) : owner_(&owner) {}

  void Close() {
    const std::scoped_lock guard(mutex_);
    owner_ = nullptr;
  }
  void Send(std::function<void()> message) {
    const std::scoped_lock guard(mutex_);
    if (owner_ == nullptr) return;
    messages_.push_back(std::move(message));
    Q_EMIT owner_->MessageArrived();
  }
  std::vector<std::function<void()>> TakeAll() {
    const std::scoped_lock guard(mutex_);
    return std::exchange(messages_, {});
  }

 private:
  std::mutex mutex_;
  std::vector<std::function<void()>> messages_;
  ResponsiveFiles* owner_;
};

struct ResponsiveFiles::QuietJob {
  QuietWork work;
  std::function<void(void*)> done;
  std::shared_ptr<std::atomic<bool>> brokenOff;
};

ResponsiveFiles::Work::Work(ResponsiveFiles& files) : files_(files) {
  if (files_.works_++ == 0) files_.BeginWork();
}

ResponsiveFiles::Work::~Work() {
  if (--files_.works_ == 0) files_.EndWork();
}

ResponsiveFiles::ResponsiveFiles(platform::FileLayer& files)
    : files_(files), mailbox_(std::make_shared<Mailbox>(*this)) {
  const auto read = [this] {
    for (const std::function<void()>& message : mailbox_->TakeAll()) message();
  };
  connect(this, &ResponsiveFiles::MessageArrived, this, read, Qt::QueuedConnection);
}

ResponsiveFiles::~ResponsiveFiles() {
  mailbox_->Close();
  BreakOffQuietJobs();
}

void ResponsiveFiles::BreakOffQuietJobs() {
  for (const std::shared_ptr<QuietJob>& job : quiet_) {
    if (job->brokenOff) *job->brokenOff = true;
  }
}

void ResponsiveFiles::BeginWork() {
  BreakOffQuietJobs();
  givenUp_ = false;
  begun_.start();
  alive_.start();
}

void ResponsiveFiles::EndWork() {
  if (givenUp_) thread_.Leave();
  if (showsPointer_) QGuiApplication::restoreOverrideCursor();
  showsPointer_ = false;
  heldInput_.reset();
  for (const std::shared_ptr<QuietJob>& job : quiet_) Start(job);
  if (std::exchange(told_, std::nullopt)) Q_EMIT WaitEnded();
}

void ResponsiveFiles::AddQuietJob(QuietWork work, std::function<void(void*)> done) {
  quiet_.push_back(std::make_shared<QuietJob>(QuietJob{std::move(work), std::move(done), {}}));
  if (!IsAtWork()) Start(quiet_.back());
}

// Each start has a mark and a result of its own: nobody asks for those of one that was broken off.
void ResponsiveFiles::Start(const std::shared_ptr<QuietJob>& job) {
  job->brokenOff = std::make_shared<std::atomic<bool>>(false);
  Post([this, &files = files_, mailbox = mailbox_, brokenOff = job->brokenOff, job] {
    QuietReading reading(files, brokenOff);
    if (*brokenOff) return;
    const std::shared_ptr<void> result = job->work(reading);
    mailbox->Send([this, job, brokenOff, result] {
      if (*brokenOff) return;
      std::erase(quiet_, job);
      job->done(result.get());
    });
  });
}

std::error_code ResponsiveFiles::Open(const Path& path,
                                      std::unique_ptr<platform::InputFile>& file) {
  const auto opened = std::make_shared<std::unique_ptr<platform::InputFile>>();
  const std::error_code error =
      Await([&files = files_, path, opened] { return files.Open(path, *opened); });
  if (!error) file = std::make_unique<InputOnThread>(*this, std::move(*opened));
  return error;
}

std::error_code ResponsiveFiles::StampOf(const Path& path,
                                         std::optional<platform::FileStamp>& stamp) {
  const auto read = std::make_shared<std::optional<platform::FileStamp>>();
  const std::error_code error =
      Await([&files = files_, path, read] { return files.StampOf(path, *read); });
  stamp = error ? std::nullopt : *read;
  return error;
}

std::error_code ResponsiveFiles::Create(const Path& path, const Path& like,
                                        std::unique_ptr<platform::OutputFile>& file) {
  const auto made = std::make_shared<std::unique_ptr<platform::OutputFile>>();
  const std::error_code error =
      Await([&files = files_, path, like, made] { return files.Create(path, like, *made); });
  if (!givenUp_ && *made) file = std::make_unique<OutputOnThread>(*this, std::move(*made));
  return error;
}

std::error_code ResponsiveFiles::OpenForAppending(const Path& path,
                                                  std::unique_ptr<platform::OutputFile>& file) {
  const auto opened = std::make_shared<std::unique_ptr<platform::OutputFile>>();
  const std::error_code error =
      Await([&files = files_, path, opened] { return files.OpenForAppending(path, *opened); });
  if (!error) file = std::make_unique<OutputOnThread>(*this, std::move(*opened));
  return error;
}

std::error_code ResponsiveFiles::MoveOver(const Path& from, const Path& to) {
  return Await([&files = files_, from, to] { return files.MoveOver(from, to); });
}

std::error_code ResponsiveFiles::Remove(const Path& path) {
  const auto remove = [&files = files_, path] { return files.Remove(path); };
  // What a command has left that was given up is cleared away whenever the device answers.
  if (givenUp_) Post([remove] { [[maybe_unused]] const std::error_code dropped = remove(); });
  return Await(remove);
}

std::error_code ResponsiveFiles::TryLock(const Path& path,
                                         std::unique_ptr<platform::FileLock>& lock) {
  const auto taken = std::make_shared<std::unique_ptr<platform::FileLock>>();
  const std::error_code error =
      Await([&files = files_, path, taken] { return files.TryLock(path, *taken); });
  if (!error) lock = std::make_unique<LockOnThread>(*this, std::move(*taken));
  return error;
}

std::error_code ResponsiveFiles::Ask(const std::function<std::error_code()>& call) {
  return Await([&files = files_, call] { return files.Ask(call); });
}

void ResponsiveFiles::KeepAlive() {
  if (IsAtWork() && alive_.elapsed() >= kEventsEvery) RunEvents();
}

std::error_code ResponsiveFiles::Await(const std::function<std::error_code()>& call) {
  const Work work(*this);
  if (givenUp_) return FileError::GivenUp;
  const auto result = std::make_shared<std::error_code>();
  const auto started = thread_.Start([call, result] { *result = call(); });
  while (!started->WaitFor(std::chrono::milliseconds(kEventsEvery))) {
    RunEvents();
    if (givenUp_) return FileError::GivenUp;
  }
  KeepAlive();
  return *result;
}

void ResponsiveFiles::Post(std::function<void()> call) { thread_.Start(std::move(call)); }

void ResponsiveFiles::GiveUp() { givenUp_ = givenUp_ || IsAtWork(); }

void ResponsiveFiles::Tell(WaitsFor reason) {
  if (told_ == reason) return;
  told_ = reason;
  if (!heldInput_) {
    auto held = std::make_unique<HeldInput>();
    connect(held.get(), &HeldInput::EscapePressed, this, &ResponsiveFiles::GiveUp);
    heldInput_ = std::move(held);
  }
  Q_EMIT Waiting(reason);
}

// Someone else's change ends by itself: only the user knows how long to wait for it.
bool ResponsiveFiles::GoOnWaiting(std::chrono::steady_clock::duration waited) {
  if (waited > std::chrono::milliseconds(kToldAfter)) Tell(WaitsFor::Writer);
  KeepAlive();
  return !givenUp_;
}

void ResponsiveFiles::RunEvents() {
  if (!showsPointer_ && begun_.elapsed() > kPointerAfter) {
    showsPointer_ = true;
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
  }
  if (!told_ && begun_.elapsed() > kToldAfter) Tell(WaitsFor::File);
  QCoreApplication::processEvents(told_ ? QEventLoop::AllEvents
                                        : QEventLoop::ExcludeUserInputEvents);
  alive_.start();
}

}  // namespace zentab::app
