#include <array>

#include "mathparser/compiled.h"
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
  const ExpressionTable& table = compiled_->table;
  TableEvaluator& rows = compiled_->rows;
  const std::string& separator = compiled_->decimalSeparator;
  if (rows.Rows().size() != table.rows.size()) rows.Reset(table);

  std::vector<std::vector<std::string>> dump;
  dump.reserve(table.rows.size() + 1);
  dump.emplace_back(kTitles.begin(), kTitles.end());
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const Row& row = table.rows[i];
    const TableEvaluator::RowValues& values = rows.Rows()[i];
    std::vector<std::string> line = {std::string(table.FunctionText(row)),
                                     std::to_string(row.arguments)};
    for (std::size_t slot = 0; slot < 2; ++slot) {
      const int variable = row.operand[slot].variable;
      line.push_back(std::to_string(variable));
      line.emplace_back(VarName(variable));
      line.push_back(NumberText(values.arguments[slot], separator));
    }
    line.push_back(std::to_string(row.argumentOf));
    line.push_back(std::to_string(row.argumentIndex));
    line.push_back(NumberText(values.result, separator));
    for (const int number :
         {row.level, row.position, static_cast<int>(table.order[i]), static_cast<int>(row.guard)}) {
      line.push_back(std::to_string(number));
    }
    dump.push_back(std::move(line));
  }
  return dump;
}

}  // namespace zentab::mathparser
