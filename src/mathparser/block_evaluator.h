#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "mathparser/expression_table.h"
#include "mathparser/instruction.h"

namespace zentab::mathparser {

/// Evaluates an expression for many values of one variable, operation by operation over blocks of
/// values. What does not depend on the variable is computed once. The results are bit by bit those
/// of one evaluation per value.
class BlockEvaluator {
 public:
  static constexpr std::size_t kBlock = 256;

  /// `values` as a program takes them: the angle factor and the variables. They and the table must
  /// outlive the object and stay as they are.
  BlockEvaluator(const ExpressionTable& table, const double* values, int variable);

  /// False when the expression has to be evaluated value by value: guards, random numbers, a
  /// result that does not depend on the variable or a failure in what does not.
  [[nodiscard]] bool CanRun() const { return canRun_; }

  /// Evaluates for `n` values, at most kBlock. False when any of them fails: the results are
  /// worthless then.
  [[nodiscard]] bool Run(const double* in, double* out, std::size_t n);

 private:
  // Where an operand lies: a scalar that stays, a buffer of a block, the values given.
  struct Reference {
    enum class Kind : std::uint8_t { Scalar, Buffer, Input } kind = Kind::Scalar;
    std::uint16_t index = 0;
    [[nodiscard]] bool IsBlock() const { return kind != Kind::Scalar; }
  };
  struct Operation {
    const FunctionEntry* function = nullptr;
    std::array<Reference, kMaxArguments> arguments{};
    std::uint16_t result = 0;  // buffer
    bool negate = false;
  };

  bool Plan(int variable);
  bool PlanScalar(const Operation& operation, Reference& result);
  [[nodiscard]] Reference OperandOf(const Row& row, std::size_t slot, int variable);
  std::uint16_t TakeBuffer();
  Reference NewScalar(double value);
  void Do(const Operation& operation, double* result, std::size_t n) const;
  void CallForEach(const Operation& operation, double* result, std::size_t n) const;
  [[nodiscard]] const double* Data(Reference reference) const;

  const ExpressionTable& table_;
  const double* values_;
  bool canRun_ = false;
  std::vector<double> scalars_;
  std::vector<Reference> rowResults_;
  std::vector<Operation> operations_;
  std::vector<std::uint16_t> freeBuffers_;
  std::uint16_t bufferCount_ = 0;
  std::vector<double> buffers_;
  const double* input_ = nullptr;
};

}  // namespace zentab::mathparser
