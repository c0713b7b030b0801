#include "app/widgets/responsive_files.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <chrono>
#include <future>
#include <system_error>

namespace zentab::app {
namespace {

constexpr int kEventsEvery = 40;            // milliseconds
constexpr int kPointerAfter = 200;          // milliseconds
constexpr std::size_t kPortion = 1u << 20;  // bytes between two looks at the clock
// A system that is left to gather more than it likes stops a write for long in the end.
constexpr std::size_t kFlushEvery = 32u << 20;

class PortionedFile final : public platform::OutputFile {
 public:
  PortionedFile(ResponsiveFiles& files, std::unique_ptr<OutputFile> file)
      : files_(files), file_(std::move(file)) {}

  std::error_code Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const std::string_view portion = bytes.substr(0, kPortion);
      if (const std::error_code error = file_->Write(portion)) return error;
      bytes.remove_prefix(portion.size());
      unflushed_ += portion.size();
      if (unflushed_ >= kFlushEvery) {
        unflushed_ = 0;
        if (const std::error_code error = Flush()) return error;
      }
      files_.KeepAlive();
    }
    return {};
  }
  std::error_code Flush() override {
    return files_.Await([this] { return file_->Flush(); });
  }
  std::error_code Stamp(platform::FileStamp& stamp) override { return file_->Stamp(stamp); }
  std::error_code Close() override { return file_->Close(); }

 private:
  ResponsiveFiles& files_;
  std::unique_ptr<OutputFile> file_;
  std::size_t unflushed_ = 0;
};

}  // namespace

ResponsiveFiles::Work::Work(ResponsiveFiles& files) : files_(files) {
  if (files_.works_++ > 0) return;
  files_.begun_.start();
  files_.alive_.start();
}

ResponsiveFiles::Work::~Work() {
  if (--files_.works_ > 0 || !files_.showsPointer_) return;
  files_.showsPointer_ = false;
  QGuiApplication::restoreOverrideCursor();
}

std::error_code ResponsiveFiles::Create(const Path& path, const Path& like,
                                        std::unique_ptr<platform::OutputFile>& file) {
  const std::error_code error = files_.Create(path, like, file);
  if (file) file = std::make_unique<PortionedFile>(*this, std::move(file));
  return error;
}

void ResponsiveFiles::KeepAlive() {
  if (IsAtWork() && alive_.elapsed() >= kEventsEvery) RunEvents();
}

std::error_code ResponsiveFiles::Await(const std::function<std::error_code()>& call) {
  if (!IsAtWork()) return call();
  std::future<std::error_code> result;
  try {
    result = std::async(std::launch::async, call);
  } catch (const std::system_error&) {
    // The system has no thread left: the window waits with the call.
    return call();
  }
  while (result.wait_for(std::chrono::milliseconds(kEventsEvery)) != std::future_status::ready) {
    RunEvents();
  }
  return result.get();
}

void ResponsiveFiles::RunEvents() {
  if (!showsPointer_ && begun_.elapsed() > kPointerAfter) {
    showsPointer_ = true;
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
  }
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  alive_.start();
}

}  // namespace zentab::app
