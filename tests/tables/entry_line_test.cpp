#include "tables/entry_line.h"

#include <gtest/gtest.h>

namespace zentab::tables {
namespace {

using std::string;
using Points = std::vector<CurvePoint>;

TEST(EntryLine, IsWrittenAsTheFileFormatSays) {
  Points many(40, {"1", "2"});
  string manyLine = "{\"many\"\t";
  for (int i = 0; i < 26; ++i) manyLine += "(1;2)";
  const struct {
    CurveTableEntry entry;
    string line;
  } cases[] = {
      {{"Curve A", {{"1.5", "10"}, {"2", "4.25"}}, false, true, Instrument::Current},
       "{\"Curve A\"\t(1.5;10)(2;4.25) 011}"},
      {{"no points", {}, true, false, Instrument::Voltage}, "{\"no points\"\t 102}"},
      {{"gap", {{"1", "2"}, {"2", ""}, {"", "3"}, {"4", "4"}}, false, false, Instrument::None},
       "{\"gap\"\t(1;2)(2;) 000}"},
      {{"separators", {{"2,5", "1,234.5"}, {" 3,0 ", "1.50"}}, false, false, Instrument::None},
       "{\"separators\"\t(2.5;1.234.5)(3.0;1.50) 000}"},
      {{"any text", {{" ", "abc"}}, false, false, Instrument::None}, "{\"any text\"\t(;abc) 000}"},
      {{"a\"b(c", {}, false, false, Instrument::None}, "{\"a\"b(c\"\t 000}"},
      {{"line\r\nbreak", {{"1\n", "2"}}, false, false, Instrument::None},
       "{\"line  break\"\t(1 ;2) 000}"},
      {{"many", many, false, false, Instrument::None}, manyLine + " 000}"},
  };
  for (const auto& [entry, line] : cases) EXPECT_EQ(FormatEntryLine(entry), line);
}

TEST(EntryLine, IsReadByItsBracketsOnly) {
  using Flag = std::optional<bool>;
  const auto current = Instrument::Current;
  const auto voltage = Instrument::Voltage;
  const struct {
    string line;
    Points points;
    Flag milliseconds = {};
    Flag absolute = {};
    std::optional<Instrument> instrument = {};
  } cases[] = {
      {"{\"Curve A\"\t(1.5;10)(2;4.25) 011}", {{"1.5", "10"}, {"2", "4.25"}}, false, true, current},
      {"{\"n\"\t(1;2) 102}  ", {{"1", "2"}}, true, false, voltage},
      {"{\"n\"\t( 1,5 ; 2,5 ) ( 3 ; ) 000}", {{"1.5", "2.5"}, {"3", ""}}, false, false, {}},
      {"no brace, no quote (1;2)110}", {{"1", "2"}}, true, true, {}},
      {"{\"n\"\t(1;2)}", {{"1", "2"}}},
      {"{\"n\"\t(1;2) 2x9}", {{"1", "2"}}},
      {"{\"n\"\t(1;2) x1}", {{"1", "2"}}, {}, true, {}},
      {"{\"n\"\t(1;2) 01", {{"1", "2"}}, false, true, {}},
      {"{\"n\"\t(1;2) é11}", {{"1", "2"}}, {}, true, current},  // characters, not bytes
      // Without a bracket the settings are looked for at the start of the line.
      {"{\"name\"\t 111}", {}},
      {"{\"2nd name\"\t 000}", {}, {}, {}, voltage},
      {"101", {}, true, false, current},
      // A bracket at the very start, or right behind another, ends the points.
      {"(1;2) 000}", {}, false, false, {}},
      {"{\"n\"\t((1;2)(3;4) 000}", {{"(1", "2"}}, {}, {}, {}},
      // A name with a bracket breaks its line: the name's end becomes a point.
      {"{\"a(b\"\t(1;2) 000}", {{"b\"\t(1", "2"}, {"1", "2"}}, false, false, {}},
      // A missing mark leaves the number of the point before.
      {"{\"n\"\t(1;2)(3)(4;5) 000}", {{"1", "2"}, {"3)(4", "2"}, {"4", "5"}}, false, false, {}},
      {"{\"n\"\t(1;2)(3) 000}", {{"1", "2"}, {"1", "3"}}, false, false, {}},
      {"{\"n\"\t(1;2", {{"1", ""}}, true, {}, voltage},
      {"{\"n\"\t(", {}},
      {"", {}},
      {"   ", {}},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.line);
    const ParsedEntry entry = ParseEntryLine(expected.line);
    EXPECT_EQ(entry.points, expected.points);
    EXPECT_EQ(entry.milliseconds, expected.milliseconds);
    EXPECT_EQ(entry.absoluteValues, expected.absolute);
    EXPECT_EQ(entry.instrument, expected.instrument);
  }
}

TEST(EntryLine, PointsBeyondTheGridAreDroppedAndTheSettingsStillRead) {
  string line = "{\"n\"\t";
  for (int i = 1; i <= 30; ++i) line += '(' + std::to_string(i) + ";1)";
  const ParsedEntry entry = ParseEntryLine(line + " 112}");
  EXPECT_EQ(entry.points.size(), 26u);
  EXPECT_EQ(entry.points.back().load, "26");
  EXPECT_EQ(entry.instrument, Instrument::Voltage);
}

TEST(EntryLine, AnyAmountOfOneCharacterIsReadInOneGo) {
  for (const char* const piece : {"(", "x(", "x(;", "x()", " ", "(;)", "\xC3"}) {
    string line = "{\"";
    while (line.size() < 4'000'000) line += piece;
    EXPECT_LE(ParseEntryLine(line).points.size(), 26u) << piece;
    EXPECT_FALSE(ParseEntryName(line)) << piece;
  }
}

TEST(EntryLine, TheNameIsWhatStandsFromTheThirdCharacterToAQuote) {
  const struct {
    string bytes;
    std::optional<string> name;
  } cases[] = {
      {"{\"Curve A\"\t(1;2) 000}", "Curve A"},
      {"xyCurve\" rest", "Curve"},
      {"{\"a\"b\"\t 000}", "a"},
      {"{\"\"\t 000}", ""},
      {"{\" padded \"\t", " padded "},
      {"{\"no end", {}},
      {"\"\"", {}},
      {"\"", {}},
      {"", {}},
      {"{\"Łódź\"", "Łódź"},
#ifndef _WIN32
      {"{\"\xDC"
       "ber\"",
       "Über"},
      {"{\"\xC3\xBC\"\t\xDC", "Ã¼"},
      {"\xDC\xDCn\"", "n"},
#endif
      {"ŁŁn\"", "n"},  // characters, not bytes
      {"Ł", {}},
      {string("{\"a\0b\"", 6), string("a\0b", 3)},
  };
  for (const auto& [bytes, name] : cases) EXPECT_EQ(ParseEntryName(bytes), name) << bytes;
}

}  // namespace
}  // namespace zentab::tables
