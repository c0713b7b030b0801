#include "mathparser/math_parser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "mathparser/angle.h"
#include "mathparser/block_evaluator.h"
#include "mathparser/compiled.h"
#include "mathparser/compiler.h"
#include "mathparser/program.h"

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

MathParser::MathParser() : MathParser(StandardCatalogue()) {}

MathParser::MathParser(const FunctionCatalogue& catalogue)
    : compiled_(std::make_unique<Compiled>(catalogue)) {
  static_assert(kPlaces == mathparser::kPlaces && kEvaluated == kMaxVariables + 1);
}

MathParser::MathParser(const MathParser& other)
    : compiled_(std::make_unique<Compiled>(*other.compiled_)),
      entry_(other.entry_),
      code_(compiled_->code.data()),
      uncounted_(other.uncounted_),
      varTop_(other.varTop_),
      evaluated_(other.evaluated_),
      values_(other.values_) {}

MathParser& MathParser::operator=(const MathParser& other) {
  if (this == &other) return *this;
  compiled_ = std::make_unique<Compiled>(*other.compiled_);
  entry_ = other.entry_;
  code_ = compiled_->code.data();
  uncounted_ = other.uncounted_;
  varTop_ = other.varTop_;
  evaluated_ = other.evaluated_;
  values_ = other.values_;
  return *this;
}

MathParser::~MathParser() = default;

bool MathParser::StoreExpression(std::string_view text) {
  Compiled& made = *compiled_;
  made.expression = TrimBlanks(text);
  made.leadingBlanks = static_cast<int>(std::min(text.find_first_not_of(' '), text.size()));
  made.assignments = 0;
  uncounted_ = 0;
  made.rowsAreShown = true;
  Compiler compiler(*made.catalogue, made.table);
  made.isCompiled = compiler.Compile(made.expression);
  // The compiler does not see the blanks in front.
  Note(made.isCompiled ? 0 : kEvalError,
       made.isCompiled ? 0 : compiler.ErrorPosition() + made.leadingBlanks, compiler.Error());
  varTop_ = static_cast<int>(made.table.variables.size());
  Lowering(made.table, made.code, values_).Lower();
  code_ = made.code.data();
  values_[kAngleFactorPlace] = kAngleUnits[static_cast<std::size_t>(made.angleUnit)].factor;
  made.rows.Clear();
  SetReady();
  return made.isCompiled;
}

const std::string& MathParser::Expression() const { return compiled_->expression; }
bool MathParser::OpAssignExplicit() const { return compiled_->isExplicit; }
int MathParser::ErrorNumber() const { return compiled_->errorNumber; }
int MathParser::ErrorPosition() const { return compiled_->errorPosition; }
const std::string& MathParser::ErrorDescription() const { return compiled_->error; }
const std::string& MathParser::DecimalSeparator() const { return compiled_->decimalSeparator; }

void MathParser::DecimalSeparator(std::string_view separator) {
  compiled_->decimalSeparator = separator;
}

void MathParser::Note(int number, int position, std::string description) {
  compiled_->errorNumber = number;
  compiled_->errorPosition = position;
  compiled_->error = std::move(description);
}

void MathParser::NoteRow(int number) {
  Note(number, compiled_->rows.ErrorPosition() + compiled_->leadingBlanks, compiled_->rows.Error());
}

// The number says who asked, also for a text that did not compile.
void MathParser::Throw(int number) {
  compiled_->errorNumber = number;
  throw EvaluationError(number, compiled_->errorPosition, compiled_->error);
}

int MathParser::FindVariable(std::string_view name) const {
  return compiled_->table.FindVariable(name);
}

double MathParser::VarSymb(std::string_view name) const { return FindVariable(name); }
void MathParser::VarSymb(std::string_view name, double value) {
  VarValue(FindVariable(name), value);
}
double MathParser::Variable(std::string_view name) const { return VarValue(FindVariable(name)); }
void MathParser::Variable(std::string_view name, double value) {
  Variable(FindVariable(name), value);
}

double MathParser::NotReady(const Instruction*, double*, double, double) {
  return std::numeric_limits<double>::quiet_NaN();
}

void MathParser::SetReady() {
  const bool isReady = compiled_->isCompiled && !compiled_->code.empty() &&
                       (!compiled_->isExplicit || varTop_ == 0) && !compiled_->rowsAreShown;
  entry_ = isReady ? compiled_->code.front().handler : NotReady;
}

std::string_view MathParser::VarName(int variable) const {
  if (!IsVariable(variable)) return {};
  return compiled_->table.Name(
      compiled_->table.variables[static_cast<std::size_t>(variable) - 1].name);
}

void MathParser::SetCounted(int variable, double value) {
  if (!IsVariable(variable)) return;
  values_[static_cast<std::size_t>(variable)] = value;
  CountAssignment(variable);
}

// Only whether there were as many assignments as variables ever counts, and which variables had
// none: with more assignments than variables and none left out, all has been said.
void MathParser::CountAssignment(int variable) {
  compiled_->table.variables[static_cast<std::size_t>(variable) - 1].assigned = true;
  if (compiled_->assignments <= varTop_) ++compiled_->assignments;
  const bool isSettled =
      compiled_->assignments > varTop_ &&
      std::all_of(compiled_->table.variables.begin(), compiled_->table.variables.end(),
                  [](const VariableName& other) { return other.assigned; });
  uncounted_ = isSettled ? static_cast<unsigned>(varTop_) : 0U;
}

void MathParser::Variable(int variable, double value) {
  if (!IsVariable(variable)) return;
  values_[static_cast<std::size_t>(variable)] = value;
  const bool assigned = compiled_->table.variables[static_cast<std::size_t>(variable) - 1].assigned;
  if (compiled_->isExplicit && !assigned) CountAssignment(variable);
}

std::string_view MathParser::AngleUnit() const {
  return kAngleUnits[static_cast<std::size_t>(compiled_->angleUnit)].name;
}

void MathParser::AngleUnit(std::string_view unit) {
  for (std::size_t i = 0; i < kAngleUnits.size(); ++i) {
    if (static_cast<int>(i) == compiled_->angleUnit || !SameWithoutCase(unit, kAngleUnits[i].name))
      continue;
    ShowRows();  // with the factor they had
    compiled_->angleUnit = static_cast<int>(i);
    values_[kAngleFactorPlace] = kAngleUnits[i].factor;
  }
}

void MathParser::OpAssignExplicit(bool isExplicit) {
  compiled_->isExplicit = isExplicit;
  SetReady();
}

// As many assignments as variables are taken for all of them, even if one was assigned twice.
bool MathParser::AreAssigned() {
  if (compiled_->assignments == varTop_) return true;
  for (const VariableName& variable : compiled_->table.variables) {
    if (variable.assigned) continue;
    const std::string name(compiled_->table.Name(variable.name));
    Note(kEvalError, 0, "Variable < " + name + " > not assigned");
    return false;
  }
  return true;
}

double MathParser::RunProgram() { return code_->handler(code_, values_.data(), 0.0, 0.0); }

double MathParser::EvalChecked() {
  if (!compiled_->isCompiled) Throw(kEvalError);
  if (varTop_ > 0 && compiled_->isExplicit && !AreAssigned()) Throw(kEvalError);
  if (!compiled_->code.empty()) {
    const double value = RunProgram();
    if (std::isfinite(value)) {
      ShowProgram();
      return value;
    }
  }
  return EvalAgain(kEvalError);
}

std::optional<double> MathParser::TryEvalChecked() {
  if (!compiled_->isCompiled || (varTop_ > 0 && compiled_->isExplicit && !AreAssigned()))
    return std::nullopt;
  if (!compiled_->code.empty()) {
    const double value = RunProgram();
    if (std::isfinite(value)) {
      ShowProgram();
      return value;
    }
  }
  compiled_->rowsAreShown = true;
  SetReady();
  const bool hasValue = compiled_->rows.Evaluate(
      compiled_->table, values_.data(), compiled_->random, compiled_->decimalSeparator, false);
  return hasValue ? std::optional(compiled_->rows.Result()) : std::nullopt;
}

// Row by row, for the sake of the message that the program could not give.
double MathParser::EvalAgain(int errorNumber) {
  ShowRows();  // what the failure does not reach stays as the evaluation before has left it
  if (EvalRows(values_.data())) return compiled_->rows.Result();
  NoteRow(errorNumber);
  Throw(errorNumber);
}

bool MathParser::EvalRows(const double* values) {
  return compiled_->rows.Evaluate(compiled_->table, values, compiled_->random,
                                  compiled_->decimalSeparator);
}

void MathParser::KeepAllVariables() {
  std::copy_n(values_.begin(), varTop_ + 1, evaluated_.begin());
}

void MathParser::ShowProgram() {
  KeepAllVariables();
  compiled_->rowsAreShown = false;
  SetReady();
}

void MathParser::ShowRows() {
  if (compiled_->rowsAreShown) return;
  (void)EvalRows(evaluated_.data());  // which cannot fail, as it did not then
  compiled_->rowsAreShown = true;
  SetReady();
}

double MathParser::Eval1(double x) {
  if (compiled_->isCompiled && varTop_ > 1) Note(kEval1Error, 0, "too many variables");
  if (!compiled_->isCompiled || varTop_ > 1) Throw(kEval1Error);
  const double kept = std::exchange(values_[1], x);
  double value = compiled_->code.empty() ? std::nan("") : RunProgram();
  bool good = std::isfinite(value);
  if (good) {
    ShowProgram();
  } else {
    ShowRows();
    good = EvalRows(values_.data());
    value = compiled_->rows.Result();
  }
  values_[1] = kept;
  if (good) return value;
  NoteRow(kEval1Error);
  Throw(kEval1Error);
}

void MathParser::RequireMulti(int variable) {
  if (compiled_->isCompiled && varTop_ == 0) {
    Note(kEvalError, 0, "No variables");
  } else if (compiled_->isCompiled && !IsVariable(variable)) {
    Note(kEvalError, 0, "Variable not found");
  } else if (compiled_->isCompiled) {
    return;
  }
  Throw(kEvalError);
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
  return EvalMulti(values, FindVariable(variable));
}

void MathParser::EvalMulti(std::span<const double> values, std::span<double> results,
                           int variable) {
  RequireMulti(variable);
  EvalBlocks(values, variable, [&](std::size_t at, std::size_t) { return results.data() + at; });
}

template <class Results>
void MathParser::EvalBlocks(std::span<const double> values, int variable, Results resultsOf) {
  BlockEvaluator blocks(compiled_->table, values_.data(), variable);
  for (std::size_t at = 0; at < values.size(); at += BlockEvaluator::kBlock) {
    const auto block = values.subspan(at, std::min(BlockEvaluator::kBlock, values.size() - at));
    double* results = resultsOf(at, block.size());
    if (blocks.CanRun() && blocks.Run(block.data(), results, block.size())) {
      values_[static_cast<std::size_t>(variable)] = block.back();
      ShowProgram();
    } else {
      EvalEach(block, results, variable);
    }
  }
}

void MathParser::EvalEach(std::span<const double> values, double* results, int variable) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    values_[static_cast<std::size_t>(variable)] = values[i];
    results[i] = compiled_->code.empty() ? std::nan("") : RunProgram();
    if (!std::isfinite(results[i])) {
      results[i] = EvalAgain(kEvalError);
    } else if (i == 0 || compiled_->rowsAreShown) {
      ShowProgram();
    } else {
      evaluated_[static_cast<std::size_t>(variable)] = values[i];
    }
  }
}

}  // namespace zentab::mathparser
