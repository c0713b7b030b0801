// What a program leaves out: the factors of products whose guard is 0.
#include <algorithm>

#include "mathparser/operations.h"
#include "mathparser/program.h"

namespace zentab::mathparser {
namespace {

double Guard(const Instruction* at, double* values, double accumulator, double trouble) {
  if (accumulator != 0.0) return Next(at, values, accumulator, trouble);
  const Instruction* target = at + at->skip;
  return target->handler(target, values, 0.0, trouble);
}

// The guard lies deeper in the factor that has been computed: what that gives, 0 of either sign, is
// multiplied with the 0 of the factor that is left out.
double FarGuard(const Instruction* at, double* values, double accumulator, double trouble) {
  if (values[at->operand[0]] != 0.0) return Next(at, values, accumulator, trouble);
  const Instruction* target = at + at->skip;
  return target->handler(target, values, accumulator * 0.0, trouble);
}

double Clear(const Instruction* at, double* values, double accumulator, double trouble) {
  values[at->spill] = 0.0;
  return Next(at, values, accumulator, trouble);
}

constexpr HandlerSet kGuard{Guard, nullptr, nullptr};
constexpr HandlerSet kFarGuard{FarGuard, nullptr, nullptr};
constexpr HandlerSet kClear{Clear, nullptr, nullptr};

}  // namespace

// Whether the left factor of a product is the one that may be left out.
bool Lowering::IsLeftGuarded(const Row& row) const {
  return row.factorGuard != 0 && row.source[0] != 0 &&
         table_.At(row.source[0]).guard == row.factorGuard;
}

// The guard that is itself a factor, so that the product is 0 or the other one as it is.
int Lowering::GuardAmongFactors(const Row& row) {
  const bool isFactor = row.factorGuard == row.source[0] || row.factorGuard == row.source[1];
  return isFactor ? row.factorGuard : 0;
}

void Lowering::EndJump(int product) {
  joinable_ = {};  // what follows is not guarded
  const std::size_t jump = jump_[static_cast<std::size_t>(product)];
  code_[jump].skip = static_cast<std::uint16_t>(code_.size() - jump);
}

// The end of a guarded product, which is reached only when it is the guarded factor as it is.
Lowering::Value Lowering::LowerGuarded(int product) {
  Value guarded;
  Pop(guarded);
  Compute(guarded);
  EndJump(product);
  return guarded;
}

// When the guard is 0, everything up to the product is left out. Whether the row was the guard,
// whose result nobody else reads.
bool Lowering::EmitGuard(int number, Value& result) {
  const Row& row = table_.At(number);
  const int product = row.argumentOf;
  const int guard = product == 0 ? 0 : table_.At(product).factorGuard;
  if (guard == 0) return false;
  if (guard == number) {
    Compute(result);
    jump_[static_cast<std::size_t>(product)] = code_.size();
    Emit(kGuard);
    inAccumulator_ = nullptr;
    return true;
  }
  if (row.guard == guard || GuardAmongFactors(table_.At(product)) != 0) return false;
  Compute(result);
  jump_[static_cast<std::size_t>(product)] = code_.size();
  Emit(kFarGuard).operand[0] = sharedPlace_[static_cast<std::size_t>(guard)];
  return false;
}

// The postfix order with every guard ahead of what it guards.
std::vector<std::int16_t> Lowering::GuardsFirst() const {
  std::vector<std::int16_t> order = table_.postfix;
  std::array<std::ptrdiff_t, kMaxRows + 1> size{};
  for (std::size_t i = 0; i < order.size(); ++i) {
    const auto number = static_cast<std::size_t>(order[i]);
    const Row& row = table_.At(order[i]);
    size[number] += 1;
    size[static_cast<std::size_t>(row.argumentOf)] += size[number];
    if (!IsLeftGuarded(row)) continue;
    const auto end = order.begin() + static_cast<std::ptrdiff_t>(i);
    const auto guard = end - size[static_cast<std::size_t>(row.source[1])];
    std::rotate(guard - size[static_cast<std::size_t>(row.source[0])], guard, end);
  }
  return order;
}

// The guards that lie deeper in a factor have places of their own. One that may itself be left out
// is 0 then.
void Lowering::PlaceFarGuards() {
  for (const Row& row : table_.rows) {
    if (row.factorGuard == 0 || GuardAmongFactors(row) != 0) continue;
    const auto guard = static_cast<std::size_t>(row.factorGuard);
    if (isFarGuard_[guard]) continue;
    isFarGuard_[guard] = true;
    if (table_.At(row.factorGuard).guard == 0) continue;
    sharedPlace_[guard] = NewPlace(0.0);
    Emit(kClear).spill = sharedPlace_[guard];
  }
}

}  // namespace zentab::mathparser
