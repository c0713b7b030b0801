#include "mathparser/math_parser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "mathparser/angle.h"
#include "mathparser/block_evaluator.h"
#include "mathparser/compiler.h"

namespace zentab::mathparser {
namespace {

constexpr int kEvalError = 1001;
constexpr int kEval1Error = 1002;

struct Unit {
  std::string_view name;
  double factor;  // radians
};
constexpr std::array kAngleUnits = {Unit{"RAD", 1.0}, Unit{"DEG", kPi / 180.0},
                                    Unit{"GRAD", kPi / 200.0}};

bool SameWithoutCase(std::string_view text, std::string_view upper) {
  const auto upperCase = [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  };
  return text.size() == upper.size() &&
         std::equal(text.begin(), text.end(), upper.begin(),
                    [&](char a, char b) { return upperCase(a) == b; });
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

bool MathParser::StoreExpression(std::string_view text) {
  expression_ = TrimBlanks(text);
  assignments_ = 0;
  uncounted_ = 0;
  rowsAreShown_ = true;
  Compiler compiler(*catalogue_, table_);
  isCompiled_ = compiler.Compile(expression_);
  error_ = compiler.Error();
  // The compiler does not see the blanks in front.
  const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
  errorPosition_ = isCompiled_ ? 0 : compiler.ErrorPosition() + static_cast<int>(blanks);
  varTop_ = static_cast<int>(table_.variables.size());
  Lowering(table_, program_).Lower();
  program_.values[kAngleFactorPlace] = kAngleUnits[static_cast<std::size_t>(angleUnit_)].factor;
  rows_.Clear();
  SetReady();
  return isCompiled_;
}

double MathParser::NotReady(const Instruction*, double*, double, double) {
  return std::numeric_limits<double>::quiet_NaN();
}

void MathParser::SetReady() {
  const bool isReady =
      isCompiled_ && !program_.code.empty() && (!explicit_ || varTop_ == 0) && !rowsAreShown_;
  entry_ = isReady ? program_.code.front().handler : NotReady;
}

std::string_view MathParser::VarName(int variable) const {
  if (!IsVariable(variable)) return {};
  return table_.Name(table_.variables[static_cast<std::size_t>(variable) - 1].name);
}

void MathParser::SetCounted(int variable, double value) {
  if (!IsVariable(variable)) return;
  program_.values[static_cast<std::size_t>(variable)] = value;
  CountAssignment(variable);
}

// Only whether there were as many assignments as variables ever counts, and which variables had
// none: with more assignments than variables and none left out, all has been said.
void MathParser::CountAssignment(int variable) {
  table_.variables[static_cast<std::size_t>(variable) - 1].assigned = true;
  if (assignments_ <= varTop_) ++assignments_;
  const bool isSettled = assignments_ > varTop_ &&
                         std::all_of(table_.variables.begin(), table_.variables.end(),
                                     [](const VariableName& other) { return other.assigned; });
  uncounted_ = isSettled ? static_cast<unsigned>(varTop_) : 0U;
}

void MathParser::Variable(int variable, double value) {
  if (!IsVariable(variable)) return;
  program_.values[static_cast<std::size_t>(variable)] = value;
  const bool assigned = table_.variables[static_cast<std::size_t>(variable) - 1].assigned;
  if (explicit_ && !assigned) CountAssignment(variable);
}

std::string_view MathParser::AngleUnit() const {
  return kAngleUnits[static_cast<std::size_t>(angleUnit_)].name;
}

void MathParser::AngleUnit(std::string_view unit) {
  for (std::size_t i = 0; i < kAngleUnits.size(); ++i) {
    if (static_cast<int>(i) == angleUnit_ || !SameWithoutCase(unit, kAngleUnits[i].name)) continue;
    ShowRows();  // with the factor they had
    angleUnit_ = static_cast<int>(i);
    program_.values[kAngleFactorPlace] = kAngleUnits[i].factor;
  }
}

void MathParser::OpAssignExplicit(bool isExplicit) {
  explicit_ = isExplicit;
  SetReady();
}

// As many assignments as variables are taken for all of them, even if one was assigned twice.
bool MathParser::AreAssigned() {
  if (assignments_ == varTop_) return true;
  for (const VariableName& variable : table_.variables) {
    if (variable.assigned) continue;
    error_ = "Variable < " + std::string(table_.Name(variable.name)) + " > not assigned";
    return false;
  }
  return true;
}

double MathParser::EvalChecked() {
  if (!isCompiled_) throw EvaluationError(kEvalError, error_);
  if (varTop_ > 0 && explicit_ && !AreAssigned()) throw EvaluationError(kEvalError, error_);
  if (!program_.code.empty()) {
    const double value = program_.Run();
    if (std::isfinite(value)) {
      ShowProgram();
      return value;
    }
  }
  return EvalAgain(kEvalError);
}

std::optional<double> MathParser::TryEvalChecked() {
  if (!isCompiled_ || (varTop_ > 0 && explicit_ && !AreAssigned())) return std::nullopt;
  if (!program_.code.empty()) {
    const double value = program_.Run();
    if (std::isfinite(value)) {
      ShowProgram();
      return value;
    }
  }
  rowsAreShown_ = true;
  SetReady();
  const bool hasValue =
      rows_.Evaluate(table_, program_.values.data(), random_, decimalSeparator_, false);
  return hasValue ? std::optional(rows_.Result()) : std::nullopt;
}

// Row by row, for the sake of the message that the program could not give.
double MathParser::EvalAgain(int errorNumber) {
  ShowRows();  // what the failure does not reach stays as the evaluation before has left it
  if (EvalRows(program_.values.data())) return rows_.Result();
  error_ = rows_.Error();
  throw EvaluationError(errorNumber, error_);
}

bool MathParser::EvalRows(const double* values) {
  return rows_.Evaluate(table_, values, random_, decimalSeparator_);
}

void MathParser::KeepAllVariables() {
  std::copy_n(program_.values.begin(), varTop_ + 1, evaluated_.begin());
}

void MathParser::ShowProgram() {
  KeepAllVariables();
  rowsAreShown_ = false;
  SetReady();
}

void MathParser::ShowRows() {
  if (rowsAreShown_) return;
  (void)EvalRows(evaluated_.data());  // which cannot fail, as it did not then
  rowsAreShown_ = true;
  SetReady();
}

double MathParser::Eval1(double x) {
  if (isCompiled_ && varTop_ > 1) error_ = "too many variables";
  if (!isCompiled_ || varTop_ > 1) throw EvaluationError(kEval1Error, error_);
  const double kept = std::exchange(program_.values[1], x);
  double value = program_.code.empty() ? std::nan("") : program_.Run();
  bool good = std::isfinite(value);
  if (good) {
    ShowProgram();
  } else {
    ShowRows();
    good = EvalRows(program_.values.data());
    value = rows_.Result();
  }
  program_.values[1] = kept;
  if (good) return value;
  error_ = rows_.Error();
  throw EvaluationError(kEval1Error, error_);
}

void MathParser::RequireMulti(int variable) {
  if (isCompiled_ && varTop_ == 0) {
    error_ = "No variables";
  } else if (isCompiled_ && !IsVariable(variable)) {
    error_ = "Variable not found";
  } else if (isCompiled_) {
    return;
  }
  throw EvaluationError(kEvalError, error_);
}

std::vector<double> MathParser::EvalMulti(std::span<const double> values, int variable) {
  RequireMulti(variable);
  std::vector<double> results;
  results.reserve(values.size());
  // Grown block by block: the zeros that this writes first stay in the cache.
  EvalBlocks(values, variable, [&](std::size_t at, std::size_t n) {
    results.resize(at + n);
    return results.data() + at;
  });
  return results;
}

std::vector<double> MathParser::EvalMulti(std::span<const double> values,
                                          std::string_view variable) {
  return EvalMulti(values, table_.FindVariable(variable));
}

void MathParser::EvalMulti(std::span<const double> values, std::span<double> results,
                           int variable) {
  RequireMulti(variable);
  EvalBlocks(values, variable, [&](std::size_t at, std::size_t) { return results.data() + at; });
}

template <class Results>
void MathParser::EvalBlocks(std::span<const double> values, int variable, Results resultsOf) {
  BlockEvaluator blocks(table_, program_.values.data(), variable);
  for (std::size_t at = 0; at < values.size(); at += BlockEvaluator::kBlock) {
    const auto block = values.subspan(at, std::min(BlockEvaluator::kBlock, values.size() - at));
    double* results = resultsOf(at, block.size());
    if (blocks.CanRun() && blocks.Run(block.data(), results, block.size())) {
      program_.values[static_cast<std::size_t>(variable)] = block.back();
      ShowProgram();
    } else {
      EvalEach(block, results, variable);
    }
  }
}

void MathParser::EvalEach(std::span<const double> values, double* results, int variable) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    program_.values[static_cast<std::size_t>(variable)] = values[i];
    results[i] = program_.code.empty() ? std::nan("") : program_.Run();
    if (!std::isfinite(results[i])) {
      results[i] = EvalAgain(kEvalError);
    } else if (i == 0 || rowsAreShown_) {
      ShowProgram();
    } else {
      evaluated_[static_cast<std::size_t>(variable)] = values[i];
    }
  }
}

}  // namespace zentab::mathparser
