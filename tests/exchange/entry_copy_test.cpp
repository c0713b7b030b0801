#include "exchange/entry_copy.h"

#include <chrono>
#include <thread>

#include "platform/file_reader.h"
#include "support/listed.h"
#include "support/table_lines.h"
#include "support/temporary_folder.h"

namespace zentab::exchange {
namespace {

namespace fs = std::filesystem;
using platform::SystemFiles;
using test::BytesOf;

using EntryCopy = test::TemporaryFolder;

// Copies from the file as it is now.
CopyResult Copy(const fs::path& from, const std::vector<bool>& selected, const fs::path& to) {
  tables::TableWriter writer(SystemFiles(), tables::Backups::None);
  return CopyEntries(writer, from, test::Listed(from), selected, to);
}

TEST_F(EntryCopy, AddsTheSelectedLinesByTheirPosition) {
  // Lines are gathered into blocks, which a longer one must not overtake.
  const std::string brief = "short", lengthy(platform::kReadBlock + 1, 'x');
  const struct {
    std::string source, target;
    std::vector<bool> selected;
    std::string after;
  } cases[] = {
      {"a\r\nb\r\nc\r\n", "x\r\n", {true, false, true}, "x\r\na\r\nc\r\n"},
      {"a\r\nb\r\nc\r\n", "", {false, true, false}, "b\r\n"},
      {"a\nb\rc", "x", {true, true, true}, "x\r\na\r\nb\r\nc\r\n"},
      {"a\r\nb", "x\n", {false, true}, "x\nb\r\n"},
      {"a\r\nb", "x\r", {true, true}, "x\ra\r\nb\r\n"},
      {"a\r\n\r\nc\r\n", "x\r\n", {false, true, true}, "x\r\n\r\nc\r\n"},
      {"a\r\n", "x", {false}, "x"},
      {"a\r\n", "x", {}, "x"},
      {"a\r\n", "x", {false, true}, "x"},
      {"a\r\n", "x", {true, true, true}, "x\r\na\r\n"},
      {"", "x", {true}, "x"},
      {brief + "\r\n" + lengthy,
       "x\r\n",
       {true, true},
       "x\r\n" + brief + "\r\n" + lengthy + "\r\n"},
      {"{\"\xDC \xFF\"\t(1;2)\t \x01}}\r\n", "", {true}, "{\"\xDC \xFF\"\t(1;2)\t \x01}}\r\n"},
  };
  for (const auto& [source, target, selected, after] : cases) {
    const fs::path from = Write("source.dat", source), to = Write("target.dat", target);
    const CopyResult result = Copy(from, selected, to);
    EXPECT_FALSE(result.error);
    EXPECT_EQ(BytesOf(to), after) << source;
    EXPECT_EQ(BytesOf(from), source);
    EXPECT_EQ(result.copied > 0, after != target);
  }
}

TEST_F(EntryCopy, KeepsEveryByteOfHostileLines) {
  const fs::path to = Folder() / "target.dat";
  for (const test::LineFile& file : test::HostileLineFiles()) {
    const fs::path from = Write("source.dat", file.Bytes());
    std::vector<bool> selected;
    std::string expected;
    for (std::size_t line = 0; line < file.lines.size(); ++line) {
      selected.push_back(line % 3 != 1);
      if (selected.back()) expected += file.lines[line].text + "\r\n";
    }
    fs::remove(to);
    EXPECT_FALSE(Copy(from, selected, to).error) << file.what;
    EXPECT_TRUE(fs::exists(to) ? BytesOf(to) == expected : expected.empty()) << file.what;
  }
}

TEST_F(EntryCopy, OntoItselfAddsEachEntryOnce) {
  std::string lines;
  for (int line = 0; line < 5000; ++line)
    lines += "{\"" + std::to_string(line) + "\"\t(1;2) 000}\r\n";
  const std::string open = lines.substr(0, lines.size() - 2);
  for (const std::string& before : {lines, open}) {
    const fs::path file = Write("library.dat", before);
    // More rows than lines, as when entries were removed behind the list's back.
    const fs::path same = Folder() / "." / "library.dat";
    const CopyResult result = Copy(file, std::vector<bool>(9000, true), same);
    EXPECT_FALSE(result.error);
    EXPECT_EQ(result.copied, 5000u);
    EXPECT_EQ(BytesOf(file), lines + lines);
  }
}

TEST_F(EntryCopy, CopiesOnlyFromTheFileThatWasListed) {
  const fs::path from = Write("source.dat", "{\"a\"\t 000}\r\n{\"b\"\t 000}\r\n");
  const fs::path to = Write("target.dat", "x\r\n");
  const tables::TableListing listed = test::Listed(from);
  tables::TableWriter writer(SystemFiles(), tables::Backups::None);
  std::this_thread::sleep_for(std::chrono::milliseconds(10));  // the file system's clock
  // Shorter, and of the same size.
  for (const char* const now : {"{\"b\"\t 000}\r\n", "{\"b\"\t 000}\r\n{\"a\"\t 000}\r\n"}) {
    Write("source.dat", now);
    EXPECT_EQ(CopyEntries(writer, from, listed, {true}, to).error, tables::kEntryChanged);
    EXPECT_EQ(BytesOf(to), "x\r\n");
  }
  fs::remove(from);
  EXPECT_EQ(CopyEntries(writer, from, listed, {true}, to).error, tables::kEntryChanged);
}

TEST_F(EntryCopy, FromTheBackupLeavesItAlone) {
  const fs::path backup = Write("t.dat.bak", "a\r\nb\r\n"), file = Write("t.dat", "x\r\n");
  tables::TableWriter writer(SystemFiles(), tables::Backups::AtFirstWrite);
  EXPECT_FALSE(CopyEntries(writer, backup, test::Listed(backup), {true, false}, file).error);
  EXPECT_EQ(BytesOf(file), "x\r\na\r\n");
  EXPECT_EQ(BytesOf(backup), "a\r\nb\r\n");
}

TEST_F(EntryCopy, ReportsFilesThatCannotBeCopied) {
  const fs::path file = Write("library.dat", "a\r\n");
  fs::create_directory(Folder() / "folder.dat");
  for (const auto& [source, target] : {std::pair("missing.dat", "library.dat"),
                                       {"folder.dat", "library.dat"},
                                       {"library.dat", "folder.dat"},
                                       {"library.dat", "no such folder/new.dat"}}) {
    const CopyResult result = Copy(Folder() / source, {true}, Folder() / target);
    EXPECT_TRUE(result.error && result.copied == 0) << source << " to " << target;
  }
  fs::permissions(file, fs::perms::owner_read);
  EXPECT_TRUE(Copy(file, {true}, file).error);
  EXPECT_EQ(BytesOf(file), "a\r\n");
}

}  // namespace
}  // namespace zentab::exchange
