#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The expression evaluator: MathParser compiles and evaluates, DocumentedFunctions(),
/// DocumentedConstants(), DocumentedUnits() and DocumentedPrefixes() say what its language has.
namespace zentab::mathparser {

class FunctionCatalogue;
struct Instruction;

/// An evaluation that failed: its number, the place in the text and the message, which what() gives
/// as well. It holds copies, and so outlives the parser that threw it.
class EvaluationError : public std::runtime_error {
 public:
  /// See Number(), Position() and Description().
  EvaluationError(int number, int position, const std::string& description)
      : std::runtime_error(description), number_(number), position_(position) {}

  /// 1001, or 1002 from MathParser::Eval1.
  [[nodiscard]] int Number() const { return number_; }
  /// The parser's MathParser::ErrorPosition() at that time.
  [[nodiscard]] int Position() const { return position_; }
  /// The parser's MathParser::ErrorDescription() at that time.
  [[nodiscard]] std::string Description() const { return what(); }
  /// The component that failed.
  [[nodiscard]] static std::string_view Source() { return "MathParser"; }

 private:
  int number_;
  int position_;
};

/// One expression, compiled once and evaluated as often as needed.
///
/// Texts are UTF-8. Variables are numbered from 1 in the order in which they first appear; a
/// number or name that is none is ignored when set and gives 0 when read.
///
/// Lifetime: an object owns all it needs; texts that it is given are copied. What it returns by
/// reference or as a std::string_view lives until the next call that is not const, or the end of
/// the object. A copy has variables and random numbers of its own; a move is a copy.
///
/// Threads: objects are independent of each other, and any number of them may work at the same
/// time. One object is for one thread at a time: evaluating changes it.
///
/// Besides what is said of each function, all but the readers may throw std::bad_alloc.
class MathParser {
 public:
  /// A parser without an expression: no variables, angles in radians.
  MathParser();
  /// @private A vocabulary other than the standard one; it must outlive the parser and its copies.
  explicit MathParser(const FunctionCatalogue& catalogue);
  /// A parser in the same state.
  MathParser(const MathParser& other);
  /// Takes over the state of another parser.
  MathParser& operator=(const MathParser& other);
  ~MathParser();

  /// Compiles a text, at most 2 GB. On false the three Error functions say why and nothing can be
  /// evaluated. Either way the variables are new ones, all 0 and unassigned.
  bool StoreExpression(std::string_view text);
  /// The stored text without the blanks at its ends.
  [[nodiscard]] const std::string& Expression() const;

  /// How many variables the expression has, at most 100.
  [[nodiscard]] int VarTop() const { return varTop_; }
  /// The name of a variable as it is written.
  [[nodiscard]] std::string_view VarName(int variable) const;

  /// The value that a variable is set to.
  [[nodiscard]] double VarValue(int variable) const {
    return IsVariable(variable) ? values_[static_cast<std::size_t>(variable)] : 0.0;
  }
  /// Sets a variable; every call counts as an assignment.
  void VarValue(int variable, double value) {
    if (static_cast<unsigned>(variable) - 1U < uncounted_) [[likely]] {
      values_[static_cast<std::size_t>(variable)] = value;
    } else {
      SetCounted(variable, value);
    }
  }

  /// The number of the variable of that name, not its value; 0 for an unknown name.
  [[nodiscard]] double VarSymb(std::string_view name) const;
  /// Sets the variable of that name; every call counts as an assignment.
  void VarSymb(std::string_view name, double value);

  /// The value that a variable is set to.
  [[nodiscard]] double Variable(int variable) const { return VarValue(variable); }
  /// The value that the variable of that name is set to.
  [[nodiscard]] double Variable(std::string_view name) const;
  /// Sets a variable; counts as an assignment only while OpAssignExplicit() is on, and only the
  /// first time.
  void Variable(int variable, double value);
  /// The same by its name.
  void Variable(std::string_view name, double value);

  /// "RAD", "DEG" or "GRAD", in which angles go into and come out of functions. Stays when
  /// another expression is stored.
  [[nodiscard]] std::string_view AngleUnit() const;
  /// Without regard to case; any other text changes nothing.
  void AngleUnit(std::string_view unit);

  /// Whether Eval insists that as many assignments as variables were made. Off at first; stays
  /// when another expression is stored.
  [[nodiscard]] bool OpAssignExplicit() const;
  /// Switches that on or off.
  void OpAssignExplicit(bool isExplicit);

  /// The number of the last error: 1001, or 1002 from Eval1; 0 after a good compile.
  [[nodiscard]] int ErrorNumber() const;
  /// The text of the last error, "" after a good compile. An evaluation that succeeds leaves it.
  [[nodiscard]] const std::string& ErrorDescription() const;
  /// The place of the last error in the text that was compiled last: a character, from 1, blanks
  /// counted. Of a text that does not compile, what is at fault; one more than it has characters
  /// where something is missing at its end. Of an evaluation, the sign of the operation that
  /// failed, the opening bracket of a function. 0 where no place is to blame, and after a good
  /// compile. Messages that name a position do not count the blanks in front.
  [[nodiscard]] int ErrorPosition() const;

  /// The value for the variables as they are set. Throws EvaluationError 1001.
  double Eval() {
    const double value = entry_(code_, values_.data(), 0.0, 0.0);
    if (IsNumber(value)) [[likely]] {
      KeepVariables<1, 1>();
      return value;
    }
    return EvalChecked();
  }

  /// The same value; nothing where Eval throws, which for lack of a message takes less time.
  std::optional<double> TryEval() {
    const double value = entry_(code_, values_.data(), 0.0, 0.0);
    if (!IsNumber(value)) [[unlikely]] {
      return TryEvalChecked();
    }
    KeepVariables<1, 1>();
    return value;
  }

  /// The value for x in place of the only variable, which itself stays as it is. Throws
  /// EvaluationError 1002, also when there is more than one variable.
  double Eval1(double x);

  /// The values for each of `values` in turn as one variable, by its number; element 0 belongs to
  /// the first. The other variables stay as they are, the one keeps the last value, or the one that
  /// failed. No assignment is counted or asked for. Throws EvaluationError 1001, also for an
  /// expression without that variable.
  std::vector<double> EvalMulti(std::span<const double> values, int variable = 1);
  /// The same for a variable by its name.
  std::vector<double> EvalMulti(std::span<const double> values, std::string_view variable);
  /// The same into `results`, which has at least as many elements and may not overlap `values`.
  void EvalMulti(std::span<const double> values, std::span<double> results, int variable = 1);

  /// A title row and one row of texts per operation, in the order of the expression. Values are
  /// those of the last evaluation, whatever has been set since then.
  std::vector<std::vector<std::string>> ET_Dump();

  /// The decimal separator of numbers in messages and in ET_Dump; "." at first.
  [[nodiscard]] const std::string& DecimalSeparator() const;
  /// Sets it, to any text.
  void DecimalSeparator(std::string_view separator);

 private:
  struct Compiled;
  using Handler = double (*)(const Instruction*, double*, double, double);
  static constexpr std::size_t kPlaces = 702;
  static constexpr std::size_t kEvaluated = 101;

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
      for (std::size_t i = First; i < First + Count; ++i) evaluated[i] = values_[i];
      KeepVariables<First + Count, Count + 1>();
    }
  }
  void KeepAllVariables();
  static double NotReady(const Instruction*, double*, double, double);
  [[nodiscard]] int FindVariable(std::string_view name) const;
  void SetCounted(int variable, double value);
  void CountAssignment(int variable);
  double EvalChecked();
  std::optional<double> TryEvalChecked();
  [[nodiscard]] double RunProgram();
  double EvalAgain(int errorNumber);
  bool EvalRows(const double* values);
  void ShowRows();
  void ShowProgram();
  bool AreAssigned();
  void Note(int number, int position, std::string description);
  void NoteRow(int number);
  [[noreturn]] void Throw(int number);
  void RequireMulti(int variable);
  template <class Results>
  void EvalBlocks(std::span<const double> values, int variable, Results resultsOf);
  void EvalEach(std::span<const double> values, double* results, int variable);
  void SetReady();

  // What each evaluation touches lies here, the rest behind a pointer.
  std::unique_ptr<Compiled> compiled_;
  // The first instruction's handler, or NotReady when there is no program, a check to make or what
  // the rows show to end.
  Handler entry_ = NotReady;
  const Instruction* code_ = nullptr;
  // How many variables may be set without counting: all once counting makes no difference, else 0.
  unsigned uncounted_ = 0;
  int varTop_ = 0;
  // The angle factor and the variables of the last evaluation that the program made.
  std::array<double, kEvaluated> evaluated_{};
  // Those that are set, and what else the program needs. Not on the heap, where they would have to
  // be found anew for every variable that is set.
  std::array<double, kPlaces> values_{};
};

}  // namespace zentab::mathparser
