#include <random>
#include <sstream>

#include "editor/grid_points.h"
#include "support/cases.h"
#include "support/simulated_modules.h"
#include "support/temporary_folder.h"
#include "testset/imported_graph.h"
#include "testset/instrument_session.h"
#include "testset/reference_graph_reader.h"
#include "testset/reference_graph_writer.h"
#include "texts/number_text.h"

namespace zentab::testset {
namespace {

using editor::CurveGrid;
using editor::ValueModes;
using Points = std::vector<tables::CurvePoint>;

const GraphDate kDate = {"Nov", 1, 2026};
constexpr std::string_view kExample =
    "@A Nov 1 2026 1\r\n1\r\n"
    "0.500000 10.000000 1.000000 5.000000 0.000000 0.000000 0.000000\r\n0 0\r\n"
    "\r\n0\r\n\r\n1\r\n1 0 0\r\n2\r\n0\r\n0\r\n0 65280\r\n";

CurveGrid GridOf(const Points& points) {
  CurveGrid grid;
  int row = editor::kFirstRow;
  for (const auto& [load, time] : points) {
    grid.SetCell(row, editor::kLoadColumn, load);
    grid.SetCell(row, editor::kTimeColumn, time);
    ++row;
  }
  return grid;
}

std::string Text(const std::vector<GraphSegment>& segments) {
  std::string text;
  for (const auto& [start, end] : segments) {
    for (const double coordinate : {start.load, start.time, end.load, end.time}) {
      text += texts::NumberText(coordinate, ".") + ' ';
    }
    text.back() = '|';
  }
  return text;
}

texts::InstrumentTexts WithExtensions(const std::string& firstX, const std::string& firstY,
                                      const std::string& lastX, const std::string& lastY) {
  texts::InstrumentTexts texts;
  texts.firstX = firstX;
  texts.firstY = firstY;
  texts.lastX = lastX;
  texts.lastY = lastY;
  return texts;
}

TEST(ReferenceGraph, HasTheLayoutOfGrhFiles) {
  const auto segments =
      SegmentsOf(GridOf({{"1", "10"}, {"2", "5"}}), {false, false, "0,5", ""}, {}, ",");
  EXPECT_EQ(FormatReferenceGraph(*segments, kDate), kExample);
  // A date of 13, 14 and 15 columns.
  const auto firstLine = [](const GraphDate& date) {
    const std::string graph = FormatReferenceGraph({}, date);
    return graph.substr(0, graph.find('\r'));
  };
  EXPECT_EQ(firstLine({"M\xC3\xA4r", 1, 2026}), "@A M\xE4r 1 2026 1");
  EXPECT_EQ(firstLine({"Nov", 21, 2026}), "@A Nov 21 2026              1");
  EXPECT_EQ(firstLine({"nov.", 21, 2026}), "@A nov. 21 2026             1");
}

TEST(ReferenceGraph, ScalesByTheValueModes) {
  for (const auto& row : test::Cases("graphs.txt", "scaling")) {
    const ValueModes modes = {row[0] == "absolute", row[1] == "ms", row[2], row[3]};
    const GraphPoint point = editor::Scaled(modes, row[4], row[5]);
    EXPECT_EQ(CoordinateText(point.load) + ' ' + CoordinateText(point.time), row[6] + ' ' + row[7])
        << ::testing::PrintToString(row);
  }
}

TEST(ReferenceGraph, JoinsTheRowsUpToTheFirstGapAndTheExtensions) {
  const ValueModes modes = {false, true, "2", ""};
  CurveGrid grid = GridOf({{"1", "1000"}, {"2", "500"}, {"", "7"}, {"4", "300"}, {"5", "200"}});
  EXPECT_EQ(Text(*SegmentsOf(grid, modes, {}, ",")), "2 1 4 0.5|");
  EXPECT_EQ(Text(*SegmentsOf(grid, modes, WithExtensions("0,5", "", "", "100"), ",")),
            "1 1 2 1|2 1 4 0.5|4 0.5 4 0.1|");
  grid.SetCell(2, editor::kTimeColumn, "");
  EXPECT_EQ(Text(*SegmentsOf(grid, modes, {}, ",")), "");
  EXPECT_EQ(Text(*SegmentsOf(grid, modes, WithExtensions("", "9000", "", ""), ",")), "2 9 2 1|");
  grid.SetCell(1, editor::kLoadColumn, "");
  EXPECT_FALSE(SegmentsOf(grid, modes, {}, ","));
  const std::pair<std::size_t, std::size_t> sizes[] = {{24, 25}, {25, 25}, {26, 25}};
  for (const auto& [points, segments] : sizes) {
    const CurveGrid full = GridOf(Points(points, {"1", "1"}));
    EXPECT_EQ(SegmentsOf(full, modes, WithExtensions("1", "1", "1", "1"), ",")->size(), segments);
  }
}

class GrhFile : public test::TemporaryFolder {
 protected:
  GrhFile() { std::filesystem::create_directory(Folder() / "data"); }

  void Set(const std::vector<GraphSegment>& segments) {
    EXPECT_FALSE(WriteReferenceGraph(platform::SystemFiles(), Folder(), segments, kDate));
  }
  [[nodiscard]] InstrumentSession Opened(tables::Instrument instrument) {
    test::InstallSimulators(Folder());
    InstrumentSession session(Folder(),
                              {[this](std::string_view line) { lastLine_ = line; }, [] {}});
    session.Choose(instrument);
    EXPECT_TRUE(session.Open().open);
    return session;
  }
  [[nodiscard]] std::filesystem::path File() const { return Folder() / "data" / "currtmp.grh"; }
  [[nodiscard]] ReadGraph ReadText(std::string_view bytes) {
    return ReadReferenceGraph(platform::SystemFiles(), Write("t.grh", bytes));
  }

  std::string lastLine_;
};

TEST_F(GrhFile, ComesBackAsTheCurveThatWasWrittenInEveryMode) {
  InstrumentSession session = Opened(tables::Instrument::Voltage);
  std::mt19937 random(1);
  const auto number = [&random](int digits, int smallestPower, int largestPower) {
    const int power =
        smallestPower +
        static_cast<int>(random() % static_cast<unsigned>(largestPower - smallestPower + 1));
    const auto limit = static_cast<unsigned>(std::pow(10.0, digits));
    const std::string text = std::to_string(1 + random() % limit) + "E" + std::to_string(power);
    return texts::NumberText(*texts::LeadingNumber(text), ".");
  };
  const std::string pickups[] = {"1", "0.5", "0,333", "110.25", "1.05"};
  const std::string multipliers[] = {"", "2", "0.05", "1,1"};
  for (unsigned table = 0; table < 160; ++table) {
    const ValueModes modes = {(table & 1) != 0, (table & 2) != 0, pickups[table % 5],
                              multipliers[table / 4 % 4]};
    Points points;
    for (std::size_t count = 2 + random() % 25; count > 0; --count) {
      points.push_back({number(4, -2, 0), number(4, modes.milliseconds ? 0 : -3, 0)});
    }
    const texts::InstrumentTexts texts =
        table % 3 != 0 ? texts::InstrumentTexts() : WithExtensions("0.25", "", "99999", "0,125");
    Set(*SegmentsOf(GridOf(points), modes, texts, ","));
    const ReadGraph graph = ReadReferenceGraph(platform::SystemFiles(), File());
    ASSERT_FALSE(graph.error) << test::BytesOf(File());
    const ImportedGraph imported = ImportGraph(graph.segments, modes, texts);
    EXPECT_TRUE(imported.skipped.empty());
    EXPECT_EQ(imported.points, points) << "table " << table;
    session.SetReferenceGraph(kGraphFile);
    ASSERT_EQ(lastLine_, " %E SetRefgraph 1");
    EXPECT_EQ(test::BytesOf(Folder() / "data/voltage/reference.grh"), test::BytesOf(File()));
  }
}

TEST_F(GrhFile, NamesTheLineAtFault) {
  std::vector<std::string> lines;
  const std::string example(kExample);
  for (std::size_t at = 0; at < example.size(); at = example.find('\n', at) + 1) {
    lines.push_back(example.substr(at, example.find('\r', at) - at));
  }
  for (const auto& row : test::Cases("graphs.txt", "malformed")) {
    const std::size_t changed = std::stoul(row[0]);
    std::string bytes;
    for (std::size_t line = 1; line <= lines.size(); ++line) {
      bytes += (line == changed ? row[1] : lines[line - 1]) + "\r\n";
    }
    if (changed > lines.size()) bytes += row[1];
    const ReadGraph graph = ReadText(bytes);
    const std::size_t expected = row[2] == "whole" ? 0 : std::stoul(row[2]);
    EXPECT_EQ(graph.error ? graph.error->line : 0, expected) << ::testing::PrintToString(row);
    EXPECT_EQ(graph.segments.size(), expected == 0 ? 1u : 0u);
  }
  for (const char* const unreadable : {"missing", "."}) {
    const auto error = ReadReferenceGraph(platform::SystemFiles(), Folder() / unreadable).error;
    EXPECT_TRUE(error && error->fault == GraphFault::Unreadable && error->line == 1) << unreadable;
  }
  EXPECT_EQ(ReadText("").error->fault, GraphFault::EndsEarly);
  EXPECT_EQ(ReadText(std::string(5'000'000, '7')).error->line, 2u);
  std::string wide = example;
  wide.insert(wide.find("\r\n0 0\r\n"), 5'000'000, ' ');
  EXPECT_EQ(ReadText(wide).error.value().line, 3u);
  EXPECT_EQ(ReadText(example + std::string(30'000, '\n')).error.value().line, 20'101u);
}

TEST_F(GrhFile, CutAnywhereIsRefusedByReaderAndInstrument) {
  InstrumentSession session = Opened(tables::Instrument::Current);
  Set({{{1, 2}, {3, 4}}});
  session.SetReferenceGraph(kGraphFile);
  const std::string reference = test::BytesOf(Folder() / "data/current/reference.grh");
  // What is left of the colour in the last line is a colour, too.
  const std::size_t colour = kExample.rfind("65280");
  for (std::size_t size = 0; size < kExample.size(); ++size) {
    Write("data/currtmp.grh", kExample.substr(0, size));
    EXPECT_EQ(ReadReferenceGraph(platform::SystemFiles(), File()).error.has_value(), size <= colour)
        << size;
    session.SetReferenceGraph(kGraphFile);
    EXPECT_EQ(lastLine_, " %E SetRefgraph 0") << size;
  }
  EXPECT_EQ(test::BytesOf(Folder() / "data/current/reference.grh"), reference);
}

TEST(ImportGraph, SkipsWhatDoesNotContinue) {
  const ValueModes modes = {true, false, "", ""};
  const ImportedGraph gap =
      ImportGraph({{{1, 9}, {2, 8}}, {{3, 7}, {4, 6}}, {{2, 8}, {5, 5}}}, modes, {});
  EXPECT_EQ(gap.points, (Points{{"1", "9"}, {"2", "8"}, {"5", "5"}}));
  EXPECT_EQ(gap.skipped, (std::vector<GraphPoint>{{4, 6}}));
}

TEST(ImportGraph, TakesOffWhatExportingAddsAgainAndSkipsWhatDoesNotFit) {
  for (const auto& row : test::Cases("imported_graphs.txt", "imported")) {
    std::vector<GraphSegment> segments;
    std::istringstream numbers(row[5]);
    for (GraphPoint point{}; numbers >> point.load >> point.time;) {
      if (!segments.empty()) segments.back().end = point;
      segments.push_back({point, point});
    }
    segments.pop_back();
    const auto graph = ImportGraph(segments, {false, false, row[0], row[6]},
                                   WithExtensions(row[1], row[2], row[3], row[4]));
    std::string points;
    for (const auto& [load, time] : graph.points) points += load + ';' + time + ' ';
    points += std::to_string(graph.skipped.size());
    EXPECT_EQ(points, row[7]) << ::testing::PrintToString(row);
  }
}

TEST(ImportGraph, GivesNumbersWhateverThePickupIs) {
  const std::vector<GraphSegment> far = {{{1e300, 1e-9}, {0, -1e300}}};
  for (const char* const pickup : {"1E-300", "-0.5", "1E300"}) {
    const ImportedGraph imported = ImportGraph(far, {false, true, pickup, "1E-300"}, {});
    ASSERT_EQ(imported.points.size(), 2u);
    for (const tables::CurvePoint& point : imported.points) {
      EXPECT_TRUE(texts::WholeNumber(point.load) && texts::WholeNumber(point.time))
          << pickup << ": " << point.load << ' ' << point.time;
    }
  }
  EXPECT_FALSE(CanImport({false, false, "0", ""}) || CanImport({false, false, "x", ""}));
  EXPECT_TRUE(CanImport({true, false, "", ""}));
}

}  // namespace
}  // namespace zentab::testset
