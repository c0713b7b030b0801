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

template <class Inner, class Outer, Mode M>
double Left(const Instruction* at, double* values, double accumulator, double trouble) {
  Spill<M>(at, values, accumulator);
  const double inner = Do<Inner>(LeafPlace(at, values, 0), LeafPlace(at, values, 1), trouble);
  const double result = Do<Outer>(inner, LeafPlace(at, values, 2), trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class Inner, class Outer, Mode M>
double Right(const Instruction* at, double* values, double accumulator, double trouble) {
  Spill<M>(at, values, accumulator);
  const double inner = Do<Inner>(LeafPlace(at, values, 1), LeafPlace(at, values, 2), trouble);
  const double result = Do<Outer>(LeafPlace(at, values, 0), inner, trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class Inner, class Outer, Mode M>
double OnAccumulator(const Instruction* at, double* values, double accumulator, double trouble) {
  const double inner = Do<Inner>(LeafPlace(at, values, 0), LeafPlace(at, values, 1), trouble);
  const double result = Do<Outer>(accumulator, inner, trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class Inner, class Middle, class Outer, Mode M>
double OnAccumulatorLeft(const Instruction* at, double* values, double accumulator,
                         double trouble) {
  const double inner = Do<Inner>(LeafPlace(at, values, 0), LeafPlace(at, values, 1), trouble);
  const double middle = Do<Middle>(inner, LeafPlace(at, values, 2), trouble);
  const double result = Do<Outer>(accumulator, middle, trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class LeftOp, class Outer, class RightOp, Mode M>
double Four(const Instruction* at, double* values, double accumulator, double trouble) {
  Spill<M>(at, values, accumulator);
  const double left = Do<LeftOp>(LeafPlace(at, values, 0), LeafPlace(at, values, 1), trouble);
  const double right = Do<RightOp>(LeafPlace(at, values, 2), LeafPlace(at, values, 3), trouble);
  const double result = Do<Outer>(left, right, trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class Inner, class Outer, class Final, Mode M>
double LeftLeaf(const Instruction* at, double* values, double accumulator, double trouble) {
  Spill<M>(at, values, accumulator);
  const double inner = Do<Inner>(LeafPlace(at, values, 0), LeafPlace(at, values, 1), trouble);
  const double outer = Do<Outer>(inner, LeafPlace(at, values, 2), trouble);
  const double result = Do<Final>(outer, LeafPlace(at, values, 3), trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class Inner, class Outer, class Final, Mode M>
double OnAccumulatorLeaf(const Instruction* at, double* values, double accumulator,
                         double trouble) {
  const double inner = Do<Inner>(LeafPlace(at, values, 0), LeafPlace(at, values, 1), trouble);
  const double outer = Do<Outer>(accumulator, inner, trouble);
  const double result = Do<Final>(outer, LeafPlace(at, values, 2), trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class Outer, class LeftOp, class Middle, class RightOp, Mode M>
double OnAccumulatorFour(const Instruction* at, double* values, double accumulator,
                         double trouble) {
  const double left = Do<LeftOp>(LeafPlace(at, values, 0), LeafPlace(at, values, 1), trouble);
  const double right = Do<RightOp>(LeafPlace(at, values, 2), LeafPlace(at, values, 3), trouble);
  const double middle = Do<Middle>(left, right, trouble);
  const double result = Do<Outer>(accumulator, middle, trouble);
  return HandOver<M>(at, values, result, trouble);
}

template <class I, class O>
constexpr HandlerSet kLeftSet{Left<I, O, Mode::Plain>, Left<I, O, Mode::Spilling>,
                              Left<I, O, Mode::Last>};
template <class I, class O>
constexpr HandlerSet kRightSet{Right<I, O, Mode::Plain>, Right<I, O, Mode::Spilling>,
                               Right<I, O, Mode::Last>};
template <class I, class O>
constexpr HandlerSet kAccumulatorSet{OnAccumulator<I, O, Mode::Plain>, nullptr,
                                     OnAccumulator<I, O, Mode::Last>};
template <class I, class M, class O>
constexpr HandlerSet kAccumulatorLeftSet{OnAccumulatorLeft<I, M, O, Mode::Plain>, nullptr,
                                         OnAccumulatorLeft<I, M, O, Mode::Last>};
template <class L, class O, class R>
constexpr HandlerSet kFourSet{Four<L, O, R, Mode::Plain>, Four<L, O, R, Mode::Spilling>,
                              Four<L, O, R, Mode::Last>};
template <class I, class O, class F>
constexpr HandlerSet kLeftLeafSet{LeftLeaf<I, O, F, Mode::Plain>, LeftLeaf<I, O, F, Mode::Spilling>,
                                  LeftLeaf<I, O, F, Mode::Last>};
template <class I, class O, class F>
constexpr HandlerSet kAccumulatorLeafSet{OnAccumulatorLeaf<I, O, F, Mode::Plain>, nullptr,
                                         OnAccumulatorLeaf<I, O, F, Mode::Last>};
template <class O, class L, class M, class R>
constexpr HandlerSet kAccumulatorFourSet{OnAccumulatorFour<O, L, M, R, Mode::Plain>, nullptr,
                                         OnAccumulatorFour<O, L, M, R, Mode::Last>};

// Place inner * kOuter + outer.
using Pairs = std::array<HandlerSet, kInner * kOuter>;

template <std::size_t... N>
constexpr Pairs LeftPairs(std::index_sequence<N...>) {
  return {kLeftSet<Operation<N / kOuter>, Operation<N % kOuter>>...};
}
template <std::size_t... N>
constexpr Pairs RightPairs(std::index_sequence<N...>) {
  return {kRightSet<Operation<N / kOuter>, Operation<N % kOuter>>...};
}
template <std::size_t... N>
constexpr Pairs AccumulatorPairs(std::index_sequence<N...>) {
  return {kAccumulatorSet<Operation<N / kOuter>, Operation<N % kOuter>>...};
}

// Place (left * kArithmetic + outer) * kArithmetic + right.
using Triples = std::array<HandlerSet, kArithmetic * kArithmetic * kArithmetic>;
template <std::size_t... N>
constexpr Triples FourTriples(std::index_sequence<N...>) {
  return {kFourSet<Operation<N / (kArithmetic * kArithmetic)>,
                   Operation<N / kArithmetic % kArithmetic>, Operation<N % kArithmetic>>...};
}
template <std::size_t... N>
constexpr Triples LeftLeafTriples(std::index_sequence<N...>) {
  return {kLeftLeafSet<Operation<N / (kArithmetic * kArithmetic)>,
                       Operation<N / kArithmetic % kArithmetic>, Operation<N % kArithmetic>>...};
}
template <std::size_t... N>
constexpr Triples AccumulatorLeafTriples(std::index_sequence<N...>) {
  return {
      kAccumulatorLeafSet<Operation<N / (kArithmetic * kArithmetic)>,
                          Operation<N / kArithmetic % kArithmetic>, Operation<N % kArithmetic>>...};
}

// Place ((outer * kArithmetic + left) * kArithmetic + middle) * kArithmetic + right.
using Quadruples = std::array<HandlerSet, kArithmetic * kArithmetic * kArithmetic * kArithmetic>;
template <std::size_t... N>
constexpr Quadruples AccumulatorFourQuadruples(std::index_sequence<N...>) {
  return {
      kAccumulatorFourSet<Operation<N / (kArithmetic * kArithmetic * kArithmetic)>,
                          Operation<N / (kArithmetic * kArithmetic) % kArithmetic>,
                          Operation<N / kArithmetic % kArithmetic>, Operation<N % kArithmetic>>...};
}

// Place (inner * kArithmetic + middle) * kArithmetic + outer.
using InnerTriples = std::array<HandlerSet, kInner * kArithmetic * kArithmetic>;
template <std::size_t... N>
constexpr InnerTriples AccumulatorLeftTriples(std::index_sequence<N...>) {
  return {
      kAccumulatorLeftSet<Operation<N / (kArithmetic * kArithmetic)>,
                          Operation<N / kArithmetic % kArithmetic>, Operation<N % kArithmetic>>...};
}

constexpr auto kEveryPair = std::make_index_sequence<kInner * kOuter>();
constexpr Pairs kLeft = LeftPairs(kEveryPair);
constexpr Pairs kRight = RightPairs(kEveryPair);
constexpr Pairs kAccumulator = AccumulatorPairs(kEveryPair);
constexpr InnerTriples kAccumulatorLeft =
    AccumulatorLeftTriples(std::make_index_sequence<std::tuple_size_v<InnerTriples>>());
constexpr auto kEveryTriple = std::make_index_sequence<std::tuple_size_v<Triples>>();
constexpr Triples kFour = FourTriples(kEveryTriple);
constexpr Triples kLeftLeaf = LeftLeafTriples(kEveryTriple);
constexpr Triples kAccumulatorLeaf = AccumulatorLeafTriples(kEveryTriple);
constexpr Quadruples kAccumulatorFour =
    AccumulatorFourQuadruples(std::make_index_sequence<std::tuple_size_v<Quadruples>>());

bool IsArithmetic(int operation) {
  return operation >= 0 && operation < static_cast<int>(kArithmetic);
}

const HandlerSet* PairOf(const Pairs& pairs, int inner, int outer) {
  if (inner < 0 || outer < 0 || outer >= static_cast<int>(kOuter)) return nullptr;
  return &pairs[static_cast<std::size_t>(inner) * kOuter + static_cast<std::size_t>(outer)];
}

const HandlerSet* TripleOf(const Triples& triples, int first, int second, int third) {
  if (!IsArithmetic(first) || !IsArithmetic(second) || !IsArithmetic(third)) return nullptr;
  const auto place =
      static_cast<std::size_t>(first) * kArithmetic + static_cast<std::size_t>(second);
  return &triples[place * kArithmetic + static_cast<std::size_t>(third)];
}

}  // namespace

const HandlerSet* FusedLeft(int inner, int outer) { return PairOf(kLeft, inner, outer); }
const HandlerSet* FusedRight(int outer, int inner) { return PairOf(kRight, inner, outer); }
const HandlerSet* FusedAccumulator(int outer, int inner) {
  return PairOf(kAccumulator, inner, outer);
}

const HandlerSet* FusedAccumulatorLeft(int outer, int inner, int middle) {
  if (inner < 0 || !IsArithmetic(middle) || !IsArithmetic(outer)) return nullptr;
  const auto place =
      static_cast<std::size_t>(inner) * kArithmetic + static_cast<std::size_t>(middle);
  return &kAccumulatorLeft[place * kArithmetic + static_cast<std::size_t>(outer)];
}

const HandlerSet* FusedFour(int left, int outer, int right) {
  return TripleOf(kFour, left, outer, right);
}

const HandlerSet* FusedLeftLeaf(int inner, int outer, int last) {
  return TripleOf(kLeftLeaf, inner, outer, last);
}

const HandlerSet* FusedAccumulatorLeaf(int inner, int outer, int last) {
  return TripleOf(kAccumulatorLeaf, inner, outer, last);
}

const HandlerSet* FusedAccumulatorFour(int outer, int left, int middle, int right) {
  if (!IsArithmetic(outer) || !IsArithmetic(left) || !IsArithmetic(middle) ||
      !IsArithmetic(right)) {
    return nullptr;
  }
  std::size_t place = 0;
  for (const int operation : {outer, left, middle, right}) {
    place = place * kArithmetic + static_cast<std::size_t>(operation);
  }
  return &kAccumulatorFour[place];
}

}  // namespace zentab::mathparser
