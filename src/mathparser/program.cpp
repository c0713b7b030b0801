#include "mathparser/program.h"

#include <algorithm>
#include <utility>

#include "mathparser/function_catalogue.h"
#include "mathparser/fused_operations.h"
#include "mathparser/operations.h"

namespace zentab::mathparser {
namespace {

double End(const Instruction*, double*, double accumulator, double trouble) {
  return accumulator - trouble;
}

double Store(const Instruction* at, double* values, double accumulator, double trouble) {
  values[at->spill] = accumulator;
  return Next(at, values, accumulator, trouble);
}

// Apart from Call, so that no local array keeps that from handing over in place.
double CallKernel(const Instruction* at, const double* values) {
  std::array<double, kMaxArguments> arguments{};
  const auto count = static_cast<std::size_t>(at->function->arguments);
  double trouble = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    arguments[i] = values[at->operand[i]];
    trouble += Trouble(arguments[i]);
  }
  if (trouble != 0.0) return trouble;
  CallContext context{.angleFactor = values[kAngleFactorPlace]};
  return at->function->kernel(arguments.data(), context);
}

template <Mode M>
double Call(const Instruction* at, double* values, double accumulator, double trouble) {
  Spill<M>(at, values, accumulator);
  return HandOver<M>(at, values, CallKernel(at, values), trouble);
}

constexpr HandlerSet kEnd{End, nullptr, End};
constexpr HandlerSet kStore{Store, nullptr, nullptr};
constexpr HandlerSet kCall{Call<Mode::Plain>, Call<Mode::Spilling>, Call<Mode::Last>};

const Forms& NegateForms() { return *operators::kNegate.forms; }

}  // namespace

std::uint16_t Lowering::NewPlace(double value) {
  values_[firstFreePlace_] = value;
  return firstFreePlace_++;
}

Instruction& Lowering::Emit(const HandlerSet& handlers) {
  Instruction& made = code_.emplace_back();
  made.handler = handlers[static_cast<std::size_t>(Mode::Plain)];
  emitted_ = &handlers;
  joinable_ = {};
  return made;
}

// An instruction that does not go on from the accumulator saves what that holds.
Instruction& Lowering::EmitAnew(const HandlerSet& handlers) {
  Instruction& made = Emit(handlers);
  if (inAccumulator_ != nullptr) {
    made.handler = handlers[static_cast<std::size_t>(Mode::Spilling)];
    made.spill = NewPlace(0.0);
    *inAccumulator_ = {.kind = Value::Kind::Leaf, .place = made.spill};
    inAccumulator_ = nullptr;
  }
  return made;
}

void Lowering::OwnAccumulator(Value& value) {
  value = {.kind = Value::Kind::Accumulator};
  inAccumulator_ = &value;
}

// Brings a lazy or negative value into the accumulator.
void Lowering::Compute(Value& value) {
  if (value.kind == Value::Kind::Negative) {
    EmitAnew(NegateForms().leaf).operand[0] = value.place;
    OwnAccumulator(value);
  } else if (value.kind == Value::Kind::Lazy) {
    Instruction& made = EmitAnew(value.function->forms->leafLeaf);
    made.operand[0] = value.place;
    made.operand[1] = value.second;
    OwnAccumulator(value);
  } else if (value.kind == Value::Kind::LazyThree) {
    const int inner = value.function->forms->fusion;
    const int outer = value.outer->forms->fusion;
    EmitAnew(*FusedLeft(inner, outer)).operand = {value.place, value.second, value.third};
    joinable_ = {FusedLeftLeaf, inner, outer, 3};
    OwnAccumulator(value);
  } else if (value.kind == Value::Kind::LazyFour) {
    EmitAnew(*FusedFour(value.function->forms->fusion, value.outer->forms->fusion,
                        value.right->forms->fusion))
        .operand = {value.place, value.second, value.third, value.fourth};
    OwnAccumulator(value);
  }
}

void Lowering::Push(const Value& value) {
  Value& top = stack_[depth_++];
  top = value;
  if (value.kind == Value::Kind::Accumulator) inAccumulator_ = &top;
}

void Lowering::Pop(Value& value) {
  const Value& top = stack_[--depth_];
  value = top;
  if (inAccumulator_ == &top) inAccumulator_ = &value;
}

Lowering::Value Lowering::Leaf(const Operand& operand) {
  if (operand.variable == 0) return {.kind = Value::Kind::Leaf, .place = NewPlace(operand.value)};
  return {.kind = operand.sign < 0 ? Value::Kind::Negative : Value::Kind::Leaf,
          .place = static_cast<std::uint16_t>(operand.variable)};
}

Lowering::Value Lowering::LowerUnary(const Row& row, Value& a) {
  const Forms& forms = *row.function->forms;
  Compute(a);
  if (a.kind == Value::Kind::Accumulator) {
    Emit(forms.accumulator);
  } else {
    EmitAnew(forms.leaf).operand[0] = a.place;
  }
  return {.kind = Value::Kind::Accumulator};
}

// Computes lazy operands together with the operation, where there is an instruction for both.
bool Lowering::LowerFused(const FunctionEntry& function, Value& left, Value& right) {
  using Kind = Value::Kind;
  const int outer = function.forms->fusion;
  const bool rightLazy = right.kind == Kind::Lazy;
  const int rightInner = rightLazy ? right.function->forms->fusion : -1;
  const HandlerSet* handlers = nullptr;
  if (rightLazy && left.kind == Kind::Leaf) {
    handlers = FusedRight(outer, rightInner);
    if (handlers == nullptr) return false;
    EmitAnew(*handlers).operand = {left.place, right.place, right.second};
  } else if (right.kind == Kind::LazyThree && left.kind == Kind::Accumulator) {
    handlers =
        FusedAccumulatorLeft(outer, right.function->forms->fusion, right.outer->forms->fusion);
    if (handlers == nullptr) return false;
    Emit(*handlers).operand = {right.place, right.second, right.third};
  } else if (rightLazy && left.kind == Kind::Accumulator) {
    handlers = FusedAccumulator(outer, rightInner);
    if (handlers == nullptr) return false;
    Emit(*handlers).operand = {right.place, right.second};
    joinable_ = {FusedAccumulatorLeaf, rightInner, outer, 2};
  } else if (right.kind == Kind::LazyFour && left.kind == Kind::Accumulator) {
    handlers = FusedAccumulatorFour(outer, right.function->forms->fusion,
                                    right.outer->forms->fusion, right.right->forms->fusion);
    if (handlers == nullptr) return false;
    Emit(*handlers).operand = {right.place, right.second, right.third, right.fourth};
  }
  return handlers != nullptr;
}

// Lets the last instruction do an operation on its result and a leaf as well.
bool Lowering::JoinLeaf(const FunctionEntry& function, const Value& right) {
  if (joinable_.wider == nullptr) return false;
  const HandlerSet* wider =
      joinable_.wider(joinable_.inner, joinable_.outer, function.forms->fusion);
  if (wider == nullptr) return false;
  Instruction& last = code_.back();
  constexpr auto kSpilling = static_cast<std::size_t>(Mode::Spilling);
  constexpr auto kPlain = static_cast<std::size_t>(Mode::Plain);
  last.handler = (*wider)[last.handler == (*emitted_)[kPlain] ? kPlain : kSpilling];
  last.operand[joinable_.operands] = right.place;
  emitted_ = wider;
  joinable_ = {};
  return true;
}

// Leaves an operation on leaves to the instruction that will need its result.
bool Lowering::PutOff(const FunctionEntry& function, const Value& left, const Value& right,
                      Value& result) {
  const int fusion = function.forms->fusion;
  if (left.kind == Value::Kind::Lazy && right.kind == Value::Kind::Lazy) {
    const int leftInner = left.function->forms->fusion;
    if (FusedFour(leftInner, fusion, right.function->forms->fusion) == nullptr) return false;
    result = left;
    result.kind = Value::Kind::LazyFour;
    result.third = right.place;
    result.fourth = right.second;
    result.outer = &function;
    result.right = right.function;
    return true;
  }
  if (fusion < 0 || right.kind != Value::Kind::Leaf) return false;
  if (left.kind == Value::Kind::Leaf) {
    result = {.kind = Value::Kind::Lazy,
              .place = left.place,
              .second = right.place,
              .function = &function};
    return true;
  }
  if (left.kind != Value::Kind::Lazy) return false;
  if (FusedLeft(left.function->forms->fusion, fusion) == nullptr) return false;
  result = left;
  result.kind = Value::Kind::LazyThree;
  result.third = right.place;
  result.outer = &function;
  return true;
}

Lowering::Value Lowering::LowerBinary(const Row& row, Value& left, Value& right) {
  using Kind = Value::Kind;
  const Forms& forms = *row.function->forms;
  const Value result{.kind = Kind::Accumulator};
  if (left.kind == Kind::Negative) Compute(left);
  if (right.kind == Kind::Negative) Compute(right);
  Value lazy;
  if (PutOff(*row.function, left, right, lazy)) return lazy;
  // What stands left of a lazy operand is computed first, so that it is in the accumulator.
  const bool rightIsLarge = right.kind == Kind::LazyThree || right.kind == Kind::LazyFour;
  const bool leftIsLarge = left.kind == Kind::LazyThree || left.kind == Kind::LazyFour;
  if (leftIsLarge || (rightIsLarge && left.kind == Kind::Lazy)) Compute(left);
  if (LowerFused(*row.function, left, right)) return result;
  Compute(left);
  Compute(right);
  if (left.kind == Kind::Accumulator && JoinLeaf(*row.function, right)) return result;
  if (left.kind == Kind::Accumulator) {
    Emit(forms.accumulatorLeaf).operand[0] = right.place;
  } else if (right.kind == Kind::Accumulator) {
    Emit(forms.leafAccumulator).operand[0] = left.place;
  } else {
    EmitAnew(forms.leafLeaf).operand = {left.place, right.place};
  }
  return result;
}

// A function without ready-made code finds its arguments in the values.
Lowering::Value Lowering::LowerCall(const Row& row, std::array<Value, kMaxArguments>& arguments) {
  const auto count = static_cast<std::size_t>(row.arguments);
  for (std::size_t i = 0; i < count; ++i) Compute(arguments[i]);
  Instruction& made = EmitAnew(kCall);
  made.function = row.function;
  for (std::size_t i = 0; i < count; ++i) made.operand[i] = arguments[i].place;
  return {.kind = Value::Kind::Accumulator};
}

void Lowering::TakeArgument(const Row& row, std::size_t slot, Value& value) {
  const int source = row.source[slot];
  if (source == 0) {
    value = Leaf(row.operand[slot]);
  } else if (sharedPlace_[static_cast<std::size_t>(source)] != 0) {
    value = {.kind = Value::Kind::Leaf, .place = sharedPlace_[static_cast<std::size_t>(source)]};
  } else {
    Pop(value);
  }
}

Lowering::Value Lowering::LowerOperation(const Row& row) {
  std::array<Value, kMaxArguments> arguments;
  if (IsLeftGuarded(row)) {  // the right factor came first
    TakeArgument(row, 0, arguments[0]);
    TakeArgument(row, 1, arguments[1]);
  } else {
    for (auto slot = static_cast<std::size_t>(row.arguments); slot-- > 0;) {
      TakeArgument(row, slot, arguments[slot]);
    }
  }
  Value result;
  if (row.function->forms == nullptr) {
    result = LowerCall(row, arguments);
  } else if (row.arguments == 1) {
    result = LowerUnary(row, arguments[0]);
  } else {
    result = LowerBinary(row, arguments[0], arguments[1]);
  }
  // The arguments end here, and whatever of them was in the accumulator has been used up.
  if (result.kind == Value::Kind::Accumulator) inAccumulator_ = nullptr;
  return result;
}

void Lowering::LowerRow(int number) {
  const Row& row = table_.At(number);
  if (row.function == &operators::kRight) {
    if (row.source[1] == 0) Push(Leaf(row.operand[1]));
    return;
  }
  if (GuardAmongFactors(row) != 0) {
    Finish(number, LowerGuarded(number));
    return;
  }
  Value result = LowerOperation(row);
  if (row.factorGuard != 0) {
    if (result.kind == Value::Kind::Accumulator) inAccumulator_ = &result;
    Compute(result);
    EndJump(number);
  }
  Finish(number, result);
}

// Puts a row's result where the row that needs it looks for it.
void Lowering::Finish(int number, Value result) {
  const Row& row = table_.At(number);
  const auto at = static_cast<std::size_t>(number);
  if (result.kind == Value::Kind::Accumulator) inAccumulator_ = &result;
  if (row.sign < 0) {
    Compute(result);
    Emit(NegateForms().accumulator);
  }
  if (row.alsoFeeds != 0 || isFarGuard_[at]) {
    Compute(result);
    if (sharedPlace_[at] == 0) sharedPlace_[at] = NewPlace(0.0);
    Emit(kStore).spill = sharedPlace_[at];
    inAccumulator_ = nullptr;
  }
  if (EmitGuard(number, result)) return;
  if (sharedPlace_[at] == 0) Push(result);
  inAccumulator_ = sharedPlace_[at] == 0 ? inAccumulator_ : nullptr;
}

void Lowering::Lower() {
  code_.clear();
  std::fill_n(values_.begin() + 1, kMaxVariables, 0.0);
  if (table_.byRowsOnly || table_.rows.empty()) return;
  code_.reserve(table_.rows.size() + 1);
  if (table_.hasGuards) PlaceFarGuards();
  for (const std::int16_t row : table_.hasGuards ? GuardsFirst() : table_.postfix) LowerRow(row);
  Compute(stack_[0]);
  // The last operation gives the result itself, unless it has to spill first. A false guard may
  // still lead to the end behind it.
  Instruction& last = code_.back();
  const Handler plain = (*emitted_)[static_cast<std::size_t>(Mode::Plain)];
  const Handler ending = (*emitted_)[static_cast<std::size_t>(Mode::Last)];
  if (last.handler == plain && ending != nullptr) last.handler = ending;
  Emit(kEnd);
}

}  // namespace zentab::mathparser
