#include "tables/table_library.h"

#include "support/table_lines.h"
#include "support/temporary_folder.h"

namespace zentab::tables {
namespace {

namespace fs = std::filesystem;
using platform::SystemFiles;
using test::BytesOf;
using NameList = std::vector<std::string>;

using TableLibrary = test::TemporaryFolder;

const CurveTableEntry kEntry = {"Ü", {{"1,5", "2"}}, false, true, Instrument::Current};
const std::string kEntryLine = "{\"\xDC\"\t(1.5;2) 011}\r\n";
constexpr std::string_view kThree = "{\"a\"\t 000}\r\n{\"b\"\t 000}\n{\"c\"\t 000}";

TEST_F(TableLibrary, ListsANameForEachLineThatHasOne) {
  const fs::path file = Write(
      "t.dat", "{\"first\"\t 000}\r\nno name here\r\n\r\n{\"Łódź\"\t 000}\n{\"last\"\t(1;2) 000}");
  EXPECT_EQ(ListEntryNames(file), (NameList{"first", "Łódź", "last"}));
  EXPECT_EQ(ListEntryNames(Write("cr.dat", "{\"a\"\r{\"b\"\r")), (NameList{"a", "b"}));
  EXPECT_EQ(ListEntryNames(Write("empty.dat", "")), NameList());
  EXPECT_EQ(ListEntryNames(Folder() / "missing.dat"), NameList());
  EXPECT_EQ(ListEntryNames(Folder()), NameList());
}

TEST_F(TableLibrary, ReadsTheLineOfANumber) {
  const fs::path file = Write("t.dat", kThree);
  EXPECT_EQ(ReadEntryLine(file, 0), "{\"a\"\t 000}");
  EXPECT_EQ(ReadEntryLine(file, 2), "{\"c\"\t 000}");
  EXPECT_EQ(ReadEntryLine(file, 3), std::nullopt);
  EXPECT_EQ(ReadEntryLine(Folder(), 0), std::nullopt);
}

TEST_F(TableLibrary, ChangesOneLineOfAnyFile) {
  for (const test::LineFile& lines : test::HostileLineFiles()) {
    SCOPED_TRACE(lines.what);
    const std::size_t count = lines.lines.size();
    for (std::size_t index = 0; index < count; index += count / 10 + 1) {
      const fs::path file = Write("t.dat", lines.Bytes());
      ASSERT_FALSE(ReplaceEntry(SystemFiles(), file, index, kEntry));
      ASSERT_TRUE(BytesOf(file) == lines.Bytes(index, kEntryLine)) << index;
      ASSERT_FALSE(RemoveEntry(SystemFiles(), file, index));
      ASSERT_TRUE(BytesOf(file) == lines.Bytes(index, "")) << index;
    }
    const fs::path file = Write("t.dat", lines.Bytes());
    EXPECT_TRUE(RemoveEntry(SystemFiles(), file, count));
    EXPECT_TRUE(ReplaceEntry(SystemFiles(), file, count, kEntry));
    EXPECT_TRUE(BytesOf(file) == lines.Bytes());
    EXPECT_EQ(Names(), NameList{"t.dat"});
    EXPECT_LE(ListEntryNames(file).size(), count);
  }
}

TEST_F(TableLibrary, AppendsBehindACompleteLastLine) {
  const std::string_view cases[][2] = {
      {"", ""}, {"x", "x\r\n"}, {"x\r\n", "x\r\n"}, {"x\n", "x\n"}, {"x\r", "x\r"}, {"\n", "\n"},
  };
  for (const auto& [before, kept] : cases) {
    const fs::path file = Write("t.dat", before);
    EXPECT_FALSE(AppendEntry(SystemFiles(), file, kEntry));
    EXPECT_EQ(BytesOf(file), std::string(kept) + kEntryLine);
  }
  EXPECT_FALSE(AppendEntry(SystemFiles(), Folder() / "fresh.dat", kEntry));
  EXPECT_EQ(BytesOf(Folder() / "fresh.dat"), kEntryLine);
  EXPECT_TRUE(AppendEntry(SystemFiles(), Folder() / "no folder" / "t.dat", kEntry));
}

TEST_F(TableLibrary, LeavesReadOnlyFilesAndFoldersAlone) {
  const fs::path file = Write("t.dat", kThree);
  fs::permissions(file, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  for (const fs::path& path : {file, Folder()}) {
    EXPECT_TRUE(RemoveEntry(SystemFiles(), path, 0));
    EXPECT_TRUE(ReplaceEntry(SystemFiles(), path, 0, kEntry));
    EXPECT_TRUE(AppendEntry(SystemFiles(), path, kEntry));
  }
  EXPECT_EQ(BytesOf(file), kThree);
  EXPECT_EQ(Names(), NameList{"t.dat"});
  EXPECT_EQ(ListEntryNames(file).size(), 3u);
}

TEST_F(TableLibrary, NamesAreComparedWithoutCase) {
  const NameList names = {"Curve A", "ÜBERSTROM łódź"};
  for (const char* const name : {"curve a", "CURVE A", "Überstrom ŁÓDŹ"}) {
    EXPECT_TRUE(HasName(names, name)) << name;
  }
  for (const char* const name : {"Curve", "Curve  A", "Uberstrom łódź", ""}) {
    EXPECT_FALSE(HasName(names, name)) << name;
  }
}

}  // namespace
}  // namespace zentab::tables
