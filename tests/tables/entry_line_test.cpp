#include "tables/entry_line.h"

#include <sstream>

#include "support/cases.h"

namespace zentab::tables {
namespace {

using test::Cases;

std::string SettingsOf(const ParsedEntry& entry) {
  const auto flag = [](std::optional<bool> value) { return !value ? '.' : *value ? '1' : '0'; };
  const int instrument = static_cast<int>(entry.instrument.value_or(Instrument::None));
  return {flag(entry.milliseconds), flag(entry.absoluteValues),
          entry.instrument ? static_cast<char>('0' + instrument) : '.'};
}

TEST(EntryLine, IsWrittenAsTheFileFormatSays) {
  for (const auto& row : Cases("entry_lines.txt", "write")) {
    CurveTableEntry entry = {
        row[0], {}, row[2][0] == '1', row[2][1] == '1', static_cast<Instrument>(row[2][2] - '0')};
    std::istringstream cells(row[1]);
    for (CurvePoint point; cells >> point.load >> point.time;) {
      if (point.load == "_") point.load.clear();
      if (point.time == "_") point.time.clear();
      entry.points.push_back(point);
    }
    EXPECT_EQ(FormatEntryLine(entry), row[3]);
  }
}

TEST(EntryLine, IsReadByItsBracketsOnly) {
  for (const auto& row : Cases("entry_lines.txt", "read")) {
    const ParsedEntry entry = ParseEntryLine(row[0]);
    std::string points;
    for (const auto& [load, time] : entry.points) points += '(' + load + ';' + time + ')';
    EXPECT_EQ(points, row[1]) << row[0];
    EXPECT_EQ(SettingsOf(entry), row[2]) << row[0];
    if (row[0].find("((") != std::string::npos) continue;
    EXPECT_EQ(InstrumentOf(row[0]), entry.instrument.value_or(Instrument::None)) << row[0];
  }
}

TEST(EntryLine, AnyAmountOfOneCharacterIsReadInOneGo) {
  for (const char* const piece : {"(", "x(", "x(;", "x()", " ", "(;)", "\xC3"}) {
    std::string line = "{\"";
    while (line.size() < 1'500'000) line += piece;
    EXPECT_LE(ParseEntryLine(line).points.size(), 26u) << piece;
    EXPECT_FALSE(ParseEntryName(line)) << piece;
  }
}

TEST(EntryLine, TheNameIsWhatStandsFromTheThirdCharacterToAQuote) {
  for (const auto& row : Cases("entry_lines.txt", "name")) {
    EXPECT_EQ(ParseEntryName(row[0]).value_or("none"), row[1]) << row[0];
  }
  for (const auto& [line, name] : {std::pair("{\"\xDC"
                                             "ber\"",
                                             "Über"),
                                   {"{\"\xC3\xBC\"\t\xDC", "Ã¼"},
                                   {"\xDC\xDCn\"", "n"}}) {
    EXPECT_EQ(ParseEntryName(line), name);
  }
  EXPECT_EQ(ParseEntryName(""), std::nullopt);
}

}  // namespace
}  // namespace zentab::tables
