#pragma once

#include <cmath>

#include "mathparser/instruction.h"

namespace zentab::mathparser {

// A row fails when what goes into it or comes out of it is no finite number. Instead of asking
// after every step, the operations let such a value run through to the end: where arithmetic would
// swallow it (1/infinity is 0, NaN<1 is false) the result is poisoned. x-x is +0 for every finite
// x and NaN for the others, and subtracting +0 changes no bit of a finite result.
inline double Poison(double a) { return a - a; }
inline double Poison(double a, double b) { return (a - a) + (b - b); }

struct Add {
  static double Of(double a, double b) { return a + b; }
};
struct Subtract {
  static double Of(double a, double b) { return a - b; }
};
struct Multiply {
  static double Of(double a, double b) { return a * b; }
};
struct Divide {
  static double Of(double a, double b) { return a / b - Poison(b); }
};
struct Less {
  static double Of(double a, double b) { return (a < b ? 1.0 : 0.0) - Poison(a, b); }
};
struct LessOrEqual {
  static double Of(double a, double b) { return (a <= b ? 1.0 : 0.0) - Poison(a, b); }
};
struct Greater {
  static double Of(double a, double b) { return (a > b ? 1.0 : 0.0) - Poison(a, b); }
};
struct GreaterOrEqual {
  static double Of(double a, double b) { return (a >= b ? 1.0 : 0.0) - Poison(a, b); }
};
struct Equal {
  static double Of(double a, double b) { return (a == b ? 1.0 : 0.0) - Poison(a, b); }
};
struct NotEqual {
  static double Of(double a, double b) { return (a != b ? 1.0 : 0.0) - Poison(a, b); }
};
struct Minimum {
  static double Of(double a, double b) { return (a < b ? a : b) - Poison(a, b); }
};
struct Maximum {
  static double Of(double a, double b) { return (a > b ? a : b) - Poison(a, b); }
};

/// A function of one argument and the angle factor as an operation.
template <auto F>
struct UnaryOf {
  static double Of(double a, double angleFactor) { return F(a, angleFactor) - Poison(a); }
};

/// A function of two arguments as an operation.
template <auto F>
struct BinaryOf {
  static double Of(double a, double b) { return F(a, b) - Poison(a, b); }
};

template <class Op>
struct UnaryCode {
  static double Call(const double* a, CallContext& context) {
    return Op::Of(a[0], context.angleFactor);
  }
  static double OfLeaf(const Instruction* at, double* values, double accumulator) {
    values[at->spill] = accumulator;
    return Next(at, values, Op::Of(values[at->operand[0]], values[kAngleFactorPlace]));
  }
  static double OfAccumulator(const Instruction* at, double* values, double accumulator) {
    return Next(at, values, Op::Of(accumulator, values[kAngleFactorPlace]));
  }
  static void OfBlock(const double* __restrict a, double* __restrict result, double angleFactor,
                      std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) result[i] = Op::Of(a[i], angleFactor);
  }
};

template <class Op>
struct BinaryCode {
  static double Call(const double* a, CallContext&) { return Op::Of(a[0], a[1]); }
  static double OfLeafLeaf(const Instruction* at, double* values, double accumulator) {
    values[at->spill] = accumulator;
    return Next(at, values, Op::Of(values[at->operand[0]], values[at->operand[1]]));
  }
  static double OfAccumulatorLeaf(const Instruction* at, double* values, double accumulator) {
    return Next(at, values, Op::Of(accumulator, values[at->operand[0]]));
  }
  static double OfLeafAccumulator(const Instruction* at, double* values, double accumulator) {
    return Next(at, values, Op::Of(values[at->operand[0]], accumulator));
  }
  static void OfBlockBlock(const double* __restrict a, const double* __restrict b,
                           double* __restrict result, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) result[i] = Op::Of(a[i], b[i]);
  }
  static void OfBlockScalar(const double* __restrict a, const double* __restrict b,
                            double* __restrict result, std::size_t n) {
    const double right = *b;
    for (std::size_t i = 0; i < n; ++i) result[i] = Op::Of(a[i], right);
  }
  static void OfScalarBlock(const double* __restrict a, const double* __restrict b,
                            double* __restrict result, std::size_t n) {
    const double left = *a;
    for (std::size_t i = 0; i < n; ++i) result[i] = Op::Of(left, b[i]);
  }
};

template <class Op>
inline constexpr Forms kUnaryForms{.leaf = UnaryCode<Op>::OfLeaf,
                                   .accumulator = UnaryCode<Op>::OfAccumulator,
                                   .block = UnaryCode<Op>::OfBlock};

template <class Op, int Fusion = -1>
inline constexpr Forms kBinaryForms{.leafLeaf = BinaryCode<Op>::OfLeafLeaf,
                                    .accumulatorLeaf = BinaryCode<Op>::OfAccumulatorLeaf,
                                    .leafAccumulator = BinaryCode<Op>::OfLeafAccumulator,
                                    .blockBlock = BinaryCode<Op>::OfBlockBlock,
                                    .blockScalar = BinaryCode<Op>::OfBlockScalar,
                                    .scalarBlock = BinaryCode<Op>::OfScalarBlock,
                                    .fusion = Fusion};

/// The catalogue entry of F(a, angle factor).
template <auto F>
constexpr FunctionEntry One(std::string_view keyword, int code) {
  return {keyword, code, 1, UnaryCode<UnaryOf<F>>::Call, &kUnaryForms<UnaryOf<F>>};
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
