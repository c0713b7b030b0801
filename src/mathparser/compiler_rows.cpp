// How the compiler makes rows, links them to each other and reads the operands between them.

#include <algorithm>
#include <utility>

#include "mathparser/compiler.h"
#include "mathparser/operand_reader.h"

namespace zentab::mathparser {
namespace {

bool IsRight(const Row& row) { return row.function == &operators::kRight; }

}  // namespace

// What stands between two rows is the last operand of the left one as well, unless a row feeds
// that already, as one in front of a "!" does.
void Compiler::SetLastOperand(const Operand& operand) {
  Row& row = table_.rows.back();
  const std::size_t slot = row.arguments == 1 ? 0 : 1;
  if (row.source[slot] == 0) row.operand[slot] = operand;
}

bool Compiler::AddFunctionRow(const FunctionEntry& function, NameRange written) {
  const char sign = sign_;
  if (!AddRow({.function = &function,
               .level = Level(),
               .position = position_,
               .arguments = 1,
               .takesOperand = false})) {
    return false;
  }
  table_.rows.back().written = written;
  table_.rows.back().sign = sign == '-' ? -1 : 1;
  return true;
}

bool Compiler::AddRow(const NewRow& made) {
  if (table_.rows.size() == kMaxRows) return Fail("too many rows", position_);
  Row row;
  row.function = made.function;
  row.level = made.level;
  // A chain's product binds looser than its comparisons, yet tighter than the function in whose
  // bracket it stands.
  row.key = made.isChain ? 2 * Level() + 1 : 2 * made.level;
  row.isChain = made.isChain;
  row.position = made.position;
  row.arguments = static_cast<std::int16_t>(made.arguments);
  if (made.takesOperand && !TakeOperand(row.operand[0])) return false;
  if (!table_.rows.empty()) SetLastOperand(row.operand[0]);
  table_.rows.push_back(row);
  LinkBefore(LastRow(), made.continues);
  table_.byRowsOnly =
      table_.byRowsOnly || made.function->isRandom || made.function->kernel == nullptr;
  closed_ = Closed::No;
  return true;
}

// Links the waiting rows that bind no looser than a new one, then lets the new one wait.
void Compiler::LinkBefore(int row, int continues) {
  const int key = table_.At(row).key;
  const auto waitingKey = [this] {
    return table_.At(waiting_[static_cast<std::size_t>(waitingCount_) - 1]).key;
  };
  if (continues != 0) {
    // The rows of the argument that ends here all feed one to their left.
    while (waitingKey() > key) LinkTop(0);
    if (waiting_[static_cast<std::size_t>(waitingCount_) - 1] != continues) LinkTop(0);
  } else {
    while (waitingCount_ > 0 && waitingKey() >= key) LinkTop(row);
  }
  waiting_[static_cast<std::size_t>(waitingCount_++)] = static_cast<std::int16_t>(row);
}

void Compiler::LinkTop(int right) {
  const std::int16_t number = waiting_[static_cast<std::size_t>(--waitingCount_)];
  table_.postfix.push_back(number);
  const Row& row = table_.At(number);
  const int left = waitingCount_ > 0 ? waiting_[static_cast<std::size_t>(waitingCount_) - 1] : 0;
  if (IsRight(row)) {
    Feed(number, row.argumentOf, row.argumentIndex);
  } else if (left != 0 && (right == 0 || table_.At(left).key >= table_.At(right).key)) {
    Feed(number, left, std::min<int>(table_.At(left).arguments, 2));
  } else if (right != 0) {
    Feed(number, right, 1);
  }
}

void Compiler::Feed(int number, int target, int index) {
  Row& row = table_.At(number);
  Row& fed = table_.At(target);
  row.argumentOf = static_cast<std::int16_t>(target);
  row.argumentIndex = static_cast<std::int16_t>(index);
  const auto slot = static_cast<std::size_t>(index) - 1;
  fed.source[slot] = static_cast<std::int16_t>(number);
  if (slot < fed.operand.size()) fed.operand[slot] = {};
}

bool Compiler::TakeOperand(Operand& operand) {
  if (!parsed_ && !ParseToken()) return false;
  operand = operand_;
  return true;
}

bool Compiler::ParseToken() {
  if (Token().empty()) return Fail("missing argument", position_);
  ReadOperand read = ReadOperandToken(Token());
  if (read.kind == ReadOperand::Kind::Failure) return Fail(std::move(read.message), tokenPosition_);
  operand_ = {};
  const std::int16_t sign = sign_ == '-' ? -1 : 1;
  if (read.kind == ReadOperand::Kind::Literal) {
    operand_.value = sign * read.value;
  } else {
    int variable = table_.FindVariable(Token());
    if (variable == 0) {
      if (table_.variables.size() == kMaxVariables)
        return Fail("too many variables", tokenPosition_);
      table_.variables.push_back({TokenRange()});
      variable = static_cast<int>(table_.variables.size());
    }
    operand_.variable = static_cast<std::int16_t>(variable);
    operand_.sign = sign;
  }
  parsed_ = true;
  return true;
}

}  // namespace zentab::mathparser
