#include "platform/line_reader.h"

#include "support/table_lines.h"
#include "support/temporary_folder.h"

namespace zentab::test {
namespace {

using LineFiles = TemporaryFolder;

TEST_F(LineFiles, EveryLineComesWithItsOwnEnd) {
  for (const LineFile& lines : HostileLineFiles()) {
    SCOPED_TRACE(lines.what);
    platform::LineReader reader(Write("lines", lines.Bytes()));
    platform::RawLine line;
    std::size_t count = 0;
    for (; reader.Next(line); ++count) {
      ASSERT_LT(count, lines.lines.size());
      ASSERT_TRUE(line.text == lines.lines[count].text) << "line " << count;
      ASSERT_EQ(line.ending, lines.lines[count].ending) << "line " << count;
    }
    EXPECT_EQ(count, lines.lines.size());
  }
}

// Looking for one kind of line end must not run through the rest of the file for every line.
TEST_F(LineFiles, MillionsOfEmptyLinesAreReadInOneGo) {
  for (const char end : {'\r', '\n'}) {
    platform::LineReader reader(Write("lines", std::string(4 << 20, end)));
    platform::RawLine line;
    std::size_t count = 0;
    while (reader.Next(line)) ++count;
    EXPECT_EQ(count, 4u << 20);
  }
}

TEST_F(LineFiles, WhatIsNoFileHasNoLines) {
  for (const auto& path : {Folder(), Folder() / "missing"}) {
    platform::LineReader reader(path);
    platform::RawLine line;
    EXPECT_FALSE(reader.Next(line));
  }
}

}  // namespace
}  // namespace zentab::test
