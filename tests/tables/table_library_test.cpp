#include <chrono>
#include <set>
#include <thread>

#include "platform/file_errors.h"
#include "support/cases.h"
#include "support/failing_file_layer.h"
#include "support/listed.h"
#include "support/table_lines.h"
#include "support/temporary_folder.h"
#include "support/waiting_file_layer.h"
#include "tables/table_writer.h"

namespace zentab::tables {
namespace {

namespace fs = std::filesystem;
using platform::SystemFiles;
using test::BytesOf;
using test::Listed;
using NameList = std::vector<std::string>;

// Lets somebody who knows of no locks come in before one of the steps that read.
class MeddledFileLayer final : public test::SteppedFileLayer {
 public:
  std::size_t step = 0;
  std::function<void()> meddle = [] {};
  int alive = 0;

  void KeepAlive() override { ++alive; }

 private:
  std::error_code Before(const char*) override { return {}; }
  std::error_code BeforeReading(const char*) override {
    if (step-- == 0) std::exchange(meddle, {})();
    return {};
  }
};

class TableLibrary : public test::TemporaryFolder {
 protected:
  [[nodiscard]] std::error_code Replace(std::size_t index, const CurveTableEntry& entry = kEntry) {
    EntryMark mark = listing_.MarkOf(index);
    return writer_.ReplaceEntry(file_, listing_, mark, entry);
  }
  [[nodiscard]] std::error_code Remove(std::size_t index) {
    EntryMark mark = listing_.MarkOf(index);
    return writer_.RemoveEntry(file_, listing_, mark);
  }
  [[nodiscard]] std::error_code Append(const CurveTableEntry& entry = kEntry) {
    return writer_.AppendEntry(file_, listing_, entry);
  }
  [[nodiscard]] std::optional<std::string> Line(std::size_t index) {
    EntryMark mark = listing_.MarkOf(index);
    std::string line;
    return ReadEntryLine(SystemFiles(), file_, listing_, mark, line) ? std::nullopt
                                                                     : std::optional(line);
  }
  void List(std::string_view bytes) {
    file_ = Write("t.dat", bytes);
    listing_ = Listed(file_);
  }
  // The listing is that of a file read anew.
  void ExpectUpToDate() {
    const TableListing fresh = Listed(file_);
    EXPECT_EQ(listing_.names, fresh.names);
    EXPECT_EQ(listing_.instruments, fresh.instruments);
    EXPECT_EQ(listing_.stamp, fresh.stamp);
    EXPECT_EQ(listing_.end, fresh.end);
    ASSERT_EQ(listing_.lines.size(), fresh.lines.size());
    for (std::size_t line = 0; line < fresh.lines.size(); ++line) {
      ASSERT_EQ(listing_.lines[line].offset, fresh.lines[line].offset) << line;
      ASSERT_EQ(listing_.lines[line].hash, fresh.lines[line].hash) << line;
    }
  }

  static const CurveTableEntry kEntry;
  fs::path file_;
  TableListing listing_;
  test::WaitingFileLayer impatient_{[] { return false; }};
  TableWriter writer_{impatient_, Backups::None};
};

const CurveTableEntry TableLibrary::kEntry = {
    "Ü", {{"1,5", "2"}}, false, true, Instrument::Current};
const std::string kEntryLine = "{\"\xDC\"\t(1.5;2) 011}\r\n";
constexpr std::string_view kThree = "{\"a\"\t 000}\r\n{\"b\"\t 000}\n{\"c\"\t 000}";

TEST_F(TableLibrary, TheFirstOfManyNamesThatIsTakenIsFound) {
  List(kThree);
  NameList wanted(21, "x");
  EXPECT_EQ(listing_.FirstTaken(wanted), std::nullopt);
  for (const char* const name : {"C", "a", "c"}) wanted.emplace_back(name);
  EXPECT_EQ(listing_.FirstTaken(wanted), "C");
  wanted.erase(wanted.begin(), wanted.begin() + 21);
  EXPECT_EQ(listing_.FirstTaken(wanted), "C");
  wanted.resize(30, "b");
  std::swap(wanted.front(), wanted.back());
  EXPECT_EQ(listing_.FirstTaken(wanted), "b");
}

TEST_F(TableLibrary, EveryByteOfALineCounts) {
  std::string line(70, 'x');
  std::set<std::uint64_t> hashes = {HashOf(line)};
  for (char& byte : line) {
    byte = 'y';
    EXPECT_TRUE(hashes.insert(HashOf(line)).second) << line;
  }
}

TEST_F(TableLibrary, LongWorkLetsOthersLive) {
  MeddledFileLayer files;
  const std::string line((1u << 20) - 1, 'x');
  file_ = Write("t.dat", line + '\n' + line + '\n' + line + '\n' + line + '\n');
  EXPECT_FALSE(ListEntries(files, file_, listing_));
  EXPECT_EQ(files.alive, 2);
  listing_.names.assign(19'999, "x");
  EXPECT_FALSE(listing_.HasName("y", TableWriter(files, Backups::None).Alive()));
  EXPECT_EQ(files.alive, 3);
}

TEST_F(TableLibrary, ListsANameForEachLineThatHasOne) {
  List("{\"first\"\t 000}\r\nno name here\r\n\r\n{\"Łódź\"\t 000}\n{\"last\"\t(1;2) 000}");
  EXPECT_EQ(listing_.names, (NameList{"first", "Łódź", "last"}));
  EXPECT_EQ(listing_.nameless, (std::vector<std::size_t>{1, 2}));
  EXPECT_EQ(listing_.LineOf(2), 4u);
  EXPECT_EQ(listing_.LineOf(3), kNoLine);
  EXPECT_EQ(listing_.NameIn(4), 2u);
  EXPECT_EQ(listing_.NameIn(5), kNoLine);
  List("{\"a\"\r{\"b\"\r");
  EXPECT_EQ(listing_.names, (NameList{"a", "b"}));
  EXPECT_FALSE(ListEntries(SystemFiles(), Folder() / "missing.dat", listing_));
  EXPECT_EQ(listing_.names, NameList());
  EXPECT_TRUE(ListEntries(SystemFiles(), Folder(), listing_));
}

TEST_F(TableLibrary, ReadsTheLineOfANumber) {
  List(kThree);
  EXPECT_EQ(Line(0), "{\"a\"\t 000}");
  EXPECT_EQ(Line(2), "{\"c\"\t 000}");
  EXPECT_EQ(Line(3), std::nullopt);
  file_ = Folder();
  EXPECT_EQ(Line(0), std::nullopt);
}

TEST_F(TableLibrary, ChangesOneLineOfAnyFile) {
  for (const test::LineFile& lines : test::HostileLineFiles()) {
    SCOPED_TRACE(lines.what);
    const std::size_t count = lines.lines.size();
    for (std::size_t index = 0; index < count; index += count / 5 + 1) {
      List(lines.Bytes());
      ASSERT_FALSE(Replace(index));
      ASSERT_TRUE(BytesOf(file_) == lines.Bytes(index, kEntryLine)) << index;
      ASSERT_FALSE(Remove(index));
      ASSERT_TRUE(BytesOf(file_) == lines.Bytes(index, "")) << index;
    }
    List(lines.Bytes());
    EXPECT_TRUE(Remove(count));
    EXPECT_TRUE(Replace(count));
    EXPECT_TRUE(BytesOf(file_) == lines.Bytes());
    EXPECT_EQ(Names(), NameList{"t.dat"});
    EXPECT_LE(listing_.names.size(), count);
  }
}

TEST_F(TableLibrary, AppendsToAFileThatIsNotThereYet) {
  file_ = Folder() / "fresh.dat";
  EXPECT_FALSE(Append());
  EXPECT_EQ(BytesOf(file_), kEntryLine);
  file_ = Folder() / "no folder" / "t.dat";
  EXPECT_TRUE(Append());
}

TEST_F(TableLibrary, LeavesReadOnlyFilesAndFoldersAlone) {
  List(kThree);
  fs::permissions(file_, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  for (const fs::path& path : {file_, Folder()}) {
    file_ = path;
    EXPECT_TRUE(Remove(0));
    EXPECT_TRUE(Replace(0));
    EXPECT_TRUE(Append());
  }
  EXPECT_EQ(BytesOf(Folder() / "t.dat"), kThree);
  EXPECT_EQ(Names(), NameList{"t.dat"});
}

TEST_F(TableLibrary, TheListingFollowsTheOwnChanges) {
  List(kThree);
  CurveTableEntry entry = kEntry;
  for (const std::string name : {"x", "longer than the one before"}) {
    entry.name = name;
    EXPECT_FALSE(Append(entry));
    ExpectUpToDate();
    EXPECT_FALSE(
        Replace(2, {listing_.names[2], {{"1", "2"}, {"3", name}}, false, false, Instrument::None}));
    ExpectUpToDate();
    EXPECT_FALSE(Remove(1));
    ExpectUpToDate();
  }
  EXPECT_EQ(listing_.readings, 1u);
  // What was two lines is one line end now.
  List("{\"a\"\r{\"b\"\r\n\n{\"c\"");
  EXPECT_FALSE(Remove(1));
  ExpectUpToDate();
  EXPECT_EQ(Line(1), "{\"c\"");
  // A list that does not show its lines one to one.
  List("{\"a\"\t 000}\r\n\r\n{\"b\"\t 000}\r\n{\"c\"\t 000}\r\n");
  EXPECT_FALSE(Replace(1));
  ExpectUpToDate();
  EXPECT_FALSE(Remove(0));
  ExpectUpToDate();
  EXPECT_EQ(Line(0), "{\"Ü\"\t(1.5;2) 011}");
}

TEST_F(TableLibrary, AChangeFollowsItsLineOrIsNotMade) {
  const std::string b = "{\"b\"\t 000}\n";
  for (const auto& row : test::Cases("line_changes.txt", "followed")) {
    for (const std::string& line : {kEntryLine, std::string()}) {
      SCOPED_TRACE(row[0] + " " + line);
      List(kThree);
      fs::rename(Write("other", row[0]), file_);
      EntryMark at = listing_.MarkOf(1);
      const std::error_code error = line.empty()
                                        ? writer_.RemoveEntry(file_, listing_, at)
                                        : writer_.ReplaceEntry(file_, listing_, at, kEntry);
      EXPECT_EQ(at.index == kNoLine ? "none" : std::to_string(at.index), row[1]);
      std::string expected = row[0];
      if (at.index == kNoLine) {
        EXPECT_EQ(error, kEntryChanged);
        ExpectUpToDate();
      } else {
        EXPECT_FALSE(error);
        expected.replace(expected.find(b), b.size(), line);
      }
      EXPECT_EQ(BytesOf(file_), expected);
    }
  }
}

#ifndef _WIN32
TEST_F(TableLibrary, WhoeverComesBetweenTwoStepsIsNoFault) {
  const std::string b = "{\"b\"\t 000}\n", edited = "{\"a\"\t 111}\n{\"b\"\t 001}\n{\"c\"\t 000}\n";
  std::string changed(kThree);
  changed.replace(changed.find(b), b.size(), kEntryLine);
  for (const auto& [now, isMade] :
       {std::pair(std::string(), true), {edited, true}, {std::string(), false}, {edited, false}}) {
    int refused = 0;
    for (std::size_t step = 0;; ++step) {
      List(kThree);
      MeddledFileLayer files;
      files.step = step;
      files.meddle = [&, &bytes = now] { fs::rename(Write("other", bytes), file_); };
      TableWriter writer(files, Backups::None);
      EntryMark mark = listing_.MarkOf(1);
      const std::error_code error =
          isMade ? writer.Make({file_, listing_.lines[1].offset, b, kEntryLine, {}, {}}, listing_)
                 : writer.ReplaceEntry(file_, listing_, mark, kEntry);
      if (files.meddle) break;
      EXPECT_TRUE(BytesOf(file_) == now || (!error && BytesOf(file_) == changed)) << step;
      if (!error) continue;
      ++refused;
      EXPECT_EQ(error, kEntryChanged) << step;
    }
    EXPECT_GT(refused, 3);
  }
}
#endif

TEST_F(TableLibrary, ANameThatSomeoneElseHasTakenIsNotAddedAgain) {
  List("{\"a\"\t 000}\r\n");
  const std::string now = "{\"a\"\t 000}\r\n{\"\xFC\"\t 000}\r\n";
  Write("t.dat", now);
  EXPECT_EQ(Append(), std::errc::file_exists);
  EXPECT_EQ(BytesOf(file_), now);
  EXPECT_EQ(listing_.names.size(), 2u);
}

TEST_F(TableLibrary, TheFirstWriteKeepsTheFormerFile) {
  List(kThree);
  Write("t.dat.bak", "an older one, much longer than the file that is kept now, and of no use");
  const fs::path backup = Folder() / "t.dat.bak";
  TableWriter writer(SystemFiles(), Backups::AtFirstWrite);
  EntryMark index = listing_.MarkOf(0);
  EXPECT_FALSE(writer.AppendEntry(file_, listing_, kEntry));
  EXPECT_EQ(BytesOf(backup), kThree);
  EXPECT_FALSE(writer.RemoveEntry(file_, listing_, index));
  index = listing_.MarkOf(0);
  EXPECT_FALSE(writer.ReplaceEntry(fs::absolute(file_), listing_, index, kEntry));
  EXPECT_EQ(BytesOf(backup), kThree);
  EXPECT_EQ(Names(), (NameList{"t.dat", "t.dat.bak"}));
#ifndef _WIN32
  List(kThree);
  fs::remove(backup);
  constexpr fs::perms kPrivate = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(file_, kPrivate);
  TableWriter next(SystemFiles(), Backups::AtFirstWrite);
  index = listing_.MarkOf(0);
  EXPECT_FALSE(next.RemoveEntry(file_, listing_, index));
  EXPECT_EQ(fs::status(backup).permissions(), kPrivate);
#endif
  List(kThree);
  fs::remove(backup);
  fs::create_directory(backup);
  TableWriter last(SystemFiles(), Backups::AtFirstWrite);
  index = listing_.MarkOf(0);
  EXPECT_TRUE(last.RemoveEntry(file_, listing_, index));
  EXPECT_TRUE(last.LacksBackup());
  index = listing_.MarkOf(9);
  EXPECT_EQ(last.RemoveEntry(file_, listing_, index), kEntryChanged);
  EXPECT_FALSE(last.LacksBackup());
}

TEST_F(TableLibrary, AFileWithoutEntriesReplacesNoBackupThatHasSome) {
  for (const bool hasEntries : {true, false}) {
    List("no entry\r\n");
    const fs::path backup = Write("t.dat.bak", hasEntries ? kThree : "of no use");
    TableWriter writer(SystemFiles(), Backups::AtFirstWrite);
    EXPECT_FALSE(writer.AppendEntry(file_, listing_, kEntry));
    EXPECT_EQ(BytesOf(backup), hasEntries ? kThree : "no entry\r\n");
  }
}

// An older program replaces a file by writing FILE.new, removing FILE and renaming.
TEST_F(TableLibrary, WhatIsLeftInThePlaceOfTheFileIsNeverLost) {
  const std::string backup = "{\"old\"\t 000}\r\n";
  for (const bool hadBackup : {true, false}) {
    List(kThree);
    fs::rename(file_, Folder() / "t.dat.new");
    if (hadBackup) Write("t.dat.bak", backup);
    EXPECT_TRUE(writer_.FindsLeftover(file_));
    EXPECT_FALSE(Append());
    EXPECT_EQ(BytesOf(file_), kEntryLine);
    EXPECT_EQ(BytesOf(Folder() / "t.dat.bak"), kThree);
    EXPECT_EQ(BytesOf(Folder() / "t.dat.bak.old"), hadBackup ? backup : "(missing)");
    EXPECT_TRUE(writer_.HasKeptLeftover());
    EXPECT_EQ(writer_.TakeLeftover(file_), std::errc::file_exists);
    for (const char* const name : {"t.dat", "t.dat.bak", "t.dat.bak.old"}) {
      fs::remove(Folder() / name);
    }
  }
  Write("t.dat.new", kThree);
  EXPECT_FALSE(writer_.TakeLeftover(file_));
  EXPECT_EQ(BytesOf(file_), kThree);
  // The program comes to its end while a change waits for the file.
  List(kThree);
  fs::rename(file_, Folder() / "t.dat.new");
  std::thread other([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    fs::rename(Folder() / "t.dat.new", file_);
  });
  EXPECT_FALSE(TableWriter(SystemFiles(), Backups::None).AppendEntry(file_, listing_, kEntry));
  other.join();
  EXPECT_EQ(BytesOf(file_), std::string(kThree) + "\r\n" + kEntryLine);
  // Entries that are still shown are no empty file.
  List(kThree);
  fs::remove(file_);
  EXPECT_EQ(Append(), std::errc::no_such_file_or_directory);
  EXPECT_EQ(listing_.readings, 2u);
  EXPECT_FALSE(fs::exists(file_));
  // What has no entries is none of it.
  Write("t.dat.new", "none");
  EXPECT_FALSE(Append());
  EXPECT_EQ(Names(), NameList{"t.dat"});
  EXPECT_FALSE(writer_.HasKeptLeftover());
}

// A read that fails at any step changes nothing, and is told.
TEST_F(TableLibrary, WhatCannotBeReadToItsEndIsNotChanged) {
  std::string bytes = "none\r\n";
  for (int line = 0; line < 12'000; ++line) {
    bytes += "{\"" + std::to_string(line) + "\"\t(1;2)(3;4) 000}\r\n";
  }
  List(bytes);
  for (const std::string change : {"replace", "append", "make"}) {
    int failures = 0;
    test::FailingFileLayer files;
    for (std::size_t step = 0; step == 0 || !files.failedStep.empty(); ++step) {
      SCOPED_TRACE(change + ' ' + std::to_string(step));
      files = {};
      files.failingRead = step;
      files.countsAsking = true;
      TableWriter writer(files, Backups::AtFirstWrite);
      TableListing listing = listing_;
      std::error_code error = ListEntries(files, file_, listing);
      EntryMark mark = listing_.MarkOf(12'000);
      if (!error && change == "replace") {
        error = writer.ReplaceEntry(file_, listing, mark, kEntry);
      } else if (!error) {
        error = change == "append" ? writer.AppendEntry(file_, listing, kEntry)
                                   : writer.Make({file_, 0, "", kEntryLine, {}, {}}, listing);
      }
      failures += error ? 1 : 0;
      if (error) {
        EXPECT_TRUE(error == files.fault.error || error == platform::FileError::GivenUp);
        EXPECT_TRUE(BytesOf(file_) == bytes);
        EXPECT_EQ(listing.names.size(), 12'000u);
      } else {
        EXPECT_TRUE(BytesOf(Folder() / "t.dat.bak") == bytes);
        EXPECT_FALSE(Refresh(SystemFiles(), file_, listing));
        EXPECT_EQ(listing.names.back(), "Ü");
        Write("t.dat", bytes);
      }
      fs::remove(Folder() / "t.dat.bak");
    }
    EXPECT_GT(failures, 10);
  }
}

TEST_F(TableLibrary, NamesAreComparedWithoutCase) {
  listing_.names = {"Curve A", "ÜBERSTROM łódź"};
  for (const char* const name : {"curve a", "CURVE A", "Überstrom ŁÓDŹ"}) {
    EXPECT_TRUE(listing_.HasName(name)) << name;
  }
  for (const char* const name : {"Curve", "Curve  A", "Uberstrom łódź", ""}) {
    EXPECT_FALSE(listing_.HasName(name)) << name;
  }
}

}  // namespace
}  // namespace zentab::tables
