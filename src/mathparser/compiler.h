#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "mathparser/expression_table.h"
#include "mathparser/function_catalogue.h"

namespace zentab::mathparser {

/// Turns a text into an expression table, in time in proportion to its length.
///
/// Every operator, function and comma becomes a row, numbered as they stand in the text. A row's
/// `key` says how tightly it binds: twice its level, so that there is room between the levels. A
/// row is linked as soon as one that binds no tighter follows it: it feeds whichever neighbour
/// binds tighter, the left one when both are alike. Rows that still wait for this lie on a stack;
/// the order in which they leave it is the postfix order.
class Compiler {
 public:
  Compiler(const FunctionCatalogue& catalogue, ExpressionTable& table)
      : catalogue_(catalogue), table_(table) {}

  /// Compiles the text (any bytes; UTF-8 as a rule), which has no blanks at its ends. On false
  /// Error() says why, and the table holds no expression, only the variables found so far.
  [[nodiscard]] bool Compile(std::string_view text);
  [[nodiscard]] const std::string& Error() const { return error_; }
  /// Where the text is at fault: its character, from 1; one more than it has where something is
  /// missing at its end. 0 after a good compile.
  [[nodiscard]] int ErrorPosition() const { return errorPosition_; }

 private:
  // How far the token at hand is a number.
  enum class Number : std::uint8_t { None, Whole, Point, Fraction, Mark, MarkSign, Power, Other };
  // Whether the token at hand is an operand that nothing may be added to.
  enum class Closed : std::uint8_t { No, Bracket, Percent };

  struct Bracket {
    int call = -1;       // place in calls_ for the bracket of a function with commas
    int comparison = 0;  // last comparison row of this argument
  };
  struct Call {
    const FunctionEntry* function;
    NameRange written;
    int position;
    std::int16_t firstRow;
    std::int8_t commas;  // still expected
    std::int16_t sign;
  };
  struct NewRow {
    const FunctionEntry* function;
    int level;
    int position;
    int arguments = 2;
    bool takesOperand = true;  // what stands before it
    bool isChain = false;
    int continues = 0;  // the first row of a function whose later comma this is
  };

  [[nodiscard]] std::size_t RunLength(std::string_view text, std::size_t at) const;
  bool Scan(std::string_view text);
  bool Step(std::string_view text, std::size_t& at);
  bool TokenCharacter(char c);
  bool OpenBracket();
  bool OpenCall();
  bool CloseBracket();
  bool Bar();
  bool Sign(char c);
  bool Operator(const FunctionEntry& function, int priority);
  bool Postfix(char c);
  bool Comma();
  bool Comparison(std::string_view text, std::size_t& at);
  bool Finish(int characters);

  bool AddRow(const NewRow& made);
  bool AddFunctionRow(const FunctionEntry& function, NameRange written);
  void LinkBefore(int row, int continues);
  void LinkTop(int right);
  void Feed(int number, int target, int index);
  void SetLastOperand(const Operand& operand);
  bool TakeOperand(Operand& operand);
  bool ParseToken();

  [[nodiscard]] bool Pending() const { return sign_ != 0 || !Token().empty(); }
  [[nodiscard]] std::string_view Token() const {
    return std::string_view(table_.names).substr(tokenBegin_);
  }
  [[nodiscard]] bool IsNumber() const {
    return number_ == Number::Whole || number_ == Number::Fraction || number_ == Number::Power;
  }
  [[nodiscard]] int Level() const { return (static_cast<int>(brackets_.size()) - 1) * 10; }
  [[nodiscard]] int LastRow() const { return static_cast<int>(table_.rows.size()); }
  [[nodiscard]] NameRange TokenRange() const;
  [[nodiscard]] static Number NextNumber(Number state, char c);
  void ClearToken();
  bool Fail(std::string message, int position);
  bool SyntaxErrorAt(int position);

  const FunctionCatalogue& catalogue_;
  ExpressionTable& table_;
  std::string error_;
  int errorPosition_ = 0;

  int position_ = 0;  // of the character at hand, 1-based
  int tokenPosition_ = 0;
  char last_ = 0;  // the character before it, blanks aside
  std::size_t tokenBegin_ = 0;
  char sign_ = 0;
  Number number_ = Number::None;
  Closed closed_ = Closed::No;
  bool parsed_ = false;  // operand_ is the token
  Operand operand_;
  int unfinishedCall_ = 0;         // where its bracket closes
  std::vector<Bracket> brackets_;  // the first stands for the whole text
  std::vector<Call> calls_;
  std::array<std::int16_t, kMaxRows + 1> waiting_{};
  int waitingCount_ = 0;
};

}  // namespace zentab::mathparser
