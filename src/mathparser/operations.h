#pragma once

#include <cmath>

#include "mathparser/instruction.h"

namespace zentab::mathparser {

// A row fails when what goes into it or comes out of it is no finite number. Instead of asking
// after every step, such a value is left to run through to the end, where it shows in the result.
// An operation that may swallow it on the way (1/infinity is 0, NaN<1 is false) reports trouble:
// x-x is +0 for every finite x and NaN for the others, and subtracting +0 from the result changes
// no bit of it. Trouble may be seen where there is none (a-b overflows), as it only makes the
// expression be evaluated row by row once more.
inline double Trouble(double a) { return a - a; }
inline double Trouble(double a, double b) { return Trouble(a - b); }

/// For operations that give no finite number when they get none.
struct Propagating {
  static constexpr bool kSwallows = false;
};
struct Swallowing {
  static constexpr bool kSwallows = true;
  static double TroubleOf(double a, double b) { return Trouble(a, b); }
};

struct Add : Propagating {
  static double Of(double a, double b) { return a + b; }
};
struct Subtract : Propagating {
  static double Of(double a, double b) { return a - b; }
};
struct Multiply : Propagating {
  static double Of(double a, double b) { return a * b; }
};
struct Divide {
  static constexpr bool kSwallows = true;
  static double Of(double a, double b) { return a / b; }
  static double TroubleOf(double, double b) { return Trouble(b); }
};
/// 1 or 0, without a jump that random values would make the processor guess wrong. In a block the
/// plain choice is the one that becomes a vector operation.
inline double Truth(bool isTrue) { return static_cast<double>(isTrue); }

struct Less : Swallowing {
  static double Of(double a, double b) { return Truth(a < b); }
  static double InBlock(double a, double b) { return a < b ? 1.0 : 0.0; }
};
struct LessOrEqual : Swallowing {
  static double Of(double a, double b) { return Truth(a <= b); }
  static double InBlock(double a, double b) { return a <= b ? 1.0 : 0.0; }
};
struct Greater : Swallowing {
  static double Of(double a, double b) { return Truth(a > b); }
  static double InBlock(double a, double b) { return a > b ? 1.0 : 0.0; }
};
struct GreaterOrEqual : Swallowing {
  static double Of(double a, double b) { return Truth(a >= b); }
  static double InBlock(double a, double b) { return a >= b ? 1.0 : 0.0; }
};
struct Equal : Swallowing {
  static double Of(double a, double b) { return Truth(a == b); }
  static double InBlock(double a, double b) { return a == b ? 1.0 : 0.0; }
};
struct NotEqual : Swallowing {
  static double Of(double a, double b) { return Truth(a != b); }
  static double InBlock(double a, double b) { return a != b ? 1.0 : 0.0; }
};
struct Minimum : Swallowing {
  static double Of(double a, double b) { return a < b ? a : b; }
};
struct Maximum : Swallowing {
  static double Of(double a, double b) { return a > b ? a : b; }
};

/// A function of one argument and the angle factor as an operation.
template <auto F, bool Swallows>
struct UnaryOf {
  static constexpr bool kSwallows = Swallows;
  static double Of(double a, double angleFactor) { return F(a, angleFactor); }
  static double TroubleOf(double a, double) { return Trouble(a); }
};

/// A function of two arguments as an operation.
template <auto F>
struct BinaryOf : Swallowing {
  static double Of(double a, double b) { return F(a, b); }
  static double TroubleOf(double a, double b) { return Trouble(a) + Trouble(b); }
};

/// Computes and takes down trouble.
template <class Op>
double Do(double a, double b, double& trouble) {
  if constexpr (Op::kSwallows) trouble += Op::TroubleOf(a, b);
  return Op::Of(a, b);
}

/// Computes, trouble included in the result.
template <class Op>
double DoAtOnce(double a, double b) {
  if constexpr (requires { Op::InBlock(a, b); }) {
    return Op::InBlock(a, b) - Op::TroubleOf(a, b);
  } else if constexpr (Op::kSwallows) {
    return Op::Of(a, b) - Op::TroubleOf(a, b);
  } else {
    return Op::Of(a, b);
  }
}

template <Mode M>
double HandOver(const Instruction* at, double* values, double result, double trouble) {
  if constexpr (M == Mode::Last) return result - trouble;
  return Next(at, values, result, trouble);
}

template <Mode M>
void Spill(const Instruction* at, double* values, double accumulator) {
  if constexpr (M == Mode::Spilling) values[at->spill] = accumulator;
}

template <class Op>
struct UnaryCode {
  static double Call(const double* a, CallContext& context) {
    return Op::Of(a[0], context.angleFactor);
  }
  template <Mode M>
  static double OfLeaf(const Instruction* at, double* values, double accumulator, double trouble) {
    Spill<M>(at, values, accumulator);
    const double result = Do<Op>(values[at->operand[0]], values[kAngleFactorPlace], trouble);
    return HandOver<M>(at, values, result, trouble);
  }
  template <Mode M>
  static double OfAccumulator(const Instruction* at, double* values, double accumulator,
                              double trouble) {
    const double result = Do<Op>(accumulator, values[kAngleFactorPlace], trouble);
    return HandOver<M>(at, values, result, trouble);
  }
  static void OfBlock(const double* __restrict a, double* __restrict result, double angleFactor,
                      std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) result[i] = DoAtOnce<Op>(a[i], angleFactor);
  }
};

template <class Op>
struct BinaryCode {
  static double Call(const double* a, CallContext&) { return Op::Of(a[0], a[1]); }
  template <Mode M>
  static double OfLeafLeaf(const Instruction* at, double* values, double accumulator,
                           double trouble) {
    Spill<M>(at, values, accumulator);
    const double result = Do<Op>(values[at->operand[0]], values[at->operand[1]], trouble);
    return HandOver<M>(at, values, result, trouble);
  }
  template <Mode M>
  static double OfAccumulatorLeaf(const Instruction* at, double* values, double accumulator,
                                  double trouble) {
    const double result = Do<Op>(accumulator, values[at->operand[0]], trouble);
    return HandOver<M>(at, values, result, trouble);
  }
  template <Mode M>
  static double OfLeafAccumulator(const Instruction* at, double* values, double accumulator,
                                  double trouble) {
    const double result = Do<Op>(values[at->operand[0]], accumulator, trouble);
    return HandOver<M>(at, values, result, trouble);
  }
};

// The loops over blocks, once for any processor and once for those with vectors of four doubles.
// Either way every element is computed alone and in the same order, so the bits are the same.
// Not on Windows, where GCC does not keep the stack aligned for them.
#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
#define ZENTAB_MATHPARSER_WIDE __attribute__((target("avx2"), flatten))
inline bool HasWideVectors() {
  static const bool kHas = __builtin_cpu_supports("avx2") != 0;
  return kHas;
}
#else
#define ZENTAB_MATHPARSER_WIDE
inline bool HasWideVectors() { return false; }
#endif

template <class Op>
struct Blocks {
  static void BlockBlock(const double* __restrict a, const double* __restrict b,
                         double* __restrict result, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) result[i] = DoAtOnce<Op>(a[i], b[i]);
  }
  static void BlockScalar(const double* __restrict a, const double* __restrict b,
                          double* __restrict result, std::size_t n) {
    const double right = *b;
    for (std::size_t i = 0; i < n; ++i) result[i] = DoAtOnce<Op>(a[i], right);
  }
  static void ScalarBlock(const double* __restrict a, const double* __restrict b,
                          double* __restrict result, std::size_t n) {
    const double left = *a;
    for (std::size_t i = 0; i < n; ++i) result[i] = DoAtOnce<Op>(left, b[i]);
  }
};

template <class Op>
struct WideBlocks {
  ZENTAB_MATHPARSER_WIDE static void BlockBlock(const double* __restrict a,
                                                const double* __restrict b,
                                                double* __restrict result, std::size_t n) {
    Blocks<Op>::BlockBlock(a, b, result, n);
  }
  ZENTAB_MATHPARSER_WIDE static void BlockScalar(const double* __restrict a,
                                                 const double* __restrict b,
                                                 double* __restrict result, std::size_t n) {
    Blocks<Op>::BlockScalar(a, b, result, n);
  }
  ZENTAB_MATHPARSER_WIDE static void ScalarBlock(const double* __restrict a,
                                                 const double* __restrict b,
                                                 double* __restrict result, std::size_t n) {
    Blocks<Op>::ScalarBlock(a, b, result, n);
  }
};

template <class Op>
inline constexpr Forms kUnaryForms{
    .leaf = {UnaryCode<Op>::template OfLeaf<Mode::Plain>,
             UnaryCode<Op>::template OfLeaf<Mode::Spilling>,
             UnaryCode<Op>::template OfLeaf<Mode::Last>},
    .accumulator = {UnaryCode<Op>::template OfAccumulator<Mode::Plain>, nullptr,
                    UnaryCode<Op>::template OfAccumulator<Mode::Last>},
    .block = UnaryCode<Op>::OfBlock};

// Only plain arithmetic gains by wide vectors; the functions are calls for each element.
template <class Op, int Fusion>
inline constexpr std::array<BlockSet, 2> kBlockSet{
    BlockSet{Blocks<Op>::BlockBlock, Blocks<Op>::BlockScalar, Blocks<Op>::ScalarBlock},
    BlockSet{Blocks<Op>::BlockBlock, Blocks<Op>::BlockScalar, Blocks<Op>::ScalarBlock}};
template <class Op, int Fusion>
requires(Fusion >= 0) inline constexpr std::array<BlockSet, 2> kBlockSet<Op, Fusion>{
    BlockSet{Blocks<Op>::BlockBlock, Blocks<Op>::BlockScalar, Blocks<Op>::ScalarBlock},
    BlockSet{WideBlocks<Op>::BlockBlock, WideBlocks<Op>::BlockScalar, WideBlocks<Op>::ScalarBlock}};

template <class Op, int Fusion = -1>
inline constexpr Forms kBinaryForms{
    .leafLeaf = {BinaryCode<Op>::template OfLeafLeaf<Mode::Plain>,
                 BinaryCode<Op>::template OfLeafLeaf<Mode::Spilling>,
                 BinaryCode<Op>::template OfLeafLeaf<Mode::Last>},
    .accumulatorLeaf = {BinaryCode<Op>::template OfAccumulatorLeaf<Mode::Plain>, nullptr,
                        BinaryCode<Op>::template OfAccumulatorLeaf<Mode::Last>},
    .leafAccumulator = {BinaryCode<Op>::template OfLeafAccumulator<Mode::Plain>, nullptr,
                        BinaryCode<Op>::template OfLeafAccumulator<Mode::Last>},
    .blocks = kBlockSet<Op, Fusion>,
    .fusion = Fusion};

/// The catalogue entry of F(a, angle factor).
template <auto F>
constexpr FunctionEntry One(std::string_view keyword, int code) {
  return {keyword, code, 1, UnaryCode<UnaryOf<F, true>>::Call, &kUnaryForms<UnaryOf<F, true>>};
}

/// As One, for a function that gives no finite number when it gets none.
template <auto F>
constexpr FunctionEntry OnePropagating(std::string_view keyword, int code) {
  return {keyword, code, 1, UnaryCode<UnaryOf<F, false>>::Call, &kUnaryForms<UnaryOf<F, false>>};
}

/// The catalogue entry of F(a, b).
template <auto F>
constexpr FunctionEntry Two(std::string_view keyword, int code) {
  return {keyword, code, 2, BinaryCode<BinaryOf<F>>::Call, &kBinaryForms<BinaryOf<F>>};
}

/// The catalogue entry of an operation that can be fused with others.
template <class Op, int Fusion>
constexpr FunctionEntry Fusible(std::string_view keyword, int code) {
  return {keyword, code, 2, BinaryCode<Op>::Call, &kBinaryForms<Op, Fusion>};
}

}  // namespace zentab::mathparser
