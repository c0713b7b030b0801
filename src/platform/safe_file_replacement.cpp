#include "platform/safe_file_replacement.h"

#include <chrono>
#include <memory>
#include <optional>
#include <thread>

#include "platform/file_errors.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

// Counts what was handed over, so that the finished file's size can be checked against it.
class CountingFile final : public OutputFile {
 public:
  explicit CountingFile(OutputFile& file) : file_(file) {}
  std::error_code Write(std::string_view bytes) override {
    count_ += bytes.size();
    return file_.Write(bytes);
  }
  std::error_code Flush() override { return file_.Flush(); }
  std::error_code Stamp(FileStamp& stamp) override { return file_.Stamp(stamp); }
  std::error_code Close() override { return file_.Close(); }

  [[nodiscard]] std::uint64_t Count() const { return count_; }

 private:
  OutputFile& file_;
  std::uint64_t count_ = 0;
};

std::error_code WriteWhole(OutputFile& file, const ContentWriter& write, FileStamp& stamp) {
  CountingFile counting(file);
  if (const std::error_code error = write(counting)) return error;
  if (const std::error_code error = counting.Flush()) return error;
  if (const std::error_code error = counting.Stamp(stamp)) return error;
  if (stamp.size != counting.Count()) return std::make_error_code(std::errc::io_error);
  return counting.Close();
}

std::error_code RefuseUnlessReplaceable(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return {};
  if (error) return error;
  if (status.type() == fs::file_type::directory) {
    return std::make_error_code(std::errc::is_a_directory);
  }
  if (status.type() != fs::file_type::regular) {
    return std::make_error_code(std::errc::operation_not_supported);
  }
  if (IsReadOnly(path)) return std::make_error_code(std::errc::permission_denied);
  return {};
}

std::error_code Lock(FileLayer& files, const fs::path& path, std::unique_ptr<FileLock>& lock) {
  constexpr auto kLongestWait = std::chrono::seconds(5);
  constexpr auto kPause = std::chrono::milliseconds(1);
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  for (;;) {
    const std::error_code error = files.TryLock(path, lock);
    if (error != std::errc::device_or_resource_busy) return error;
    if (std::chrono::steady_clock::now() >= end) return error;
    files.KeepAlive();
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace

fs::path LinkTarget(const fs::path& path) {
  constexpr int kMostLinks = 40;  // as many as the systems follow
  fs::path target = path;
  std::error_code error;
  for (int link = 0; link < kMostLinks && fs::is_symlink(target, error); ++link) {
    const fs::path next = fs::read_symlink(target, error);
    if (error) return target;
    target = target.parent_path() / next;
  }
  return target;
}

std::error_code ReplaceFile(FileLayer& files, const fs::path& path, const ContentWriter& write,
                            FileStamp* written, const fs::path& like) {
  const std::optional<fs::path> linked = AskFor(files, [path] { return LinkTarget(path); });
  if (!linked) return FileError::GivenUp;
  const fs::path& target = *linked;
  if (const auto error = files.Ask([target] { return RefuseUnlessReplaceable(target); })) {
    return error;
  }
  std::unique_ptr<FileLock> lock;
  if (const std::error_code error = Lock(files, target, lock)) return error;
  fs::path fresh = target;
  fresh += ".new";
  if (const std::error_code error = files.Remove(fresh)) return error;
  std::unique_ptr<OutputFile> file;
  FileStamp stamp;
  std::optional<FileStamp> former;
  std::error_code error = files.StampOf(target, former);
  if (!error) error = files.Create(fresh, former || like.empty() ? target : like, file);
  if (!error) error = WriteWhole(*file, write, stamp);
  const bool created = file != nullptr;
  file.reset();
  if (!error) error = files.MoveOver(fresh, target);
  if (error && created) {
    // The caller needs the first failure; a leftover is removed by the next replacement.
    [[maybe_unused]] const std::error_code dropped = files.Remove(fresh);
  }
  if (!error && written != nullptr) *written = stamp;
  return error;
}

}  // namespace zentab::platform
