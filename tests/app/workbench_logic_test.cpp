#include <sstream>

#include "app/curve_assessment.h"
#include "app/curve_fitting.h"
#include "app/curve_reduction.h"
#include "app/equation_words.h"
#include "app/last_result.h"
#include "app/report_content.h"
#include "app/site_equations.h"
#include "mathparser/math_parser.h"
#include "support/cases.h"
#include "support/failing_file_layer.h"
#include "support/temporary_folder.h"
#include "texts/number_text.h"
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
  auto cases = test::Cases("site_equations.txt", "replace");
  // Written as the rest of its line is.
  cases.push_back({"VALUE.EQUATION.3 {a} \xDC", "1", "3", "µ", "VALUE.EQUATION.3 {\xB5} \xDC"});
  for (const auto& row : cases) {
    const EquationId id = {static_cast<texts::EquationStage>(row[1][0] - '0'), std::stoul(row[2])};
    EXPECT_EQ(WithEquation(row[0], id, row[3]), row[4]);
    Write("main1.txt", row[0]);
    ASSERT_FALSE(WriteEquation(files, catalogues[3], id, row[3]));
    EXPECT_EQ(InUse(id), row[3]);
  }
  for (const char* const text : {"{t0}", "t0\n+1", "t0\r+1"}) {
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
  Write("main2.txt", "FILTER.EQUATION.7 { }\n");
  EXPECT_EQ(SiteCatalogueFor(files, catalogues, id), catalogues[3]);
  EXPECT_EQ(InUse(id), "t2");
  Write("main2.txt", "FILTER.EQUATION.7 {t0}\n");
  EXPECT_EQ(SiteCatalogueFor(files, catalogues, id), catalogues[4]);
  // Whatever step fails, the old catalogue stays.
  for (const std::size_t read : {0u, 1u, 2u, 3u, 4u}) {
    test::FailingFileLayer unreadable;
    unreadable.failingRead = read;
    static_cast<void>(WriteEquation(unreadable, catalogues[4], id, "t0"));
    EXPECT_EQ(test::BytesOf(catalogues[4]), "FILTER.EQUATION.7 {t0}\n") << read;
  }
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
  for (const auto& row : test::Cases("site_equations.txt", "checks")) {
    const EquationRemark remark = CheckEquation(session, row[0], variables);
    const string place = std::to_string(remark.character) + '+' + std::to_string(remark.length);
    EXPECT_EQ(place + ' ' + remark.text, row[1]) << row[0];
    EXPECT_EQ(remark.isFault, row[2] == "fault") << row[0];
  }
  for (const auto& row : test::Cases("site_equations.txt", "words")) {
    const auto word = WordAt(row[0], std::stoul(row[1]));
    EXPECT_EQ(word ? row[0].substr(word->begin, word->end - word->begin) : "", row[2]) << row[0];
    EXPECT_EQ(word && word->isUnit, row[3] == "unit") << row[0];
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
      {{9, 3, 7, 6}, 9, 0, 0, 2, 0, 0, 1},   // 1/(y-3) neither
  };
  texts::EquationTexts equations;
  equations[static_cast<std::size_t>(Value)][5] = "1/(y-2)";
  equations[static_cast<std::size_t>(Filter)][8] = "8/(t1-20)*0+8";
  equations[static_cast<std::size_t>(Filter)][9] = "-1";
  equations[static_cast<std::size_t>(Difference)][9] = "1/(y-3)";
  for (const auto& row : cases) {
    timetest::ReadPoints read;
    for (const double time : row.times) {
      read.points.push_back({static_cast<double>(read.points.size()), time});
      read.extremes.tMax = std::max(read.extremes.tMax, time);
    }
    const timetest::ImportOptions options = {{}, row.filter, row.filter, row.mean, "800"};
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
    EXPECT_EQ(effects.failures[0] + effects.failures[1] + effects.failures[2], row.failed);
    EXPECT_EQ(read.points.size(), row.times.size());
  }
}

// A decimal separator, the line of the grid and the pickup value.
Session Holding(const std::vector<string>& row) {
  const ReportedTable table = TableOfLine("", row[1], row[0]);
  Session session;
  session.localeDecimalSeparator = row[0];
  session.table.grid = table.grid;
  session.modes = table.modes;
  session.modes.pickup = row[2];
  session.instrument = table.instrument;
  return session;
}

// "field=text field=text …" over what the form holds.
FormValues Filled(FormValues values, const string& fields) {
  std::istringstream pairs(fields);
  for (string pair; pairs >> pair;) {
    values[pair.substr(0, pair.find('='))] = pair.substr(pair.find('=') + 1);
  }
  return values;
}

template <class Made>
string FaultIn(const Made& made) {
  const auto* const fault = std::get_if<FormFault>(&made);
  return fault ? fault->field + ": " + fault->text : "";
}

string Rounded(double number) { return texts::ShortText(number, 1e-4, "."); }

TEST(CurveForms, GiveTheirCurveOrSayWhatIsWrong) {
  for (const auto& row : test::Cases("forms.txt", "curve")) {
    const Session session = Holding(row);
    const auto family = FamilyIn(Filled({}, row[3]));
    const bool isLogarithmic = row[3].ends_with(" log");
    const auto made =
        row[3].starts_with("thin") ? ProposeThinned(session, 2, isLogarithmic)
        : row[3].starts_with("resample")
            ? ProposeResampled(Filled(FirstResampleValues(session), row[3]), session, isLogarithmic)
            : ProposeCurve(Filled(FirstCurveValues(family, session), row[3]), session);
    string text = FaultIn(made);
    const auto* const proposal = std::get_if<CurveProposal>(&made);
    for (const auto& [load, time] : proposal ? proposal->points : std::vector<curves::Point>()) {
      text += Rounded(load) + ' ' + Rounded(time) + '|';
    }
    if (proposal && proposal->deviation) text += Rounded(*proposal->deviation);
    EXPECT_EQ(text, row[4]) << row[3];
  }
}

TEST(CurveForms, HaveTheFieldsOfTheirFamily) {
  for (const auto& row : test::Cases("forms.txt", "fields")) {
    string names;
    for (const CurveFieldRow& field : CurveFields()) {
      const bool isThere = HasField(field.name, FamilyIn({{"family", row[0]}}), row[1]);
      if (isThere) names += string(field.name) + ' ';
    }
    EXPECT_EQ(names, row[2]) << row[0];
  }
  EXPECT_EQ(PlainLabel("K(&K)", {}) + PlainLabel("(&L):", {}) + PlainLabel("a(&b", {}), "K:a(b");
  EXPECT_EQ(OwnConstantsIn({{"a", "1 2 3"}, {"b", "1 2"}, {"c", "x"}}),
            (std::vector<OwnConstants>{{"a", {1, 2, 3}}}));
}

TEST(CurveForms, AssessAndFitTheGrid) {
  for (const auto& row : test::Cases("forms.txt", "assess")) {
    const Session session = Holding(row);
    const ChosenReference reference = {
        "R", Filled(FirstCurveValues(FamilyIn(Filled({}, row[4])), session), row[4])};
    const auto made = AssessGrid(session, reference, Filled(FirstLimits(session), row[3]));
    const auto* const done = std::get_if<GridAssessment>(&made);
    string text = done ? TextOf(*done, reference, session) : FaultIn(made);
    if (const std::size_t size = done ? done->band.size() : 0) {
      const auto& [load, nominal, lower, upper] = done->band[size / 2];
      text += std::to_string(size) + ": " + Rounded(load) + ' ' + Rounded(nominal) + ' ' +
              Rounded(lower) + ' ' + Rounded(upper);
    }
    EXPECT_EQ(text, row[5]) << row[3];
  }
  for (const auto& row : test::Cases("forms.txt", "fit")) {
    const Session session = Holding(row);
    const auto made = FitGrid(session, {std::stoi(row[3])}, row[4].ends_with("free"));
    string text = FaultIn(made);
    for (const auto& one : text.empty() ? std::get<0>(made) : std::vector<curves::FamilyFit>()) {
      if (!row[4].starts_with(curves::RowOf(one.characteristic.family).id)) continue;
      const FitRow fit = RowOf(one, session);
      const FittedTable table = TableOf(one, session);
      text = fit.family + '|' + fit.multiplier + fit.constants + '|' + fit.pickup + '|' +
             fit.rootMeanSquare + '|' + fit.largest + '|' + fit.remark + '|' +
             std::to_string(table.leftOut) + '|' + Rounded(table.proposal.points.back().time);
    }
    EXPECT_EQ(text, row[5]) << row[1];
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
