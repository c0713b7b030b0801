// The function catalogue's documentation and docs/expressions.md against the evaluator.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "mathparser/function_catalogue.h"
#include "mathparser/function_documentation.h"
#include "mathparser/math_parser.h"

namespace zentab::mathparser {
namespace {

using std::string;

string Escaped(std::string_view text) {
  string escaped;
  for (const char c : text) escaped += c == '|' ? string("\\|") : string(1, c);
  return escaped;
}

// The cells of a row of a table, without the bars that keep them apart; no row: none.
std::vector<string> CellsOf(const string& line) {
  std::vector<string> cells;
  for (std::size_t at = 1; line.starts_with('|') && at < line.size(); ++at) {
    string cell;
    for (; at < line.size() && line[at] != '|'; ++at) {
      if (line[at] == '\\' && at + 1 < line.size() && line[at + 1] == '|') ++at;
      cell += line[at];
    }
    const std::size_t begin = cell.find_first_not_of(' ');
    cells.push_back(
        begin == string::npos ? "" : cell.substr(begin, cell.find_last_not_of(' ') - begin + 1));
  }
  return cells;
}

// The value to 15 digits, or the message in quotes.
string Answer(const string& expression, const string& with) {
  MathParser parser;
  if (!parser.StoreExpression(expression)) return '"' + parser.ErrorDescription() + '"';
  std::istringstream settings(with);
  for (string setting; std::getline(settings, setting, ';');) {
    const std::size_t equals = setting.find('=');
    if (equals == string::npos) {
      parser.AngleUnit(setting);
    } else {
      parser.VarSymb(setting.substr(0, equals), std::stod(setting.substr(equals + 1)));
    }
  }
  std::ostringstream value;
  value.precision(15);
  value << parser.Eval();
  return value.str();
}

bool IsSame(const string& answer, const string& expected) {
  if (answer.starts_with('"') || expected.starts_with('"')) return answer == expected;
  const double value = std::stod(expected);
  return std::abs(std::stod(answer) - value) <= 1e-12 * std::abs(value) + 1e-300;
}

TEST(Documentation, EveryKeywordHasARowWithAnExampleThatIsTrue) {
  const auto rows = DocumentedFunctions();
  const auto entries = StandardCatalogue().Entries();
  ASSERT_EQ(rows.size(), entries.size());
  for (std::size_t at = 0; at < rows.size(); ++at) {
    const FunctionDocumentation& row = rows[at];
    SCOPED_TRACE(row.keyword);
    EXPECT_EQ(row.keyword, entries[at]->keyword);
    EXPECT_EQ(std::ranges::count(row.arguments, ',') + 1, entries[at]->arguments);
    EXPECT_FALSE(row.meaning.empty() || row.domain.empty());
    const string example(row.example);
    const std::size_t equals = example.rfind(" = ");
    ASSERT_NE(equals, string::npos);
    EXPECT_TRUE(example.starts_with(string(row.keyword) + '('));
    const string expected = example.substr(equals + 3);
    EXPECT_TRUE(IsSame(Answer(example.substr(0, equals), ""), expected)) << example;
  }
}

TEST(Documentation, WhatTheLanguageReferenceShowsIsTrue) {
  std::ifstream file(EXPRESSIONS_REFERENCE);
  bool areExamples = false;
  int examples = 0;
  string functions;
  for (string line; std::getline(file, line);) {
    const std::vector<string> cells = CellsOf(line);
    if (cells.size() < 3 || cells[0] == "expression") areExamples = cells.size() >= 3;
    if (cells.size() == 5 && cells[0] != "keyword" && !cells[0].starts_with('-')) {
      functions += line + '\n';
    }
    if (!areExamples || cells[0] == "expression" || !cells[0].starts_with('`')) continue;
    SCOPED_TRACE(line);
    const string expression = cells[0].substr(1, cells[0].size() - 2);
    const string answer = Answer(expression, cells[1]);
    EXPECT_TRUE(IsSame(answer, cells[2])) << answer;
    ++examples;
  }
  EXPECT_GE(examples, 90);
  string expected;
  for (const FunctionDocumentation& row : DocumentedFunctions()) {
    expected += "| " + string(row.keyword) + " | " + string(row.arguments) + " | " +
                Escaped(row.meaning) + " | " + Escaped(row.domain) + " | `" + string(row.example) +
                "` |\n";
  }
  EXPECT_EQ(functions, expected);
}

}  // namespace
}  // namespace zentab::mathparser
