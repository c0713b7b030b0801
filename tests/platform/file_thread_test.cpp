#include "platform/file_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

#include "platform/file_layer.h"
#include "support/temporary_folder.h"

namespace zentab::test {
namespace {

using namespace std::chrono_literals;
using platform::FileThread;

constexpr auto kLimit = 30s;

TEST(Files, AreWorkedOnByAThreadThatEndsWithItsOwner) {
  std::promise<void> end;
  std::future<void> hasEnded = end.get_future();
  {
    FileThread thread;
    std::atomic<int> made = 0;
    const auto first = thread.Start([&made, &end] {
      end.set_value_at_thread_exit();
      made = 1;
    });
    const auto second = thread.Start([&made] { made = made * 10 + 2; });
    ASSERT_TRUE(second->WaitFor(kLimit));
    EXPECT_TRUE(first->WaitFor(0s));
    EXPECT_EQ(made, 12);
    EXPECT_EQ(hasEnded.wait_for(0s), std::future_status::timeout);
  }
  EXPECT_EQ(hasEnded.wait_for(kLimit), std::future_status::ready);
}

TEST(Files, ACallThatIsLeftHoldsNobodyUp) {
  std::promise<void> device;
  const std::shared_future<void> answer = device.get_future().share();
  std::promise<void> behind;
  std::future<void> isMade = behind.get_future();
  FileThread thread;
  const auto stuck = thread.Start([answer] { answer.wait(); });
  const auto waiting = thread.Start([&behind] { behind.set_value(); });
  EXPECT_FALSE(stuck->WaitFor(1ms));
  thread.Leave();
  EXPECT_TRUE(FileThread::HasLeftCalls());
  EXPECT_TRUE(thread.Start([] {})->WaitFor(kLimit));
  EXPECT_FALSE(waiting->WaitFor(0s));
  device.set_value();
  EXPECT_EQ(isMade.wait_for(kLimit), std::future_status::ready);
  const auto end = std::chrono::steady_clock::now() + kLimit;
  while (FileThread::HasLeftCalls() && std::chrono::steady_clock::now() < end) {
    std::this_thread::yield();
  }
  EXPECT_FALSE(FileThread::HasLeftCalls());
}

TEST(Files, TheOwnersEndComesWithThatOfTheLastCall) {
  bool isMade = false;
  {
    FileThread thread(1h);
    thread.Start([&isMade] {
      std::this_thread::sleep_for(20ms);
      isMade = true;
    });
  }
  EXPECT_TRUE(isMade);
}

using FileStamps = TemporaryFolder;

TEST_F(FileStamps, TellOneContentFromTheNextAndWhereThereIsNone) {
  platform::FileLayer& files = platform::SystemFiles();
  const std::filesystem::path file = Write("table.dat", "one");
  std::optional<platform::FileStamp> first;
  std::optional<platform::FileStamp> stamp;
  EXPECT_FALSE(files.StampOf(file, first));
  EXPECT_FALSE(files.StampOf(file, stamp));
  ASSERT_TRUE(first.has_value());
  EXPECT_EQ(first, stamp);
  Write("table.dat", "three");
  EXPECT_FALSE(files.StampOf(file, stamp));
  EXPECT_NE(first, stamp);
  for (const auto& none : {Folder() / "missing.dat", file / "below", Folder()}) {
    stamp = first;
    EXPECT_FALSE(files.StampOf(none, stamp)) << none;
    EXPECT_FALSE(stamp.has_value()) << none;
  }
}

}  // namespace
}  // namespace zentab::test
