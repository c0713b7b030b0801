#include "timetest/point_reader.h"

#include <random>

#include "platform/file_errors.h"
#include "support/cases.h"
#include "support/failing_file_layer.h"
#include "support/temporary_folder.h"
#include "texts/number_text.h"
#include "timetest/section_lines.h"

namespace zentab::timetest {
namespace {

using platform::SystemFiles;
using std::string;

class PointReader : public test::TemporaryFolder {
 protected:
  [[nodiscard]] static string Entry(const ResultSource& source, const string& key) {
    string secondKey;
    return ReadSectionEntry(SystemFiles(), key, source.heading, secondKey, source.file, kSeparator,
                            kEndMarker)
        .value;
  }

  // The points as they come entry by entry.
  static std::vector<MeasuredPoint> EntryByEntry(const ResultSource& source) {
    std::vector<MeasuredPoint> points;
    for (int number = 1;; ++number) {
      const string value = Entry(source, std::to_string(number));
      if (value.empty()) return points;
      const std::size_t tab = std::min(value.find('\t'), value.size());
      const string time = value.substr(std::min(tab + 1, value.size()));
      const auto numberOf = [](const string& text) {
        return texts::LeadingNumber(texts::SetDecimalSeparator(text, ".")).value_or(0.0);
      };
      points.push_back({numberOf(value.substr(0, tab)), numberOf(time.substr(0, time.find('\t')))});
    }
  }

  static void ExpectTheSame(const ResultSource& source, const string& what) {
    ReadPoints read;
    ASSERT_FALSE(
        ReadTimeTest(SystemFiles(), source, {true, true, 0.0}, ProgressMeter({}, 0.0, 1.0), read));
    const std::vector<MeasuredPoint> expected = EntryByEntry(source);
    ASSERT_EQ(read.points.size(), expected.size()) << what;
    for (std::size_t at = 0; at < expected.size(); ++at) {
      EXPECT_EQ(read.points[at].load, expected[at].load) << what << ", entry " << at + 1;
      EXPECT_EQ(read.points[at].time, expected[at].time) << what << ", entry " << at + 1;
    }
  }
};

TEST_F(PointReader, ReadSectionEntryFollowsTheFilesLayout) {
  for (const auto& row : test::Cases("result_entries.txt", "entries")) {
    ASSERT_EQ(row.size(), 5u);
    // Headings and values are texts; the file may be in the system's code page.
    const auto file = Write("result.txt", row[0]);
    string secondKey = row[3];
    EXPECT_EQ(
        ReadSectionEntry(SystemFiles(), row[2], row[1], secondKey, file, kSeparator, kEndMarker)
            .value,
        row[4])
        << row[0];
    EXPECT_EQ(secondKey, row[3].empty() ? row[2] : row[3]);
    EXPECT_EQ(HasEntries(SystemFiles(), {file, row[1]}),
              !texts::TrimBlanks(Entry({file, row[1]}, "1")).empty());
  }
}

TEST_F(PointReader, OneReadingGivesWhatTheEntriesGive) {
  const string awkward[] = {
      "",
      "T",
      "T\n",
      "T\n2\t1\t1\t\n1\t2\t2\t\n",
      "T\n01\t5\t6\t\n1\t1\t2\t\n",
      "T\n12\t5\t6\t\n1\t1\t2\t\n2\t3\t4\t\n",
      "T\n2\t1\t1\t\n3\t2\t2\t\n3\t3\t3\t\n4\t4\t4\t\n1\t5\t5\t\n",
      "T\n1\t1\t2\t\n1\t3\t4\t\n2\t5\t6\t\n2\t7\t8\t\n",
      "T\n1\t1\t2\t\n3\t5\t6\t\n",
      "T\n1\t1\t2\t\n2\t\n3\t5\t6\t\n",
      "T\n2\t\n1\t1\t2\t\n3\t5\t6\t\n",
      "T\n 1\t1\t2\t\n  2\t3\t4\t\n\n3 5 6\n4\t7\n5\t8\t9\n",
      "T\n1\t\xB0\t2\t\n2\t1,5\t2.500,5\t\n3\t1e999\tNaN\t\n4\tinf\t-1e-400\t\n",
      "T\n1\t1\t2\t3\t4\n99999999999999999999\t1\t1\n18446744073709551617\t1\t1\n2\t1\t1\t\n",
      "T\n" + string(300'000, '7') + "\n1\t1\t2\t\n",
      "T\n123\t1\xC3\xA9\t2\xC3\xA9\n2\t3 GET THE WHOLE tab\n3\t4\tget the Whole Line\t5\t\n",
      "T\n12\tget THE whole line\n1\t1\t2\t\n",
  };
  for (const string& bytes : awkward) ExpectTheSame({Write("result.txt", bytes), "T"}, bytes);
  ExpectTheSame({Write("result.txt", "1\t2\t3\t\n2\t4\t5\t\n"), ""}, "no heading");
  string falling = "T\n";
  for (int entry = 70; entry > 0; --entry) falling += std::to_string(entry) + "\t1\t2\t\n";
  ExpectTheSame({Write("result.txt", falling), "T"}, falling);
  ExpectTheSame({Folder(), "T"}, "a folder");
  ExpectTheSame({Folder() / "missing.txt", "T"}, "no file");
  std::mt19937 random(5);
  for (int round = 0; round < 200; ++round) {
    string bytes = "T\n";
    for (int line = 0; line < 40; ++line) {
      bytes += std::to_string(random() % 35) + (random() % 9 == 0 ? " " : "\t");
      bytes += std::to_string(random() % 100) + (random() % 5 == 0 ? "\t" : "\t3\t") + "\n";
    }
    ExpectTheSame({Write("result.txt", bytes), "T"}, bytes);
  }
}

// A file that cannot be read to its end is no shorter one, and a heading that cannot be read is not
// none.
TEST_F(PointReader, SaysThatReadingFailed) {
  string bytes = "T\n";
  for (int entry = 1; entry <= 40'000; ++entry) bytes += std::to_string(entry) + "\t1\t2\t\n";
  const ResultSource source = {Write("result.txt", bytes), "T"};
  for (std::size_t step = 0; step < 3; ++step) {
    test::FailingFileLayer files;
    files.failingRead = step;
    ReadPoints read;
    EXPECT_EQ(ReadTimeTest(files, source, {}, ProgressMeter({}, 0.0, 1.0), read),
              std::errc::io_error);
    EXPECT_TRUE(read.points.empty());
    Write("fo.txt", "HEADING.CURRENT.TIMETEST.TXT {T}");
    test::FailingFileLayer again;
    again.failingRead = step / 2;
    ResultSource found;
    EXPECT_EQ(FindResultSource(again, Folder(), tables::Instrument::Current, found),
              std::errc::io_error);
  }
}

TEST_F(PointReader, CanBeStoppedAtLongLinesAndBeforeTheHeading) {
  const string line(3'000'000, 'x');
  for (const string& bytes : {line + "\nT\n1\t1\t2\t\n", "T\n1\t1\t2\t" + line + "\n"}) {
    int reports = 0;
    const ProgressReport stop = [&](double) { return ++reports == 0; };
    const ResultSource source = {Write("result.txt", bytes), "T"};
    ReadPoints read;
    EXPECT_EQ(ReadTimeTest(SystemFiles(), source, {}, ProgressMeter(stop, 0.0, 1.0), read),
              platform::FileError::GivenUp);
    EXPECT_EQ(reports, 1);
  }
}

TEST_F(PointReader, BringsLoadsAndTimesToTheModes) {
  const ResultSource source = {Write("result.txt", "T\n1\t6\t1500\t\n2\t3\t9000\t\n3\t9\t60\t\n"),
                               "T"};
  const auto points = [&](const ReadingModes& modes) {
    ReadPoints read;
    EXPECT_FALSE(ReadTimeTest(SystemFiles(), source, modes, ProgressMeter({}, 0.0, 1.0), read));
    return read;
  };
  const ReadPoints relative = points({false, false, 1.5});
  EXPECT_EQ(relative.points[0].load, 4.0);
  EXPECT_EQ(relative.points[0].time, 1.5);
  EXPECT_EQ(relative.points[0].difference, 100'000.0);
  EXPECT_EQ(relative.extremes.vMin, 2.0);
  EXPECT_EQ(relative.extremes.vMax, 6.0);
  EXPECT_EQ(relative.extremes.tMin, 0.06);
  EXPECT_EQ(relative.extremes.tMax, 9.0);
  EXPECT_EQ(points({true, true, 1.5}).points[0].load, 6.0);
  EXPECT_EQ(points({true, true, 1.5}).points[0].time, 1500.0);
  // A pickup that cannot divide leaves the load as read.
  for (const double pickup : {0.0, -0.0, 1e-320}) {
    EXPECT_EQ(points({false, true, pickup}).points[0].load, 6.0) << pickup;
  }
}

TEST_F(PointReader, FindsTheSourceOfAnInstrument) {
  std::filesystem::create_directories(Folder() / "Data" / "current");
  std::ofstream(Folder() / "Data" / "current" / "RESULT.TXT") << "x";
  Write("fo.txt", "heading.current.timetest.txt {Prüfung Strom}\n");
  const auto find = [this](tables::Instrument instrument) {
    ResultSource source;
    EXPECT_FALSE(FindResultSource(SystemFiles(), Folder(), instrument, source));
    return source;
  };
  const ResultSource current = find(tables::Instrument::Current);
  EXPECT_EQ(current.heading, "Prüfung Strom");
  EXPECT_TRUE(std::filesystem::exists(current.file)) << current.file;
  EXPECT_EQ(find(tables::Instrument::Voltage).heading, "");
  EXPECT_EQ(find(tables::Instrument::None).file, "");
}

}  // namespace
}  // namespace zentab::timetest
