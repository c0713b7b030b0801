#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "mathparser/function_entry.h"

namespace zentab::mathparser {

struct Instruction;

/// Does one instruction and hands over to the one behind it, the value so far in `accumulator`.
/// `values` holds, from its start: the angle factor, the variables 1 to 100, constants,
/// temporaries. `trouble` is +0 until an operation swallows a value that is no finite number, then
/// NaN.
using Handler = double (*)(const Instruction* at, double* values, double accumulator,
                           double trouble);

/// The variants of a handler.
enum class Mode : std::uint8_t {
  Plain,
  Spilling,  // begins anew and saves the accumulator first
  Last,      // gives the result instead of handing over
};
using HandlerSet = std::array<Handler, 3>;  // by Mode

/// One step of a lowered expression. Operands are places in the values.
struct Instruction {
  Handler handler = nullptr;
  const FunctionEntry* function = nullptr;  // for calls through a kernel
  std::array<std::uint16_t, 6> operand{};
  std::uint16_t spill = 0;  // where an instruction that begins anew saves the accumulator
  std::uint16_t skip = 0;   // how many instructions a guard that is false leaves out
};

inline constexpr std::uint16_t kAngleFactorPlace = 0;

inline double Next(const Instruction* at, double* values, double accumulator, double trouble) {
  return at[1].handler(at + 1, values, accumulator, trouble);
}

using UnaryBlock = void (*)(const double* a, double* result, double angleFactor, std::size_t n);
using BinaryBlock = void (*)(const double* a, const double* b, double* result, std::size_t n);

/// By which of the operands are blocks; a scalar is pointed at.
struct BlockSet {
  BinaryBlock blockBlock = nullptr;
  BinaryBlock blockScalar = nullptr;
  BinaryBlock scalarBlock = nullptr;
};

/// The ready-made code of a function of one or two arguments. "Leaf" stands for an operand in the
/// values, "accumulator" for the value just computed.
struct Forms {
  // One argument.
  HandlerSet leaf{};
  HandlerSet accumulator{};
  UnaryBlock block = nullptr;
  // Two arguments, in their order.
  HandlerSet leafLeaf{};
  HandlerSet accumulatorLeaf{};
  HandlerSet leafAccumulator{};
  std::array<BlockSet, 2> blocks{};  // the second where vectors are wide
  int fusion = -1;  // number among the operations that can be fused with others, -1 for none
};

}  // namespace zentab::mathparser
