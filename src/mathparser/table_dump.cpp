#include <array>

#include "mathparser/math_parser.h"
#include "mathparser/number_text.h"

namespace zentab::mathparser {
namespace {

constexpr std::array<const char*, 15> kTitles = {
    "Fun",   "ArgTop", "A1 Idx", "Arg1 Name", "Arg1 Value", "A2 Idx", "Arg2 Name", "Arg2 Value",
    "ArgOf", "ArgIdx", "Value",  "PriLvl",    "PosInExpr",  "PriIdx", "Cond",
};

}  // namespace

std::vector<std::vector<std::string>> MathParser::ET_Dump() {
  ShowRows();
  if (rows_.Rows().size() != table_.rows.size()) rows_.Reset(table_);

  std::vector<std::vector<std::string>> dump;
  dump.reserve(table_.rows.size() + 1);
  dump.emplace_back(kTitles.begin(), kTitles.end());
  for (std::size_t i = 0; i < table_.rows.size(); ++i) {
    const Row& row = table_.rows[i];
    const TableEvaluator::RowValues& values = rows_.Rows()[i];
    std::vector<std::string> line = {std::string(table_.FunctionText(row)),
                                     std::to_string(row.arguments)};
    for (std::size_t slot = 0; slot < 2; ++slot) {
      const int variable = row.operand[slot].variable;
      line.push_back(std::to_string(variable));
      line.emplace_back(VarName(variable));
      line.push_back(NumberText(values.arguments[slot], decimalSeparator_));
    }
    line.push_back(std::to_string(row.argumentOf));
    line.push_back(std::to_string(row.argumentIndex));
    line.push_back(NumberText(values.result, decimalSeparator_));
    for (const int number : {row.level, row.position, static_cast<int>(table_.order[i]),
                             static_cast<int>(row.guard)}) {
      line.push_back(std::to_string(number));
    }
    dump.push_back(std::move(line));
  }
  return dump;
}

}  // namespace zentab::mathparser
