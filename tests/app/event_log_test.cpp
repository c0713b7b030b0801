#include "app/event_log.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <algorithm>

#include "app/session_texts.h"
#include "platform/file_errors.h"
#include "platform/paths.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

class EventLogTest : public test::TemporaryFolder {
 protected:
  EventLogTest() {
    session.baseName = "Zentab";
    session.installFolder = platform::ToText(Folder());
  }
  Session session;
};

TEST_F(EventLogTest, WritesLinesOnlyWhileItIsSwitchedOn) {
  EventLog log(session, platform::SystemFiles());
  log.WriteLogLine("%D %E Started");
  EXPECT_TRUE(Names().empty());
  session.texts.logSwitch = true;
  log.WriteLogLine("");
  EXPECT_TRUE(Names().empty());
  log.WriteLogLine("%D %E Started");
  log.WriteLogLine(" Ü 变");
  std::string written = test::BytesOf(Folder() / "Zentab.log");
  std::replace_if(
      written.begin(), written.end(), [](char c) { return c >= '0' && c <= '9'; }, '0');
  EXPECT_EQ(written, "00000000 00:00 Started\r\n Ü 变\r\n");
  session.installFolder = "/nowhere/at/all";
  log.WriteLogLine("lost");
}

#ifndef _WIN32
TEST_F(EventLogTest, APipeOfItsNameIsNeitherWaitedForNorWritten) {
  session.texts.logSwitch = true;
  const std::string name = (Folder() / "Zentab.log").string();
  ASSERT_EQ(::mkfifo(name.c_str(), 0600), 0);
  EventLog log(session, platform::SystemFiles());
  log.WriteLogLine("nobody reads this");
  const int reader = ::open(name.c_str(), O_RDONLY | O_NONBLOCK);
  log.WriteLogLine("nor this");
  char byte = 0;
  EXPECT_EQ(::read(reader, &byte, 1), 0);
  ::close(reader);
  std::unique_ptr<platform::OutputFile> file;
  EXPECT_EQ(platform::SystemFiles().OpenForAppending(name, file),
            platform::FileError::NoRegularFile);
  EXPECT_FALSE(file);
}
#endif

TEST(SessionTexts, SayWhyAFileIsRefused) {
  using platform::FileError;
  const std::pair<FileError, const char*> cases[] = {
      {FileError::GroupNotKept, "group"},     {FileError::OwnerNotKept, "owner"},
      {FileError::AccessListNotKept, "list"}, {FileError::HardLinked, "hard link"},
      {FileError::LockedByOther, "writing"},  {FileError::OpenElsewhere, "open"},
      {FileError::NoRegularFile, "regular"},  {FileError::LineTooLong, "long"},
      {FileError::GivenUp, "given up"}};
  for (const auto& [fault, word] : cases) {
    const std::error_code error = fault;
    EXPECT_NE(error.message().find(word), std::string::npos) << word;
    EXPECT_NE(ReasonText({}, error).find(word), std::string::npos) << word;
  }
  const std::error_code other = std::make_error_code(std::errc::io_error);
  EXPECT_EQ(ReasonText({}, other), other.message());
}

TEST(SessionTexts, FollowTheInstrumentAndTheValueModes) {
  Session session;
  session.texts.instruments[1] = {"Current", "Set I", "tip I", "I> (A)", "I>", "", "", "", "", "A"};
  session.texts.instruments[2] = {"Voltage", "Set U", "", "", "", "", "", "", "", "V"};
  session.texts.labels.loadRelative = "(%V)ab[%V]";
  EXPECT_EQ(LabelsFor(session).load, "ab");
  session.instrument = tables::Instrument::Voltage;
  EXPECT_EQ(InstrumentInUse(session).setGraphCaption, "Set U");
  EXPECT_EQ(InstrumentInUse(session).setGraphTip, "tip I");
  EXPECT_EQ(InstrumentInUse(session).pickupTip, "I>");
  session.modes.absoluteValues = true;
  session.modes.milliseconds = true;
  session.texts.labels.timeMilliseconds = "in %X";
  EXPECT_EQ(LabelsFor(session).load, "Load level (V)");
  EXPECT_EQ(AxisTitlesFor(session, session.modes.absoluteValues).time, "in mS");
  session.table.grid.SetCell(1, 1, "1,5");
  session.table.grid.SetCell(2, 1, "2");
  EXPECT_EQ(Expanded(session, "%U %V %T"), "Voltage V 1.5;2");
  EXPECT_EQ(MessageFor(session, MessageBox::ConfirmRemoval, "SI").text,
            "Remove the entry \"SI\" from the table file?");
}

}  // namespace
}  // namespace zentab::app
