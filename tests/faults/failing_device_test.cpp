// Every way of changing a file, on a device that fails at each step in turn.
#include <set>

#include "faults/write_paths.h"
#include "support/failing_file_layer.h"
#include "support/listed.h"
#include "support/temporary_folder.h"

namespace zentab::test {
namespace {

using Half = DeviceFault::Write;

constexpr DeviceFault kFaults[] = {
    {"no space", std::errc::no_space_on_device},
    {"I/O error", std::errc::io_error},
    {"short write", std::errc::no_space_on_device, Half::Half},
    {"bytes lost", std::errc::io_error, Half::HalfUnnoticed},
    {"no space from here on", std::errc::no_space_on_device, Half::Half, true},
    {"I/O errors from here on", std::errc::io_error, Half::Nothing, true},
};

// Hundreds of changes, each flushed to the device: in memory where that is to be had.
std::filesystem::path QuickFolder() {
#ifndef _WIN32
  std::filesystem::path memory = "/dev/shm";
  if (std::filesystem::is_directory(memory)) return memory;
#endif
  return std::filesystem::temp_directory_path();
}

class FailingDevice : public TemporaryFolder {
 public:
  ~FailingDevice() override {
    std::filesystem::current_path(std::filesystem::temp_directory_path());
  }

 protected:
  FailingDevice() : TemporaryFolder(QuickFolder()) {}

  // The step that failed, or nothing when there was none left to fail.
  std::string Try(const WritePath& path, const DeviceFault& fault, std::size_t step) {
    FillFolder(Folder(), before_);
    FailingFileLayer files;
    files.fault = fault;
    files.failingStep = step;
    Workplace place(Folder(), files);
    const bool succeeded = path.run(place);
    EXPECT_EQ(succeeded, files.failedStep.empty());
    EXPECT_EQ(place.session.table.tableModified, !(succeeded && path.saves));
    if (!succeeded) {
      ExpectUntouched(path, fault.lasts);
      EXPECT_EQ(place.session.listing.names, Listed(Folder() / kLibrary).names);
      files.failingStep = FailingFileLayer::kNever;
      EXPECT_TRUE(path.run(place));
    }
    // What was left in the place of a file that was not there yet is kept beside it.
    if (!before_.contains(path.target)) {
      std::filesystem::remove(Folder() / (path.target + ".bak"));
    }
    EXPECT_TRUE(ReadFolder(Folder()) == Changed(path, before_));
    return files.failedStep;
  }

  void ExpectUntouched(const WritePath& path, bool mayLeave) const {
    Files now = ReadFolder(Folder());
    for (const std::string& name : {path.target, path.target + ".bak"}) {
      if (mayLeave) now.erase(name + ".new");
    }
    EXPECT_TRUE(AreUntouched(path, before_, now));
  }

  const Files before_ = Installation(9);
};

TEST_F(FailingDevice, LeavesEveryFileWholeAndTheEditsUnsaved) {
  for (const WritePath& path : WritePaths()) {
    for (const DeviceFault& fault : kFaults) {
      std::set<std::string> failed;
      std::string step = "first";
      for (std::size_t number = 0; !step.empty(); ++number) {
        SCOPED_TRACE(std::string(path.what) + ", " + std::string(fault.what) + ", step " +
                     std::to_string(number));
        step = Try(path, fault, number);
        failed.insert(step);
        if (HasFailure()) return;
      }
      const std::set<std::string> all = {"",     "close",  "create", "flush", "lock",
                                         "move", "remove", "stamp",  "write"};
      EXPECT_EQ(failed, all) << path.what;
    }
  }
}

}  // namespace
}  // namespace zentab::test
