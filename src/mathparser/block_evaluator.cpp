#include "mathparser/block_evaluator.h"

#include <cmath>

#include "mathparser/function_catalogue.h"
#include "mathparser/operations.h"

namespace zentab::mathparser {
namespace {

// Several sums side by side, which do not wait for each other.
bool AllFinite(const double* values, std::size_t n) {
  std::array<double, 8> trouble{};
  std::size_t i = 0;
  for (; i + trouble.size() <= n; i += trouble.size()) {
    for (std::size_t lane = 0; lane < trouble.size(); ++lane) {
      trouble[lane] += Trouble(values[i + lane]);
    }
  }
  double sum = 0.0;
  for (; i < n; ++i) sum += Trouble(values[i]);
  for (const double lane : trouble) sum += lane;
  return sum == 0.0;
}

}  // namespace

BlockEvaluator::BlockEvaluator(const ExpressionTable& table, const double* values, int variable)
    : table_(table), values_(values) {
  canRun_ = !table.hasGuards && !table.byRowsOnly && Plan(variable);
  if (canRun_) buffers_.resize(kBlock * bufferCount_);
}

bool BlockEvaluator::Plan(int variable) {
  rowResults_.resize(table_.rows.size() + 1);
  operations_.reserve(table_.rows.size());
  Reference root;
  for (const std::int16_t number : table_.postfix) {
    const Row& row = table_.At(number);
    Operation operation{row.function, {}, 0, row.sign < 0};
    bool depends = false;
    for (std::size_t slot = 0; slot < static_cast<std::size_t>(row.arguments); ++slot) {
      operation.arguments[slot] = OperandOf(row, slot, variable);
      depends = depends || operation.arguments[slot].IsBlock();
    }
    if (row.function == &operators::kRight) {
      root = operation.arguments[1];
    } else if (depends) {
      // The result's buffer is never one that the operation reads.
      operation.result = TakeBuffer();
      root = {Reference::Kind::Buffer, operation.result};
      operations_.push_back(operation);
      for (std::size_t slot = 0; slot < static_cast<std::size_t>(row.arguments); ++slot) {
        const int source = row.source[slot];
        const bool usedAgain = source != 0 && table_.At(source).alsoFeeds != 0;
        const Reference& argument = operation.arguments[slot];
        if (argument.kind == Reference::Kind::Buffer && !usedAgain) {
          freeBuffers_.push_back(argument.index);
        }
      }
    } else if (!PlanScalar(operation, root)) {
      return false;
    }
    rowResults_[static_cast<std::size_t>(number)] = root;
  }
  return root.kind == Reference::Kind::Buffer;
}

// Computes at once what is the same for every value.
bool BlockEvaluator::PlanScalar(const Operation& operation, Reference& result) {
  std::array<double, kMaxArguments> arguments{};
  for (std::size_t i = 0; i < static_cast<std::size_t>(operation.function->arguments); ++i) {
    arguments[i] = *Data(operation.arguments[i]);
    if (!std::isfinite(arguments[i])) return false;
  }
  CallContext context{.angleFactor = values_[kAngleFactorPlace]};
  const double value = operation.function->kernel(arguments.data(), context);
  if (!std::isfinite(value)) return false;
  result = NewScalar(operation.negate ? -value : value);
  return true;
}

BlockEvaluator::Reference BlockEvaluator::OperandOf(const Row& row, std::size_t slot,
                                                    int variable) {
  if (row.source[slot] != 0) return rowResults_[static_cast<std::size_t>(row.source[slot])];
  const Operand& operand = row.operand[slot];
  if (operand.variable == 0) return NewScalar(operand.value);
  if (operand.variable != variable) return NewScalar(operand.sign * values_[operand.variable]);
  const Reference input{Reference::Kind::Input, 0};
  if (operand.sign > 0) return input;
  Operation negation{&operators::kNegate, {input}, TakeBuffer(), false};
  operations_.push_back(negation);
  return {Reference::Kind::Buffer, negation.result};
}

std::uint16_t BlockEvaluator::TakeBuffer() {
  if (freeBuffers_.empty()) return bufferCount_++;
  const std::uint16_t buffer = freeBuffers_.back();
  freeBuffers_.pop_back();
  return buffer;
}

BlockEvaluator::Reference BlockEvaluator::NewScalar(double value) {
  scalars_.push_back(value);
  return {Reference::Kind::Scalar, static_cast<std::uint16_t>(scalars_.size() - 1)};
}

const double* BlockEvaluator::Data(Reference reference) const {
  switch (reference.kind) {
    case Reference::Kind::Scalar:
      return &scalars_[reference.index];
    case Reference::Kind::Buffer:
      return &buffers_[reference.index * kBlock];
    case Reference::Kind::Input:
      break;
  }
  return input_;
}

void BlockEvaluator::CallForEach(const Operation& operation, double* result, std::size_t n) const {
  const auto count = static_cast<std::size_t>(operation.function->arguments);
  std::array<const double*, kMaxArguments> data{};
  for (std::size_t slot = 0; slot < count; ++slot) data[slot] = Data(operation.arguments[slot]);
  for (std::size_t i = 0; i < n; ++i) {
    std::array<double, kMaxArguments> arguments{};
    double trouble = 0.0;
    for (std::size_t slot = 0; slot < count; ++slot) {
      arguments[slot] = data[slot][operation.arguments[slot].IsBlock() ? i : 0];
      trouble += Trouble(arguments[slot]);
    }
    CallContext context{.angleFactor = values_[kAngleFactorPlace]};
    result[i] = trouble == 0.0 ? operation.function->kernel(arguments.data(), context) : trouble;
  }
}

void BlockEvaluator::Do(const Operation& operation, double* result, std::size_t n) const {
  const Forms* forms = operation.function->forms;
  const Reference& left = operation.arguments[0];
  const Reference& right = operation.arguments[1];
  if (forms == nullptr) {
    CallForEach(operation, result, n);
  } else if (operation.function->arguments == 1) {
    forms->block(Data(left), result, values_[kAngleFactorPlace], n);
  } else {
    const BlockSet& blocks = forms->blocks[HasWideVectors() ? 1 : 0];
    const BinaryBlock block = !left.IsBlock()   ? blocks.scalarBlock
                              : right.IsBlock() ? blocks.blockBlock
                                                : blocks.blockScalar;
    block(Data(left), Data(right), result, n);
  }
  if (operation.negate) {
    for (std::size_t i = 0; i < n; ++i) result[i] = -result[i];
  }
}

bool BlockEvaluator::Run(const double* in, double* out, std::size_t n) {
  input_ = in;
  const Operation& last = operations_.back();
  for (const Operation& operation : operations_) {
    double* result = &operation == &last ? out : &buffers_[operation.result * kBlock];
    Do(operation, result, n);
  }
  return AllFinite(out, n);
}

}  // namespace zentab::mathparser
