// Files of somebody else, met by a user without rights of his own. Root alone can become one.
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <iostream>

#include "platform/file_errors.h"
#include "platform/safe_file_replacement.h"
#include "support/temporary_folder.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kNobody = 65'534;
constexpr uid_t kSomebody = 1;  // daemon, who is everywhere

class FilesOfOthers : public test::TemporaryFolder {
 protected:
  // Below a folder that everyone may enter; one's own for temporary files may be closed.
  FilesOfOthers() : TemporaryFolder("/tmp") {}

  void SetUp() override {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can become somebody else";
    Give(Folder(), 0777, 0);
  }

  static void Give(const fs::path& file, mode_t rights, uid_t owner) {
    ASSERT_EQ(::chown(file.c_str(), owner, owner), 0);
    ASSERT_EQ(::chmod(file.c_str(), rights), 0);
  }

  // Says in a process of its own how the work of somebody without any rights went.
  template <class Work>
  [[noreturn]] static void WorkAsNobody(Work work) {
    const bool isNobody =
        ::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
    if (isNobody) std::cerr << work().message() << '\n';
    std::_Exit(isNobody ? 0 : 1);
  }
};

TEST_F(FilesOfOthers, AreReplacedWhereNobodyLosesByIt) {
  const struct {
    mode_t rights;
    uid_t owner;
    std::error_code error;
  } cases[] = {
      {0666, 0, {}},
      {0666, kSomebody, {}},
      {0606, kSomebody, FileError::GroupNotKept},
      {0646, 0, FileError::GroupNotKept},
      {0622, kSomebody, FileError::OwnerNotKept},
      {0622, 0, {}},
      {0664, kSomebody, std::make_error_code(std::errc::permission_denied)},
  };
  for (const auto& [rights, owner, error] : cases) {
    const fs::path file = Write("table.dat", "old");
    Give(file, rights, owner);
    const auto replace = [&file] {
      return ReplaceFile(SystemFiles(), file,
                         [](OutputFile& output) { return output.Write("new"); });
    };
    EXPECT_EXIT(WorkAsNobody(replace), ::testing::ExitedWithCode(0), error.message())
        << std::oct << rights << ' ' << owner;
    EXPECT_EQ(test::BytesOf(file), error ? "old" : "new") << std::oct << rights << ' ' << owner;
    EXPECT_EQ(Names(), std::vector<std::string>{"table.dat"});
    fs::remove(file);
  }
}

TEST_F(FilesOfOthers, LocksAreTakenOrRespected) {
  const struct {
    mode_t rights, folder;
    const char* bytes;
    std::error_code error;
    bool stays;
  } cases[] = {
      {0666, 0777, "", {}, false},
      {0644, 0777, "", {}, false},
      {0600, 0777, "", FileError::LockedByOther, true},
      {0600, 0777, "x", FileError::LockedByOther, true},
      {0600, 0700, "", std::make_error_code(std::errc::permission_denied), true},
  };
  for (const auto& [rights, folder, bytes, error, stays] : cases) {
    const fs::path lock = Write("table.dat.lock", bytes);
    Give(lock, rights, 0);
    Give(Folder(), folder, 0);
    const auto take = [this] {
      std::unique_ptr<FileLock> taken;
      return SystemFiles().TryLock(Folder() / "table.dat", taken);
    };
    EXPECT_EXIT(WorkAsNobody(take), ::testing::ExitedWithCode(0), error.message())
        << std::oct << rights;
    EXPECT_EQ(fs::exists(lock), stays) << std::oct << rights;
    fs::remove(lock);
  }
}

}  // namespace
}  // namespace zentab::platform
