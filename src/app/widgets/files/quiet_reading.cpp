#include "app/widgets/files/quiet_reading.h"

#include "platform/file_errors.h"

namespace zentab::app {
namespace {

using platform::FileError;

class QuietInput final : public platform::InputFile {
 public:
  QuietInput(std::unique_ptr<InputFile> file, std::shared_ptr<const std::atomic<bool>> brokenOff)
      : file_(std::move(file)), brokenOff_(std::move(brokenOff)) {}

  std::error_code ReadAt(std::uint64_t offset, char* to, std::size_t size,
                         std::size_t& count) override {
    return *brokenOff_ ? FileError::GivenUp : file_->ReadAt(offset, to, size, count);
  }
  std::error_code Stamp(platform::FileStamp& stamp) override {
    return *brokenOff_ ? FileError::GivenUp : file_->Stamp(stamp);
  }

 private:
  std::unique_ptr<InputFile> file_;
  std::shared_ptr<const std::atomic<bool>> brokenOff_;
};

std::error_code NotForReaders() { return std::make_error_code(std::errc::operation_not_permitted); }

}  // namespace

std::error_code QuietReading::Open(const Path& path, std::unique_ptr<platform::InputFile>& file) {
  if (*brokenOff_) return FileError::GivenUp;
  const std::error_code error = files_.Open(path, file);
  if (!error) file = std::make_unique<QuietInput>(std::move(file), brokenOff_);
  return error;
}

std::error_code QuietReading::StampOf(const Path& path, std::optional<platform::FileStamp>& stamp) {
  return *brokenOff_ ? FileError::GivenUp : files_.StampOf(path, stamp);
}

std::error_code QuietReading::Ask(const std::function<std::error_code()>& call) {
  return *brokenOff_ ? FileError::GivenUp : files_.Ask(call);
}

std::error_code QuietReading::Create(const Path&, const Path&,
                                     std::unique_ptr<platform::OutputFile>&) {
  return NotForReaders();
}

std::error_code QuietReading::OpenForAppending(const Path&,
                                               std::unique_ptr<platform::OutputFile>&) {
  return NotForReaders();
}

std::error_code QuietReading::MoveOver(const Path&, const Path&) { return NotForReaders(); }

std::error_code QuietReading::Remove(const Path&) { return NotForReaders(); }

std::error_code QuietReading::TryLock(const Path&, std::unique_ptr<platform::FileLock>&) {
  return NotForReaders();
}

}  // namespace zentab::app
