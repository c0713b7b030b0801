#include "app/equation_words.h"
#include "app/last_result.h"
#include "app/site_equations.h"
#include "mathparser/math_parser.h"
#include "support/failing_file_layer.h"
#include "support/temporary_folder.h"
#include "timetest/import_pipeline.h"

namespace zentab::app {
namespace {

using std::string;
using enum texts::EquationStage;

class SiteEquations : public test::TemporaryFolder {
 protected:
  [[nodiscard]] string InUse(EquationId id) { return EquationInUse(files, catalogues, id); }

  test::FailingFileLayer files;
  std::vector<std::filesystem::path> catalogues = {Folder() / "d.dxt", Folder() / "FCC.TXT",
                                                   Folder() / "main.txt", Folder() / "main1.txt",
                                                   Folder() / "main2.txt"};
};

TEST_F(SiteEquations, ReplaceOneLineAndLeaveAllElse) {
  const struct {
    string before;
    EquationId id;
    string text;
    string after;
  } cases[] = {
      {"", {Difference, 1}, "t0", "DIFF.EQUATION.1 {t0}\r\n"},
      {"A {1}", {Value, 3}, "t0", "A {1}\r\nVALUE.EQUATION.3 {t0}\r\n"},
      {"A {1}\n", {Filter, 2}, "t0", "A {1}\nFILTER.EQUATION.2 {t0}\n"},
      {"x\r\n filter.equation.2  {t1}   old\r\ny",
       {Filter, 2},
       "",
       "x\r\n filter.equation.2  {}   "
       "old\r\ny"},
      // The first line counts, and the braces have to be the key's.
      {"DIFF.EQUATION.1 {a}\nDIFF.EQUATION.1 {b}\n",
       {Difference, 1},
       "c",
       "DIFF.EQUATION.1 {c}\nDIFF.EQUATION.1 {b}\n"},
      {"HELP {of DIFF.EQUATION.1}\n",
       {Difference, 1},
       "c",
       "DIFF.EQUATION.1 {c}\nHELP {of DIFF.EQUATION.1}\n"},
      {"DIFF.EQUATION.1 a}\n", {Difference, 1}, "c", "DIFF.EQUATION.1 {c}\nDIFF.EQUATION.1 a}\n"},
      // The line of the tenth serves the first one as well, until that has one of its own.
      {"DIFF.EQUATION.10 {a}\n",
       {Difference, 1},
       "c",
       "DIFF.EQUATION.1 {c}\nDIFF.EQUATION.10 {a}\n"},
      {"DIFF.EQUATION.10 {a}\n",
       {Difference, 10},
       "c",
       "DIFF.EQUATION.1 {a}\nDIFF.EQUATION.10 {c}\n"},
      {"B {}\n", {Difference, 10}, "c", "B {}\nDIFF.EQUATION.1 {}\nDIFF.EQUATION.10 {c}\n"},
      {"\xEF\xBB\xBF"
       "DIFF.EQUATION.10 {a}\n",
       {Difference, 1},
       "c",
       "\xEF\xBB\xBF"
       "DIFF.EQUATION.1 {c}\nDIFF.EQUATION.10 {a}\n"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(WithEquation(row.before, row.id, row.text), row.after);
    Write("main1.txt", row.before);
    ASSERT_FALSE(WriteEquation(files, catalogues[3], row.id, row.text));
    EXPECT_EQ(InUse(row.id), row.text);
  }
  for (const char* const text : {"{t0}", "t0\n+1"}) {
    EXPECT_EQ(WithEquation("", {Value, 1}, text), std::nullopt);
    EXPECT_EQ(WriteEquation(files, catalogues[3], {Value, 1}, text), std::errc::invalid_argument);
  }
}

TEST_F(SiteEquations, GoWhereTheyCount) {
  const EquationId id = {Filter, 7};
  EXPECT_EQ(SiteCatalogueFor(files, catalogues, id), catalogues[3]);
  Write("FCC.TXT", "FILTER.EQUATION.7 {t1}\n");
  EXPECT_EQ(SiteCatalogueFor(files, catalogues, id), catalogues[3]);
  EXPECT_EQ(InUse(id), "t1");
  ASSERT_FALSE(WriteEquation(files, catalogues[3], id, "t2"));
  Write("main2.txt", "FILTER.EQUATION.7 {}\n");
  EXPECT_EQ(SiteCatalogueFor(files, catalogues, id), catalogues[3]);
  EXPECT_EQ(InUse(id), "t2");
  Write("main2.txt", "FILTER.EQUATION.7 {t0}\n");
  EXPECT_EQ(SiteCatalogueFor(files, catalogues, id), catalogues[4]);
  // Whatever step fails, the old catalogue stays.
  for (files.failingStep = 0;; ++files.failingStep) {
    test::FailingFileLayer failing;
    failing.failingStep = files.failingStep;
    if (!WriteEquation(failing, catalogues[4], id, "t0*2")) break;
    EXPECT_EQ(test::BytesOf(catalogues[4]), "FILTER.EQUATION.7 {t0}\n");
  }
  EXPECT_GT(files.failingStep, 2U);
  EXPECT_EQ(test::BytesOf(catalogues[4]), "FILTER.EQUATION.7 {t0*2}\n");
}

TEST(EquationWords, AreFoundAndCheckedAtTheirCharacter) {
  const Session session;
  const std::vector<EquationWord> variables = TimeTestVariables(session);
  const struct {
    string text;
    int character;  // -1: nothing to be said
    bool isFault;
  } checks[] = {
      {"", -1, false},
      {"  ", -1, false},
      {"t0+5ms*tMax", -1, false},
      {"t0+", 3, true},
      {"t0+sin(", 7, true},
      {"αβ", 0, true},
      {"t0+foo(1)", 3, true},
      {"xt0+t0+x", 0, false},
      {"t0+t00+T0", 3, false},
      {"max(t0)", 6, true},
      {"t0 + max(1,2,3)", 12, true},
  };
  for (const auto& row : checks) {
    const EquationRemark remark = CheckEquation(session, row.text, variables);
    EXPECT_EQ(remark.character, row.character) << row.text << ": " << remark.text;
    EXPECT_EQ(remark.isFault, row.isFault) << row.text;
    EXPECT_EQ(remark.text.empty(), row.character < 0) << row.text;
  }
  // The word as "text|", with the cursor behind the mark; what is being completed.
  const struct {
    string text;
    std::size_t cursor;
    string word;
    bool isUnit;
  } words[] = {
      {"si", 2, "si", false}, {"2*si(1)", 3, "si", false}, {"2*si(1)", 4, "si", false},
      {"5m+1", 2, "m", true}, {"1.5kH", 5, "kH", true},    {"t0", 2, "t0", false},
      {"12", 2, "", false},   {"1+", 2, "", false},        {"", 0, "", false},
      {"µm", 3, "m", false},
  };
  for (const auto& row : words) {
    const auto word = WordAt(row.text, row.cursor);
    EXPECT_EQ(word ? row.text.substr(word->begin, word->end - word->begin) : "", row.word);
    EXPECT_EQ(word && word->isUnit, row.isUnit) << row.text;
  }
}

// What is offered has to be what the parser takes.
TEST(EquationWords, AreAllKnownToTheParser) {
  const Session session;
  mathparser::MathParser parser;
  for (const EquationWord& word : WordsFor(session, {})) {
    if (word.text.ends_with('(')) continue;
    EXPECT_TRUE(parser.StoreExpression(word.text) && parser.VarTop() == 0) << word.text;
  }
  for (const EquationWord& word : UnitWords()) {
    EXPECT_TRUE(parser.StoreExpression("5" + word.text)) << word.text;
  }
}

TEST(ImportEffects, TellWhatEachStageDid) {
  const struct {
    std::vector<double> times;
    std::int16_t filter;
    std::int16_t mean;
    std::size_t pruned, filtered, moved, averaged, failed;
  } cases[] = {
      {{9, 8, 7}, 0, 0, 0, 0, 0, 0, 0},        {{900, 900, 900, 5, 4}, 0, 0, 1, 0, 0, 0, 0},
      {{900, 900, 5, 4}, 1, 0, 0, 1, 0, 0, 0}, {{9, 20, 7, 6}, 2, 0, 0, 1, 0, 0, 0},
      {{9, 20, 7, 6}, 3, 0, 0, 0, 1, 0, 0},    {{9, 9, 6, 3}, 0, 2, 0, 0, 0, 2, 0},
      {{9, 8, 7, 6}, 0, 5, 0, 0, 0, 3, 1},   // 1/(y-2) has no value at the second point
      {{9, 20, 7, 6}, 8, 0, 0, 0, 1, 0, 1},  // 8/(t1-20) neither
      {{9, 3, 7, 6}, 9, 0, 0, 2, 0, 0, 0},
  };
  texts::EquationTexts equations;
  equations[static_cast<std::size_t>(Value)][5] = "1/(y-2)";
  equations[static_cast<std::size_t>(Filter)][8] = "8/(t1-20)*0+8";
  equations[static_cast<std::size_t>(Filter)][9] = "-1";
  for (const auto& row : cases) {
    timetest::ReadPoints read;
    for (const double time : row.times) {
      read.points.push_back({static_cast<double>(read.points.size()), time});
      read.extremes.tMax = std::max(read.extremes.tMax, time);
    }
    const timetest::ImportOptions options = {{}, 0, row.filter, row.mean, "800"};
    timetest::ImportEffects effects;
    const auto result = timetest::ImportPoints(read, options, equations, nullptr, &effects);
    const auto untold = timetest::ImportPoints(read, options, equations, nullptr, nullptr);
    EXPECT_EQ(result.points, untold.points);
    EXPECT_EQ(result.points, effects.shaped);  // no more than a table has
    EXPECT_EQ(effects.timeoutLevel, 800.0);
    EXPECT_EQ(effects.timeouts.removed.size(), row.pruned);
    EXPECT_EQ(effects.filter.removed.size(), row.filtered);
    EXPECT_EQ(effects.filter.moved, row.moved);
    EXPECT_EQ(effects.averaged, row.averaged);
    EXPECT_EQ(effects.failures[static_cast<std::size_t>(Value)] +
                  effects.failures[static_cast<std::size_t>(Filter)],
              row.failed);
    EXPECT_EQ(read.points.size(), row.times.size());
  }
}

TEST(LastResult, IsKeptByInstrument) {
  FormValues kept;
  EXPECT_EQ(LastImported(kept, tables::Instrument::Current), std::nullopt);
  const ResultFile file{"/a/result.txt", 1234567890123};
  KeepImported(file, tables::Instrument::Current, kept);
  EXPECT_EQ(LastImported(kept, tables::Instrument::Current), file);
  EXPECT_EQ(LastImported(kept, tables::Instrument::Voltage), std::nullopt);
  kept["1changed"] = "x";
  EXPECT_EQ(LastImported(kept, tables::Instrument::Current), std::nullopt);
}

}  // namespace
}  // namespace zentab::app
