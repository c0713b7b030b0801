#include "mathparser/fused_operations.h"

#include <array>
#include <tuple>
#include <utility>

#include "mathparser/operations.h"

namespace zentab::mathparser {
namespace {

// In the order of Fusion.
using Operations = std::tuple<Add, Subtract, Multiply, Divide, Minimum, Maximum, Greater,
                              GreaterOrEqual, Less, LessOrEqual, Equal, NotEqual>;
template <std::size_t N>
using Operation = std::tuple_element_t<N, Operations>;

constexpr std::size_t kInner = kFusions;      // any of them may come first
constexpr std::size_t kOuter = kFuseGreater;  // what may take the result of another
constexpr std::size_t kArithmetic = kFuseMinimum;
static_assert(std::tuple_size_v<Operations> == kInner);

double LeafPlace(const Instruction* at, const double* values, std::size_t i) {
  return values[at->operand[i]];
}

template <class Inner, class Outer>
double Left(const Instruction* at, double* values, double accumulator) {
  values[at->spill] = accumulator;
  const double inner = Inner::Of(LeafPlace(at, values, 0), LeafPlace(at, values, 1));
  return Next(at, values, Outer::Of(inner, LeafPlace(at, values, 2)));
}

template <class Inner, class Outer>
double Right(const Instruction* at, double* values, double accumulator) {
  values[at->spill] = accumulator;
  const double inner = Inner::Of(LeafPlace(at, values, 1), LeafPlace(at, values, 2));
  return Next(at, values, Outer::Of(LeafPlace(at, values, 0), inner));
}

template <class Inner, class Outer>
double OnAccumulator(const Instruction* at, double* values, double accumulator) {
  const double inner = Inner::Of(LeafPlace(at, values, 0), LeafPlace(at, values, 1));
  return Next(at, values, Outer::Of(accumulator, inner));
}

template <class LeftOp, class Outer, class RightOp>
double Four(const Instruction* at, double* values, double accumulator) {
  values[at->spill] = accumulator;
  const double left = LeftOp::Of(LeafPlace(at, values, 0), LeafPlace(at, values, 1));
  const double right = RightOp::Of(LeafPlace(at, values, 2), LeafPlace(at, values, 3));
  return Next(at, values, Outer::Of(left, right));
}

// Place inner * kOuter + outer.
using Pairs = std::array<Handler, kInner * kOuter>;

template <std::size_t... N>
constexpr Pairs LeftPairs(std::index_sequence<N...>) {
  return {Left<Operation<N / kOuter>, Operation<N % kOuter>>...};
}
template <std::size_t... N>
constexpr Pairs RightPairs(std::index_sequence<N...>) {
  return {Right<Operation<N / kOuter>, Operation<N % kOuter>>...};
}
template <std::size_t... N>
constexpr Pairs AccumulatorPairs(std::index_sequence<N...>) {
  return {OnAccumulator<Operation<N / kOuter>, Operation<N % kOuter>>...};
}

using Triples = std::array<Handler, kArithmetic * kArithmetic * kArithmetic>;
template <std::size_t... N>
constexpr Triples FourTriples(std::index_sequence<N...>) {
  return {Four<Operation<N / (kArithmetic * kArithmetic)>, Operation<N / kArithmetic % kArithmetic>,
               Operation<N % kArithmetic>>...};
}

constexpr auto kEveryPair = std::make_index_sequence<kInner * kOuter>();
constexpr Pairs kLeft = LeftPairs(kEveryPair);
constexpr Pairs kRight = RightPairs(kEveryPair);
constexpr Pairs kAccumulator = AccumulatorPairs(kEveryPair);
constexpr Triples kFour = FourTriples(std::make_index_sequence<std::tuple_size_v<Triples>>());

Handler PairOf(const Pairs& pairs, int inner, int outer) {
  if (inner < 0 || outer < 0 || outer >= static_cast<int>(kOuter)) return nullptr;
  return pairs[static_cast<std::size_t>(inner) * kOuter + static_cast<std::size_t>(outer)];
}

}  // namespace

Handler FusedLeft(int inner, int outer) { return PairOf(kLeft, inner, outer); }
Handler FusedRight(int outer, int inner) { return PairOf(kRight, inner, outer); }
Handler FusedAccumulator(int outer, int inner) { return PairOf(kAccumulator, inner, outer); }

Handler FusedFour(int left, int outer, int right) {
  const auto isArithmetic = [](int f) { return f >= 0 && f < static_cast<int>(kArithmetic); };
  if (!isArithmetic(left) || !isArithmetic(outer) || !isArithmetic(right)) return nullptr;
  const auto place = static_cast<std::size_t>(left) * kArithmetic + static_cast<std::size_t>(outer);
  return kFour[place * kArithmetic + static_cast<std::size_t>(right)];
}

}  // namespace zentab::mathparser
