#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "mathparser/expression_table.h"
#include "mathparser/function_catalogue.h"
#include "mathparser/program.h"
#include "mathparser/table_evaluator.h"

namespace zentab::mathparser {

/// An evaluation that failed. what() is the parser's ErrorDescription at that time.
class EvaluationError : public std::runtime_error {
 public:
  EvaluationError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  [[nodiscard]] int Number() const { return number_; }  // 1001, or 1002 from Eval1
  [[nodiscard]] static std::string_view Source() { return "MathParser"; }
  [[nodiscard]] std::string Description() const { return what(); }

 private:
  int number_;
};

/// One expression, compiled once and evaluated as often as needed.
///
/// Texts are UTF-8. Variables are numbered from 1 in the order in which they first appear; a
/// number or name that is none is ignored when set and gives 0 when read. Objects are independent
/// of each other and can be copied; one object is for one thread at a time.
class MathParser {
 public:
  explicit MathParser(const FunctionCatalogue& catalogue = StandardCatalogue())
      : catalogue_(&catalogue) {}
  // No moves: they would leave an object that runs a program which is gone.
  MathParser(const MathParser&) = default;
  MathParser& operator=(const MathParser&) = default;
  ~MathParser() = default;

  /// Compiles a text, at most 2 GB. On false ErrorDescription() says why and nothing can be
  /// evaluated. Either way the variables are new ones, all 0 and unassigned.
  bool StoreExpression(std::string_view text);
  /// The stored text without the blanks at its ends.
  [[nodiscard]] const std::string& Expression() const { return expression_; }

  [[nodiscard]] int VarTop() const { return varTop_; }
  [[nodiscard]] std::string_view VarName(int variable) const;

  [[nodiscard]] double VarValue(int variable) const {
    return IsVariable(variable) ? program_.values[static_cast<std::size_t>(variable)] : 0.0;
  }
  /// Sets a variable; every call counts as an assignment.
  void VarValue(int variable, double value) {
    if (static_cast<unsigned>(variable) - 1U < uncounted_) [[likely]] {
      program_.values[static_cast<std::size_t>(variable)] = value;
    } else {
      SetCounted(variable, value);
    }
  }

  /// The number of the variable of that name, not its value; 0 for an unknown name.
  [[nodiscard]] double VarSymb(std::string_view name) const { return table_.FindVariable(name); }
  /// Sets the variable of that name; every call counts as an assignment.
  void VarSymb(std::string_view name, double value) { VarValue(table_.FindVariable(name), value); }

  [[nodiscard]] double Variable(int variable) const { return VarValue(variable); }
  [[nodiscard]] double Variable(std::string_view name) const {
    return VarValue(table_.FindVariable(name));
  }
  /// Sets a variable; counts as an assignment only while OpAssignExplicit() is on, and only the
  /// first time.
  void Variable(int variable, double value);
  void Variable(std::string_view name, double value) { Variable(table_.FindVariable(name), value); }

  /// "RAD", "DEG" or "GRAD", in which angles go into and come out of functions. Stays when
  /// another expression is stored.
  [[nodiscard]] std::string_view AngleUnit() const;
  /// Without regard to case; any other text changes nothing.
  void AngleUnit(std::string_view unit);

  /// Whether Eval insists that as many assignments as variables were made. Off at first; stays
  /// when another expression is stored.
  [[nodiscard]] bool OpAssignExplicit() const { return explicit_; }
  void OpAssignExplicit(bool isExplicit);

  /// The text of the last error, "" after a good compile.
  [[nodiscard]] const std::string& ErrorDescription() const { return error_; }
  /// Where the text that was compiled last is at fault: its character, from 1, blanks counted; one
  /// more than it has where something is missing at its end. 0 after a good compile.
  [[nodiscard]] int ErrorPosition() const { return errorPosition_; }

  /// The value for the variables as they are set. Throws EvaluationError 1001.
  double Eval() {
    const double value = entry_(program_.code.data(), program_.values.data(), 0.0, 0.0);
    if (IsNumber(value)) [[likely]] {
      KeepVariables<1, 1>();
      return value;
    }
    return EvalChecked();
  }

  /// The same value; nothing where Eval throws, which for lack of a message takes less time.
  std::optional<double> TryEval() {
    const double value = entry_(program_.code.data(), program_.values.data(), 0.0, 0.0);
    if (!IsNumber(value)) [[unlikely]] {
      return TryEvalChecked();
    }
    KeepVariables<1, 1>();
    return value;
  }

  /// The value for x in place of the only variable, which itself stays as it is. Throws
  /// EvaluationError 1002, also when there is more than one variable.
  double Eval1(double x);

  /// The values for each of `values` in turn as one variable, by its number or name; element 0
  /// belongs to the first. The other variables stay as they are, the one keeps the last value, or
  /// the one that failed. No assignment is counted or asked for. Throws EvaluationError 1001, also
  /// for an expression without that variable.
  std::vector<double> EvalMulti(std::span<const double> values, int variable = 1);
  std::vector<double> EvalMulti(std::span<const double> values, std::string_view variable);
  /// As above, into `results`, which has at least as many elements and may not overlap `values`.
  void EvalMulti(std::span<const double> values, std::span<double> results, int variable = 1);

  /// A title row and one row of texts per operation, in the order of the expression. Values are
  /// those of the last evaluation, whatever has been set since then.
  std::vector<std::vector<std::string>> ET_Dump();

  /// The decimal separator of numbers in messages and in ET_Dump; "." at first.
  [[nodiscard]] const std::string& DecimalSeparator() const { return decimalSeparator_; }
  void DecimalSeparator(std::string_view separator) { decimalSeparator_ = separator; }

 private:
  // False for NaN and infinities; in integers, so that there are no constants to load.
  static bool IsNumber(double value) {
    return std::bit_cast<std::uint64_t>(value) << 1U < 0xFFE0000000000000U;
  }
  [[nodiscard]] bool IsVariable(int variable) const { return variable > 0 && variable <= varTop_; }
  // Takes down what an evaluation was made with: variables may be set anew before anyone asks. One
  // by one, hence volatile: what was set just now cannot be read two by two before it is stored.
  template <int First, int Count>
  void KeepVariables() {
    if (varTop_ < First) return;
    if constexpr (Count > 3) {
      KeepAllVariables();
    } else {
      volatile double* evaluated = evaluated_.data();
      for (std::size_t i = First; i < First + Count; ++i) evaluated[i] = program_.values[i];
      KeepVariables<First + Count, Count + 1>();
    }
  }
  void KeepAllVariables();
  static double NotReady(const Instruction*, double*, double, double);
  void SetCounted(int variable, double value);
  void CountAssignment(int variable);
  double EvalChecked();
  std::optional<double> TryEvalChecked();
  double EvalAgain(int errorNumber);
  bool EvalRows(const double* values);
  void ShowRows();
  void ShowProgram();
  bool AreAssigned();
  void RequireMulti(int variable);
  template <class Results>
  void EvalBlocks(std::span<const double> values, int variable, Results resultsOf);
  void EvalEach(std::span<const double> values, double* results, int variable);
  void SetReady();

  const FunctionCatalogue* catalogue_;
  std::string expression_;
  std::string error_;
  int errorPosition_ = 0;
  std::string decimalSeparator_ = ".";
  ExpressionTable table_;
  Program program_;
  TableEvaluator rows_;
  // The angle factor and the variables of the last evaluation that program_ made.
  std::array<double, kMaxVariables + 1> evaluated_{};
  RandomSource random_;
  // The first instruction's handler, or NotReady when there is no program, a check to make or
  // rowsAreShown_ to end.
  Handler entry_ = NotReady;
  // How many variables may be set without counting: all once counting makes no difference, else 0.
  unsigned uncounted_ = 0;
  int varTop_ = 0;
  int assignments_ = 0;
  int angleUnit_ = 0;
  bool isCompiled_ = false;
  bool explicit_ = false;
  bool rowsAreShown_ = true;  // rows_ holds the last evaluation; else program_ made it
};

}  // namespace zentab::mathparser
