#include "platform/safe_file_replacement.h"

#include "support/failing_file_layer.h"
#include "support/temporary_folder.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using platform::AppendToFile;
using platform::OutputFile;
using platform::ReplaceFile;
using platform::SystemFiles;

using SafeFileReplacement = TemporaryFolder;

constexpr std::string_view kOld = "the old content, which someone needs\n";
constexpr std::string_view kFresh = "fresh";
const std::vector<std::string> kOnlyTheFile = {"table.dat"};

std::error_code WriteFresh(OutputFile& file) {
  const std::error_code error = file.Write(kFresh.substr(0, 2));
  return error ? error : file.Write(kFresh.substr(2));
}

TEST_F(SafeFileReplacement, KeepsTheOldFileWhicheverStepFails) {
  const fs::path file = Write("table.dat", kOld);
  std::string failed;
  for (std::size_t step = 0;; ++step) {
    FailingFileLayer layer;
    layer.failingStep = step;
    const std::error_code error = ReplaceFile(layer, file, WriteFresh);
    if (layer.failedStep.empty()) {
      EXPECT_FALSE(error);
      break;
    }
    failed += layer.failedStep + ' ';
    EXPECT_EQ(error, std::errc::io_error) << layer.failedStep;
    EXPECT_EQ(BytesOf(file), kOld) << layer.failedStep;
    EXPECT_EQ(Names(), kOnlyTheFile) << layer.failedStep;
  }
  EXPECT_EQ(failed, "remove create write write flush size close move ");
  EXPECT_EQ(BytesOf(file), kFresh);
  EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(SafeFileReplacement, KeepsTheOldFileWhenTheDeviceIsFullOrLosesBytes) {
  const fs::path file = Write("table.dat", kOld);
  for (const bool silently : {false, true}) {
    for (std::size_t fits = 0; fits < kFresh.size(); ++fits) {
      FailingFileLayer layer;
      layer.bytesThatFit = fits;
      layer.losesBytesSilently = silently;
      EXPECT_TRUE(ReplaceFile(layer, file, WriteFresh)) << fits;
      EXPECT_EQ(BytesOf(file), kOld) << fits;
      EXPECT_EQ(Names(), kOnlyTheFile) << fits;
    }
  }
}

TEST_F(SafeFileReplacement, AppendingLeavesTheFormerBytesWhenItFails) {
  const fs::path file = Write("table.dat", kOld);
  for (std::size_t step = 0; step < 4; ++step) {
    FailingFileLayer layer;
    layer.failingStep = step;
    EXPECT_EQ(AppendToFile(layer, file, kFresh), std::errc::io_error) << layer.failedStep;
    EXPECT_EQ(BytesOf(file), kOld) << layer.failedStep;
  }
  for (std::size_t fits = 0; fits < kFresh.size(); ++fits) {
    FailingFileLayer layer;
    layer.bytesThatFit = fits;
    EXPECT_EQ(AppendToFile(layer, file, kFresh), std::errc::no_space_on_device);
    EXPECT_EQ(BytesOf(file), kOld) << fits;
  }
}

// The bytes are on the device then: reported as a failure, they would be added a second time.
TEST_F(SafeFileReplacement, AppendingSucceedsOnceTheBytesAreFlushed) {
  const fs::path file = Write("table.dat", kOld);
  FailingFileLayer layer;
  layer.failingStep = 4;
  EXPECT_FALSE(AppendToFile(layer, file, kFresh));
  EXPECT_EQ(layer.failedStep, "close");
  EXPECT_EQ(BytesOf(file), std::string(kOld) + std::string(kFresh));
}

TEST_F(SafeFileReplacement, RemovesAStaleNewFile) {
  const fs::path file = Write("table.dat", kOld);
  Write("table.dat.new", "a much longer leftover of an interrupted update");
  EXPECT_FALSE(ReplaceFile(SystemFiles(), file, WriteFresh));
  EXPECT_EQ(BytesOf(file), kFresh);
  EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(SafeFileReplacement, RefusesReadOnlyFilesAndFolders) {
  const fs::path file = Write("table.dat", kOld);
  fs::permissions(file, fs::perms::owner_read);
  const fs::path folder = Folder() / "folder.dat";
  fs::create_directory(folder);
  for (const fs::path& path : {file, folder}) {
    EXPECT_TRUE(ReplaceFile(SystemFiles(), path, WriteFresh)) << path;
    EXPECT_TRUE(AppendToFile(SystemFiles(), path, kFresh)) << path;
  }
  EXPECT_EQ(BytesOf(file), kOld);
  EXPECT_EQ(Names(), (std::vector<std::string>{"folder.dat", "table.dat"}));
}

#ifndef _WIN32
TEST_F(SafeFileReplacement, KeepsAccessRightsAndSymbolicLinks) {
  const fs::path file = Write("table.dat", kOld);
  constexpr fs::perms kRights = fs::perms::owner_read | fs::perms::owner_write |
                                fs::perms::group_read | fs::perms::group_write;
  fs::permissions(file, kRights);
  fs::create_symlink("table.dat", Folder() / "link.dat");
  EXPECT_FALSE(ReplaceFile(SystemFiles(), Folder() / "link.dat", WriteFresh));
  EXPECT_TRUE(fs::is_symlink(Folder() / "link.dat"));
  EXPECT_EQ(BytesOf(file), kFresh);
  EXPECT_EQ(fs::status(file).permissions(), kRights);
}
#endif

}  // namespace
}  // namespace zentab::test
