#include "app/equation_words.h"

#include <algorithm>

#include "app/session_texts.h"
#include "mathparser/function_documentation.h"
#include "mathparser/math_parser.h"
#include "mathparser/operand_documentation.h"
#include "texts/characters.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using W = texts::WorkbenchTexts;

struct VariableRow {
  std::string_view name;
  std::string W::*meaning;
};

constexpr VariableRow kTimeTestVariables[] = {
    {"t0", &W::timeOfPoint},   {"t1", &W::timeBefore},     {"t2", &W::timeBeforeThat},
    {"v0", &W::loadOfPoint},   {"v1", &W::loadBefore},     {"v2", &W::loadBeforeThat},
    {"y", &W::numberOfPoint},  {"z", &W::countOfPoints},   {"tMin", &W::shortestTime},
    {"tMax", &W::longestTime}, {"vMin", &W::smallestLoad}, {"vMax", &W::largestLoad},
};
constexpr VariableRow kCharacteristicVariables[] = {
    {"v", &W::load},
    {"pickup", &W::pickup},
    {"multiplier", &W::multiplier},
};

std::vector<EquationWord> WordsOf(std::span<const VariableRow> rows, const W& texts) {
  std::vector<EquationWord> words;
  for (const VariableRow& row : rows) words.push_back({std::string(row.name), texts.*row.meaning});
  return words;
}

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool IsNamePart(char c) { return IsLetter(c) || texts::IsDigit(c); }

int CharactersIn(std::string_view text) {
  return static_cast<int>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

// The place of a name among others of which it may be a part.
std::size_t FindName(std::string_view equation, std::string_view name) {
  std::size_t at = equation.find(name);
  while (at != std::string_view::npos) {
    const std::size_t end = at + name.size();
    const bool begins = at == 0 || !IsNamePart(equation[at - 1]);
    const bool ends = end == equation.size() || !IsNamePart(equation[end]);
    if (begins && ends) return at;
    at = equation.find(name, at + 1);
  }
  return at;
}

EquationRemark UnknownName(const Session& session, std::string_view equation,
                           const mathparser::MathParser& parser,
                           const std::vector<EquationWord>& variables) {
  for (int number = 1; number <= parser.VarTop(); ++number) {
    const std::string name(parser.VarName(number));
    const bool isKnown = std::ranges::find(variables, name, &EquationWord::text) != variables.end();
    if (isKnown) continue;
    EquationRemark remark;
    remark.text = Expanded(session, session.texts.workbench.unknownName, {name});
    // Blanks within a name hide it.
    const std::size_t at = FindName(equation, name);
    if (at != std::string_view::npos) {
      remark.character = CharactersIn(equation.substr(0, at));
      remark.length = static_cast<int>(name.size());
    }
    return remark;
  }
  return {};
}

}  // namespace

std::vector<EquationWord> TimeTestVariables(const Session& session) {
  return WordsOf(kTimeTestVariables, session.texts.workbench);
}

std::vector<EquationWord> CharacteristicVariables(const Session& session) {
  return WordsOf(kCharacteristicVariables, session.texts.workbench);
}

std::vector<EquationWord> WordsFor(const Session& session,
                                   const std::vector<EquationWord>& variables) {
  const W& texts = session.texts.workbench;
  std::vector<EquationWord> words = variables;
  for (const mathparser::FunctionDocumentation& row : mathparser::DocumentedFunctions()) {
    const std::string name(row.keyword);
    std::string meaning =
        Expanded(session, texts.arguments,
                 {name + "(" + std::string(row.arguments) + ")", std::string(row.meaning)});
    meaning += '\n' + Expanded(session, texts.domain, {std::string(row.domain)}) + "; " +
               std::string(row.example);
    words.push_back({name + "(", meaning});
  }
  for (const mathparser::OperandDocumentation& row : mathparser::DocumentedConstants()) {
    words.push_back({std::string(row.name), std::string(row.meaning)});
  }
  return words;
}

std::vector<EquationWord> UnitWords() {
  std::vector<EquationWord> words;
  for (const mathparser::OperandDocumentation& unit : mathparser::DocumentedUnits()) {
    words.push_back({std::string(unit.name), std::string(unit.meaning)});
    for (const mathparser::OperandDocumentation& prefix : mathparser::DocumentedPrefixes()) {
      words.push_back({std::string(prefix.name) + std::string(unit.name),
                       std::string(prefix.meaning) + std::string(unit.meaning)});
    }
  }
  return words;
}

std::optional<WordAtCursor> WordAt(std::string_view equation, std::size_t cursor) {
  WordAtCursor word{cursor, cursor};
  while (word.begin > 0 && IsNamePart(equation[word.begin - 1])) --word.begin;
  while (word.end < equation.size() && IsNamePart(equation[word.end])) ++word.end;
  // A number that begins what looks like a name has a unit behind it.
  const std::size_t run = word.begin;
  while (word.begin < cursor && texts::IsDigit(equation[word.begin])) ++word.begin;
  if (word.begin == cursor) return std::nullopt;
  word.isUnit = word.begin > run || (run > 0 && equation[run - 1] == '.');
  return word;
}

EquationRemark CheckEquation(const Session& session, std::string_view equation,
                             const std::vector<EquationWord>& variables) {
  if (texts::TrimBlanks(equation).empty()) return {};
  mathparser::MathParser parser;
  if (parser.StoreExpression(equation)) {
    return UnknownName(session, equation, parser, variables);
  }
  EquationRemark remark;
  remark.isFault = true;
  remark.length = 1;
  remark.character = std::min(parser.ErrorPosition() - 1, CharactersIn(equation));
  const W& texts = session.texts.workbench;
  // What the parser says of some faults ends in their place, which is said in front here.
  const std::string& description = parser.ErrorDescription();
  const std::string what = description.substr(0, description.find(" at pos: "));
  const bool isAtEnd = remark.character == CharactersIn(equation);
  remark.text = Expanded(session, isAtEnd ? texts.faultAtEnd : texts.fault,
                         {what, std::to_string(remark.character + 1)});
  return remark;
}

}  // namespace zentab::app
