// full_disk_harness: changes files in every way that the editor has, on a small tmpfs which is
// full up to 0, 1, 2... last blocks, and then up to as many last files, until there is room. What
// does not fit must leave every file as it was and the edits unsaved. Takes root.
#include <sched.h>
#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <fstream>

#include "faults/harness.h"
#include "faults/write_paths.h"
#include "platform/settings_store.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;

constexpr int kSkipped = 77;  // what the test driver takes for it
constexpr int kEntries = 600;
constexpr std::uintmax_t kBlock = 4096;

// A tmpfs of its own namespace, which goes with the process in any case.
class SmallDevice {
 public:
  SmallDevice() {
    constexpr const char* kOptions = "size=256k,nr_inodes=64";
    isMounted_ = ::unshare(CLONE_NEWNS) == 0 &&
                 ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                 ::mount("none", folder_.Path().c_str(), "tmpfs", 0, kOptions) == 0;
    if (!isMounted_) return;
    fs::create_directory(Folder());
    fs::create_directory(fill_);
  }
  ~SmallDevice() {
    std::error_code ignored;
    fs::current_path("/", ignored);
    if (isMounted_) ::umount(folder_.Path().c_str());
  }
  SmallDevice(const SmallDevice&) = delete;
  SmallDevice& operator=(const SmallDevice&) = delete;

  [[nodiscard]] bool IsMounted() const { return isMounted_; }
  [[nodiscard]] fs::path Folder() const { return folder_.Path() / "installation"; }

  void LeaveBlocks(unsigned blocks) const {
    const fs::path file = fill_ / "all";
    std::ofstream(file) << std::string(1u << 20, 'x');
    // What did not fit is cut off, down to whole blocks.
    fs::resize_file(file, (fs::file_size(file) / kBlock - blocks) * kBlock);
  }
  void LeaveFiles(unsigned files) const {
    unsigned made = 0;
    while (std::ofstream(fill_ / std::to_string(made))) ++made;
    for (; files > 0; --files) fs::remove(fill_ / std::to_string(--made));
  }
  void Free() const {
    for (const auto& entry : fs::directory_iterator(fill_)) fs::remove(entry.path());
  }

 private:
  ScratchFolder folder_;
  fs::path fill_ = folder_.Path() / "fill";
  bool isMounted_ = false;
};

const std::string kSettingsFile = "settings/Zentab.ini";
const std::string kLogFile = "Zentab.log";

const WritePath kSettings = {
    "settings", kSettingsFile,
    [](Workplace&) {
      return !platform::UserSettingsStore()->Save("Zentab", "Settings", {{"TableName", "new"}});
    },
    [](const Files& before) {
      std::string bytes = before.at(kSettingsFile);
      return bytes.replace(bytes.find("old"), 3, "new");
    },
    false};

class FullDiskHarness {
 public:
  explicit FullDiskHarness(const SmallDevice& device)
      : device_(device), before_(Installation(kEntries)) {
    before_[kSettingsFile] = "[Settings]\nTableName=old\nNote=" + std::string(9000, 'n') + '\n';
    // The next line goes beyond the file's last block.
    before_[kLogFile] = std::string(kBlock - 12, 'l') + "\r\n";
    ::setenv("ZENTAB_SETTINGS_DIR", (device_.Folder() / "settings").c_str(), 1);
  }

  void Try(const WritePath& path) {
    const unsigned blocks = FirstThatFits(path, &SmallDevice::LeaveBlocks);
    const unsigned files = FirstThatFits(path, &SmallDevice::LeaveFiles);
    std::printf("  %-20s fits from %u free blocks on, and from %u free files on\n",
                std::string(path.what).c_str(), blocks, files);
    verdict_.Check(blocks > 0 && files > 0, std::string(path.what) + " was never short of room");
  }

  [[nodiscard]] int Report() const {
    std::printf("%d changes met a full device\n", failures_);
    return verdict_.Finish();
  }

 private:
  unsigned FirstThatFits(const WritePath& path, void (SmallDevice::*leave)(unsigned) const) {
    constexpr unsigned kMost = 40;
    for (unsigned level = 0; level < kMost; ++level) {
      const std::string what = std::string(path.what) + ", " + std::to_string(level) + " left: ";
      FillFolder(device_.Folder(), before_);
      (device_.*leave)(level);
      Workplace place(device_.Folder(), platform::SystemFiles());
      const bool fits = path.run(place);
      if (!fits) {
        ++failures_;
        CheckUntouched(path, place, what);
        CheckLog(place, what);
      }
      device_.Free();
      verdict_.Check(fits || path.run(place), what + "it fails with all the room");
      CheckDone(path, what);
      if (fits) return level;
    }
    verdict_.Check(false, std::string(path.what) + " never fits");
    return kMost;
  }

  void CheckUntouched(const WritePath& path, const Workplace& place, const std::string& what) {
    verdict_.Check(AreUntouched(path, before_, ReadFolder(device_.Folder())),
                   what + "a file has changed");
    verdict_.Check(place.session.table.tableModified, what + "the edits count as saved");
  }

  void CheckLog(Workplace& place, const std::string& what) {
    place.session.texts.logSwitch = true;
    place.log.WriteLogLine("a line that may not fit");
    verdict_.Check(ReadFolder(device_.Folder()).at(kLogFile).starts_with(before_.at(kLogFile)),
                   what + "the log has lost lines");
  }

  void CheckDone(const WritePath& path, const std::string& what) {
    Files now = ReadFolder(device_.Folder());
    now[kLogFile] = before_.at(kLogFile);
    verdict_.Check(now == Changed(path, before_), what + "what was written is something else");
  }

  const SmallDevice& device_;
  Files before_;
  Verdict verdict_;
  int failures_ = 0;
};

}  // namespace
}  // namespace zentab::test

int main() {
  using namespace zentab::test;
  const SmallDevice device;
  if (!device.IsMounted()) {
    std::printf("skipped: no small tmpfs can be mounted here (%s); it takes root\n",
                std::strerror(errno));
    return kSkipped;
  }
  FullDiskHarness harness(device);
  for (const WritePath& path : WritePaths()) harness.Try(path);
  harness.Try(kSettings);
  return harness.Report();
}
