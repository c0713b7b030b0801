#include "platform/safe_file_replacement.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <sys/xattr.h>
#endif

#include <algorithm>
#include <thread>

#include "platform/file_errors.h"
#include "support/temporary_folder.h"
#include "support/waiting_file_layer.h"

namespace zentab::test {
namespace {

namespace fs = std::filesystem;
using platform::FileError;
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

TEST_F(SafeFileReplacement, CleansUpBehindACrash) {
  const fs::path file = Write("table.dat", kOld);
  Write("table.dat.new", "a much longer leftover of an interrupted update");
  Write("table.dat.lock", "");
  EXPECT_FALSE(ReplaceFile(SystemFiles(), file, WriteFresh));
  EXPECT_EQ(BytesOf(file), kFresh);
  EXPECT_EQ(Names(), kOnlyTheFile);
  fs::rename(file, Folder() / "table.dat.new");
  EXPECT_FALSE(ReplaceFile(SystemFiles(), file, WriteFresh));
  EXPECT_EQ(Names(), kOnlyTheFile);
}

// Whoever replaces a file at the same time waits, and what he reads of it is what he replaces.
TEST_F(SafeFileReplacement, OneReplacesAtATime) {
  const fs::path file = Write("table.dat", "");
  constexpr int kEach = 100;
  const auto addLines = [&file](char line) {
    for (int count = 0; count < kEach; ++count) {
      EXPECT_EQ(ReplaceFile(SystemFiles(), file,
                            [&](OutputFile& output) { return output.Write(BytesOf(file) + line); }),
                std::error_code());
    }
  };
  std::thread other(addLines, 'b');
  addLines('a');
  other.join();
  const std::string bytes = BytesOf(file);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 'a'), kEach);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 'b'), kEach);
  EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(SafeFileReplacement, WaitsForALockAsLongAsItIsToldTo) {
  const fs::path file = Write("table.dat", kOld);
  std::unique_ptr<platform::FileLock> held;
  ASSERT_FALSE(SystemFiles().TryLock(file, held));
  int asked = 0;
  WaitingFileLayer impatient([&] { return ++asked < 5; });
  EXPECT_EQ(ReplaceFile(impatient, file, WriteFresh), FileError::LockedByOther);
  EXPECT_EQ(asked, 5);
  EXPECT_GE(impatient.alive, 4);
  EXPECT_EQ(TakeLeftover(impatient, file), FileError::LockedByOther);
  EXPECT_EQ(BytesOf(file), kOld);
  WaitingFileLayer patient([&] {
    held.reset();
    return true;
  });
  EXPECT_FALSE(ReplaceFile(patient, file, WriteFresh));
  EXPECT_EQ(BytesOf(file), kFresh);
  EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(SafeFileReplacement, PartsNoHardLinks) {
  const fs::path file = Write("table.dat", kOld);
  fs::create_hard_link(file, Folder() / "other.dat");
  const std::error_code error = ReplaceFile(SystemFiles(), file, WriteFresh);
  EXPECT_EQ(error, FileError::HardLinked);
  EXPECT_EQ(error, std::errc::too_many_links);
  EXPECT_EQ(BytesOf(file), kOld);
  fs::remove(Folder() / "other.dat");
  EXPECT_FALSE(ReplaceFile(SystemFiles(), file, WriteFresh));
  EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(SafeFileReplacement, RefusesReadOnlyFilesAndFolders) {
  const fs::path file = Write("table.dat", kOld);
  fs::permissions(file, fs::perms::owner_read);
  const fs::path folder = Folder() / "folder.dat";
  fs::create_directory(folder);
  EXPECT_EQ(ReplaceFile(SystemFiles(), file, WriteFresh), std::errc::permission_denied);
  EXPECT_EQ(ReplaceFile(SystemFiles(), folder, WriteFresh), std::errc::is_a_directory);
  EXPECT_EQ(BytesOf(file), kOld);
  EXPECT_EQ(Names(), (std::vector<std::string>{"folder.dat", "table.dat"}));
}

#ifndef _WIN32
TEST_F(SafeFileReplacement, TellsWhyAFileCannotBeLookedAt) {
  const fs::path file = Folder() / std::string(300, 'x');
  EXPECT_EQ(ReplaceFile(SystemFiles(), file, WriteFresh), std::errc::filename_too_long);
}

TEST_F(SafeFileReplacement, KeepsAccessRightsAndSymbolicLinks) {
  const fs::path file = Write("table.dat", kOld);
  constexpr fs::perms kRights = fs::perms::owner_read | fs::perms::owner_write |
                                fs::perms::group_read | fs::perms::group_write;
  fs::permissions(file, kRights);
  fs::create_symlink("table.dat", Folder() / "link.dat");
  EXPECT_FALSE(ReplaceFile(SystemFiles(), Folder() / "link.dat", WriteFresh));
  EXPECT_TRUE(fs::is_symlink(Folder() / "link.dat"));
  fs::create_symlink("made.dat", Folder() / "dangling.dat");
  EXPECT_FALSE(ReplaceFile(SystemFiles(), Folder() / "dangling.dat", WriteFresh));
  EXPECT_TRUE(fs::is_symlink(Folder() / "dangling.dat"));
  EXPECT_EQ(BytesOf(Folder() / "made.dat"), kFresh);
  EXPECT_EQ(BytesOf(file), kFresh);
  EXPECT_EQ(fs::status(file).permissions(), kRights);
}

// Where the file system has attributes: one of the user's own, and a list that lets a user in.
TEST_F(SafeFileReplacement, KeepsAttributesAndAccessLists) {
  const fs::path file = Write("table.dat", kOld);
  const std::string own("\0 mine", 6), name = "user.zentab", list = "system.posix_acl_access";
  // Of the owner, of user 7, of the group, their mask, of others.
  const std::string rights(
      "\2\0\0\0\1\0\6\0\xFF\xFF\xFF\xFF\2\0\6\0\7\0\0\0\4\0\4\0\xFF\xFF\xFF\xFF"
      "\x10\0\6\0\xFF\xFF\xFF\xFF\x20\0\0\0\xFF\xFF\xFF\xFF",
      44);
  for (const auto& [attribute, value] : {std::pair(name, own), {list, rights}}) {
    if (::setxattr(file.c_str(), attribute.c_str(), value.data(), value.size(), 0) != 0) continue;
    EXPECT_FALSE(ReplaceFile(SystemFiles(), file, WriteFresh)) << attribute;
    std::string kept(100, '-');
    const ssize_t size = ::getxattr(file.c_str(), attribute.c_str(), kept.data(), kept.size());
    EXPECT_EQ(kept.substr(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0))), value)
        << attribute;
    // A list of the folder is no matter of a file that had none.
    ASSERT_EQ(::removexattr(file.c_str(), attribute.c_str()), 0);
  }
  const bool hasLists = ::setxattr(Folder().c_str(), "system.posix_acl_default", rights.data(),
                                   rights.size(), 0) == 0;
  EXPECT_FALSE(ReplaceFile(SystemFiles(), file, WriteFresh));
  EXPECT_LT(::getxattr(file.c_str(), list.c_str(), nullptr, 0), 0) << hasLists;
}

// What stands under the lock's name and is no lock stays; a lock is open to everyone.
TEST_F(SafeFileReplacement, LocksAreForEveryone) {
  const fs::path file = Write("table.dat", kOld), lock = Folder() / "table.dat.lock";
  const mode_t former = ::umask(077);
  std::unique_ptr<platform::FileLock> held;
  EXPECT_FALSE(SystemFiles().TryLock(file, held));
  ::umask(former);
  EXPECT_EQ(fs::status(lock).permissions(), static_cast<fs::perms>(0666));
  held.reset();
  Write("table.dat.lock", "someone's notes");
  fs::permissions(lock, static_cast<fs::perms>(0640));
  EXPECT_FALSE(ReplaceFile(SystemFiles(), file, WriteFresh));
  EXPECT_EQ(BytesOf(lock), "someone's notes");
  EXPECT_EQ(fs::status(lock).permissions(), static_cast<fs::perms>(0640));
  fs::remove(lock);
  ASSERT_EQ(::mkfifo(lock.c_str(), 0600), 0);
  EXPECT_EQ(ReplaceFile(SystemFiles(), file, WriteFresh), FileError::NoRegularFile);
  EXPECT_EQ(ReplaceFile(SystemFiles(), lock, WriteFresh), FileError::NoRegularFile);
  EXPECT_TRUE(fs::is_fifo(lock));
}
#endif

}  // namespace
}  // namespace zentab::test
