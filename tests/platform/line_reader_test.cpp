#include "platform/line_reader.h"

#include "platform/file_errors.h"
#include "support/failing_file_layer.h"
#include "support/table_lines.h"
#include "support/temporary_folder.h"

namespace zentab::test {
namespace {

using platform::RawLine;
using platform::ReadLines;
using platform::SystemFiles;

using LineFiles = TemporaryFolder;

TEST_F(LineFiles, EveryLineComesWithItsOwnEnd) {
  for (const LineFile& lines : HostileLineFiles()) {
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
      SCOPED_TRACE(lines.what + mark);
      std::size_t count = 0;
      std::uint64_t offset = mark.size();
      const auto take = [&](const RawLine& line) {
        const bool isSame = count < lines.lines.size() && line.text == lines.lines[count].text &&
                            line.ending == lines.lines[count].ending && line.offset == offset;
        EXPECT_TRUE(isSame) << "line " << count;
        offset += line.text.size() + line.ending.size();
        ++count;
        return isSame;
      };
      EXPECT_FALSE(ReadLines(SystemFiles(), Write("lines", mark + lines.Bytes()), take));
      EXPECT_EQ(count, lines.lines.size());
    }
  }
}

// Looking for one kind of line end must not run through the rest of what was read for every line;
// how much that is grows with the longest line.
TEST_F(LineFiles, MillionsOfEmptyLinesAreReadInOneGo) {
  for (const char end : {'\r', '\n'}) {
    std::size_t count = 0;
    const auto path = Write("lines", std::string(8 << 20, 'x') + end + std::string(4 << 20, end));
    EXPECT_FALSE(ReadLines(SystemFiles(), path, [&](const RawLine&) {
      ++count;
      return true;
    }));
    EXPECT_EQ(count, 1 + (4u << 20));
  }
}

TEST_F(LineFiles, WhatCannotBeReadToItsEndSaysSo) {
  const auto all = [](const RawLine&) { return true; };
  EXPECT_EQ(ReadLines(SystemFiles(), Folder(), all), std::errc::is_a_directory);
  EXPECT_EQ(ReadLines(SystemFiles(), Folder() / "missing", all),
            std::errc::no_such_file_or_directory);
  const auto path = Write("lines", std::string(std::size_t{3} * (256u << 10), '\n'));
  for (std::size_t step = 0; step < 5; ++step) {
    FailingFileLayer files;
    files.failingRead = step;
    EXPECT_EQ(ReadLines(files, path, all), std::errc::io_error) << step;
  }
  // Whoever has what he wanted does not meet what comes behind.
  FailingFileLayer files;
  files.failingRead = 2;
  EXPECT_FALSE(ReadLines(files, path, [](const RawLine&) { return false; }));
  const auto endless = Write("endless", std::string(platform::kLongestLine + (1u << 20), '\0'));
  EXPECT_EQ(ReadLines(SystemFiles(), endless, all), platform::FileError::LineTooLong);
}

}  // namespace
}  // namespace zentab::test
