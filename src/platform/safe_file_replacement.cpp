#include "platform/safe_file_replacement.h"

#include <algorithm>
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

bool NobodyMayWrite(fs::perms permissions) {
  constexpr fs::perms kWrite =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  return (permissions & kWrite) == fs::perms::none;
}

// A file that gets the access of another one need not be writable for this process before.
std::error_code RefuseUnlessReplaceable(const fs::path& path, bool getsOtherAccess) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return {};
  if (error) return error;
  if (status.type() == fs::file_type::directory) {
    return std::make_error_code(std::errc::is_a_directory);
  }
  if (status.type() != fs::file_type::regular) return FileError::NoRegularFile;
  if (getsOtherAccess ? NobodyMayWrite(status.permissions()) : IsReadOnly(path)) {
    return std::make_error_code(std::errc::permission_denied);
  }
  return HasOtherNames(path) ? FileError::HardLinked : std::error_code();
}

// Makes a step of changing `target`, again and again while it fails for something that may pass.
// Who waits for one long change asks less and less often; between many short ones he has to be
// quick to get his turn.
template <class Step>
std::error_code MakePatiently(FileLayer& files, const fs::path& target, Step step) {
  using std::chrono::milliseconds;
  constexpr milliseconds kShortestPause(1), kLongestPause(50), kLongestSleep(10);
  milliseconds pause = kShortestPause;
  std::optional<FileStamp> seen;
  const auto start = std::chrono::steady_clock::now();
  for (;;) {
    const std::error_code error = step();
    if (error != std::errc::device_or_resource_busy) return error;
    if (!files.GoOnWaiting(std::chrono::steady_clock::now() - start)) return error;
    for (milliseconds left = pause; left > milliseconds::zero(); left -= kLongestSleep) {
      std::this_thread::sleep_for(std::min(left, kLongestSleep));
      files.KeepAlive();
    }
    std::optional<FileStamp> now;
    // Who does not answer is asked less often.
    [[maybe_unused]] const std::error_code dropped = files.StampOf(target, now);
    pause = now == seen ? std::min(pause * 2, kLongestPause) : kShortestPause;
    seen = now;
  }
}

// A program that replaces a file by writing FILE.new, removing FILE and renaming leaves a moment,
// or its end, in which FILE.new is all there is.
std::error_code KeepOnlyCopy(FileLayer& files, const fs::path& target, const fs::path& leftover,
                             const Replacement& how) {
  std::optional<FileStamp> now, left;
  if (const std::error_code error = files.StampOf(target, now)) return error;
  if (const std::error_code error = files.StampOf(leftover, left)) return error;
  if (now || !left) return {};
  bool isThere = false;
  if (const std::error_code error = WaitForFile(files, target, isThere)) return error;
  if (isThere) return {};
  return how.keepLeftover(leftover);
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

std::error_code WaitForFile(FileLayer& files, const fs::path& path, bool& isThere) {
  constexpr std::chrono::seconds kLongestWait(2);
  constexpr std::chrono::milliseconds kPause(20);
  const auto start = std::chrono::steady_clock::now();
  for (;;) {
    std::optional<FileStamp> stamp;
    if (const std::error_code error = files.StampOf(path, stamp)) return error;
    isThere = stamp.has_value();
    const auto waited = std::chrono::steady_clock::now() - start;
    if (isThere || waited > kLongestWait || !files.GoOnWaiting(waited)) return {};
    files.KeepAlive();
    std::this_thread::sleep_for(kPause);
  }
}

std::error_code TakeLeftover(FileLayer& files, const fs::path& path) {
  const std::optional<fs::path> target = AskFor(files, [path] { return LinkTarget(path); });
  if (!target) return FileError::GivenUp;
  std::unique_ptr<FileLock> lock;
  const auto takeLock = [&] { return files.TryLock(*target, lock); };
  if (const std::error_code error = MakePatiently(files, *target, takeLock)) return error;
  std::optional<FileStamp> now;
  if (const std::error_code error = files.StampOf(*target, now)) return error;
  if (now) return std::make_error_code(std::errc::file_exists);
  fs::path leftover = *target;
  leftover += ".new";
  return files.MoveOver(leftover, *target);
}

std::error_code ReplaceFile(FileLayer& files, const fs::path& path, const ContentWriter& write,
                            const Replacement& how) {
  const std::optional<fs::path> linked = AskFor(files, [path] { return LinkTarget(path); });
  if (!linked) return FileError::GivenUp;
  const fs::path& target = *linked;
  const bool getsOtherAccess = !how.like.empty();
  const auto look = [target, getsOtherAccess] {
    return RefuseUnlessReplaceable(target, getsOtherAccess);
  };
  if (const std::error_code error = files.Ask(look)) return error;
  std::unique_ptr<FileLock> lock;
  const auto takeLock = [&] { return files.TryLock(target, lock); };
  if (const std::error_code error = MakePatiently(files, target, takeLock)) return error;
  fs::path fresh = target;
  fresh += ".new";
  if (how.keepLeftover) {
    if (const std::error_code error = KeepOnlyCopy(files, target, fresh, how)) return error;
  }
  const auto removeLeftover = [&] { return files.Remove(fresh); };
  if (const std::error_code error = MakePatiently(files, target, removeLeftover)) return error;
  std::unique_ptr<OutputFile> file;
  FileStamp stamp;
  std::error_code error = files.Create(fresh, how.like.empty() ? target : how.like, file);
  if (!error) error = WriteWhole(*file, write, stamp);
  const bool created = file != nullptr;
  file.reset();
  if (!error) {
    error = MakePatiently(files, target, [&] { return files.MoveOver(fresh, target); });
  }
  if (error && created) {
    // The caller needs the first failure; a leftover is removed by the next replacement.
    [[maybe_unused]] const std::error_code dropped = files.Remove(fresh);
  }
  if (!error && how.written != nullptr) *how.written = stamp;
  return error;
}

}  // namespace zentab::platform
