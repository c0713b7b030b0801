#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "mathparser/expression_table.h"
#include "mathparser/instruction.h"

namespace zentab::mathparser {

/// Of a program's values: the angle factor, the variables, a literal for every row and one more, a
/// spill and a shared result for every row.
inline constexpr std::size_t kPlaces = 1 + kMaxVariables + 3 * kMaxRows + 1;
using ProgramValues = std::span<double, kPlaces>;

/// Lowers an expression table to code that runs without names, links or allocation. It gives the
/// very bits that the table's operations give one by one, and NaN or an infinity when one of them
/// fails; which one and why, only the table knows. Both are made anew: the code, empty when the
/// expression cannot be lowered (random numbers), and the values, the variables being 0 then; the
/// angle factor stays.
class Lowering {
 public:
  Lowering(const ExpressionTable& table, std::vector<Instruction>& code, ProgramValues values)
      : table_(table), code_(code), values_(values) {}
  void Lower();

 private:
  struct Value {
    enum class Kind : std::uint8_t {
      Leaf,         // at `place`
      Negative,     // a variable with a minus
      Lazy,         // two leaves and a fusible operation, not computed yet
      LazyThree,    // a lazy value, an operation to its right and a leaf
      LazyFour,     // two lazy values and an operation between them
      Accumulator,  // just computed
    };
    Kind kind = Kind::Leaf;
    std::uint16_t place = 0;
    // Of lazy values: the leaves to the right and the operations.
    std::uint16_t second = 0;
    std::uint16_t third = 0;
    std::uint16_t fourth = 0;
    const FunctionEntry* function = nullptr;
    const FunctionEntry* outer = nullptr;
    const FunctionEntry* right = nullptr;
  };
  // The last instruction, when it can take one more operation with a leaf to its right.
  struct Joinable {
    const HandlerSet* (*wider)(int inner, int outer, int last) = nullptr;
    int inner = -1;
    int outer = -1;
    std::size_t operands = 0;
  };

  [[nodiscard]] std::vector<std::int16_t> GuardsFirst() const;
  void LowerRow(int number);
  Value LowerUnary(const Row& row, Value& a);
  Value LowerBinary(const Row& row, Value& left, Value& right);
  bool LowerFused(const FunctionEntry& function, Value& left, Value& right);
  bool JoinLeaf(const FunctionEntry& function, const Value& right);
  static bool PutOff(const FunctionEntry& function, const Value& left, const Value& right,
                     Value& result);
  Value LowerCall(const Row& row, std::array<Value, kMaxArguments>& arguments);
  [[nodiscard]] bool IsLeftGuarded(const Row& row) const;
  [[nodiscard]] static int GuardAmongFactors(const Row& row);
  void PlaceFarGuards();
  bool EmitGuard(int number, Value& result);
  void EndJump(int product);
  Value LowerOperation(const Row& row);
  Value LowerGuarded(int product);
  void Finish(int number, Value result);
  void Push(const Value& value);
  void Pop(Value& value);
  void TakeArgument(const Row& row, std::size_t slot, Value& value);
  Value Leaf(const Operand& operand);
  void Compute(Value& value);
  Instruction& Emit(const HandlerSet& handlers);
  Instruction& EmitAnew(const HandlerSet& handlers);
  void OwnAccumulator(Value& value);
  std::uint16_t NewPlace(double value);

  const ExpressionTable& table_;
  std::vector<Instruction>& code_;
  ProgramValues values_;
  std::array<Value, kMaxRows + 2> stack_{};
  std::size_t depth_ = 0;
  std::uint16_t firstFreePlace_ = kMaxVariables + 1;
  const HandlerSet* emitted_ = nullptr;  // of the last instruction
  Joinable joinable_;
  Value* inAccumulator_ = nullptr;                         // the value that the accumulator holds
  std::array<std::uint16_t, kMaxRows + 1> sharedPlace_{};  // of a row that several read, else 0
  std::array<bool, kMaxRows + 1> isFarGuard_{};            // read by a product further out
  std::array<std::size_t, kMaxRows + 1> jump_{};  // of a guarded product, its guard's instruction
};

}  // namespace zentab::mathparser
