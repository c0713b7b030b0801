#include "platform/line_reader.h"

#include "platform/safe_file_replacement.h"
#include "support/table_lines.h"
#include "support/temporary_folder.h"

namespace zentab::test {
namespace {

using LineFiles = TemporaryFolder;

TEST_F(LineFiles, EveryLineComesWithItsOwnEnd) {
  for (const LineFile& lines : HostileLineFiles()) {
    SCOPED_TRACE(lines.what);
    platform::LineReader reader(Write("lines", lines.Bytes()));
    ASSERT_TRUE(reader.IsOpen());
    platform::RawLine line;
    std::size_t count = 0;
    for (; reader.Next(line); ++count) {
      ASSERT_LT(count, lines.lines.size());
      ASSERT_TRUE(line.text == lines.lines[count].text) << "line " << count;
      ASSERT_EQ(line.ending, lines.lines[count].ending) << "line " << count;
    }
    EXPECT_EQ(count, lines.lines.size());
    EXPECT_FALSE(reader.Failed());
  }
}

TEST_F(LineFiles, OnlyTheChangedLineChanges) {
  for (const LineFile& lines : HostileLineFiles()) {
    SCOPED_TRACE(lines.what);
    const auto source = Write("lines", lines.Bytes());
    const auto change = [&](std::size_t index, std::string_view replacement) {
      return platform::ReplaceFile(
          platform::SystemFiles(), Folder() / "copy", [&](platform::OutputFile& output) {
            return platform::CopyChangingLine(source, index, replacement, output);
          });
    };
    const std::size_t step = lines.lines.size() / 12 + 1;
    for (std::size_t index = 0; index < lines.lines.size(); index += step) {
      for (const std::string_view replacement : {"", "{new}\r\n"}) {
        ASSERT_FALSE(change(index, replacement));
        ASSERT_TRUE(BytesOf(Folder() / "copy") == lines.Bytes(index, replacement)) << index;
      }
    }
    EXPECT_EQ(change(lines.lines.size(), "x"), std::errc::result_out_of_range);
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
    EXPECT_FALSE(reader.IsOpen());
    EXPECT_FALSE(reader.Next(line));
  }
}

}  // namespace
}  // namespace zentab::test
