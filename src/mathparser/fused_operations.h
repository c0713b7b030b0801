#pragma once

#include "mathparser/instruction.h"

namespace zentab::mathparser {

/// The operations that are computed several in one instruction, by Forms::fusion. Those
/// before kFuseGreater may take the results of others.
enum Fusion : int {
  kFuseAdd,
  kFuseSubtract,
  kFuseMultiply,
  kFuseDivide,
  kFuseMinimum,
  kFuseMaximum,
  kFuseGreater,
  kFuseGreaterOrEqual,
  kFuseLess,
  kFuseLessOrEqual,
  kFuseEqual,
  kFuseNotEqual,
  kFusions,
};

// The handlers of several operations at once, null where there are none; `outer` is the one
// computed last. Operands are in the order of the text.

/// (leaf inner leaf) outer leaf
[[nodiscard]] const HandlerSet* FusedLeft(int inner, int outer);
/// leaf outer (leaf inner leaf)
[[nodiscard]] const HandlerSet* FusedRight(int outer, int inner);
/// accumulator outer (leaf inner leaf)
[[nodiscard]] const HandlerSet* FusedAccumulator(int outer, int inner);
/// accumulator outer ((leaf inner leaf) middle leaf)
[[nodiscard]] const HandlerSet* FusedAccumulatorLeft(int outer, int inner, int middle);
/// ((leaf inner leaf) outer leaf) last leaf
[[nodiscard]] const HandlerSet* FusedLeftLeaf(int inner, int outer, int last);
/// (accumulator outer (leaf inner leaf)) last leaf
[[nodiscard]] const HandlerSet* FusedAccumulatorLeaf(int inner, int outer, int last);
/// accumulator outer ((leaf left leaf) middle (leaf right leaf))
[[nodiscard]] const HandlerSet* FusedAccumulatorFour(int outer, int left, int middle, int right);
/// (leaf left leaf) outer (leaf right leaf)
[[nodiscard]] const HandlerSet* FusedFour(int left, int outer, int right);

}  // namespace zentab::mathparser
