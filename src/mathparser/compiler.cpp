#include "mathparser/compiler.h"

#include <algorithm>
#include <utility>

namespace zentab::mathparser {
namespace {

// What an operator's row adds to ten times its brackets; functions and commas add nothing.
constexpr int kComparisonPriority = 1;
constexpr int kSumPriority = 2;
constexpr int kProductPriority = 3;
constexpr int kPowerPriority = 4;
constexpr int kPostfixPriority = 9;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool IsClosing(char c) { return c == ')' || c == ']' || c == '}'; }
bool IsComparisonSign(char c) { return c == '<' || c == '=' || c == '>'; }

// A character that is not the first byte of its own.
bool Continues(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

int CharactersIn(std::string_view text) {
  return static_cast<int>(std::ranges::count_if(text, [](char c) { return !Continues(c); }));
}

}  // namespace

bool Compiler::Fail(std::string message, int position) {
  error_ = std::move(message);
  errorPosition_ = position;
  return false;
}

bool Compiler::SyntaxErrorAt(int position) {
  return Fail("Syntax error at pos: " + std::to_string(position), position);
}

NameRange Compiler::TokenRange() const {
  return {static_cast<std::uint32_t>(tokenBegin_), static_cast<std::uint32_t>(Token().size())};
}

void Compiler::ClearToken() {
  tokenBegin_ = table_.names.size();
  sign_ = 0;
  number_ = Number::None;
  parsed_ = false;
}

Compiler::Number Compiler::NextNumber(Number state, char c) {
  const bool digit = IsDigit(c);
  const bool mark = c == 'e' || c == 'E';
  switch (state) {
    case Number::None:
      return digit ? Number::Whole : c == '.' ? Number::Point : Number::Other;
    case Number::Whole:
      if (c == '.') return Number::Fraction;
      return digit ? Number::Whole : mark ? Number::Mark : Number::Other;
    case Number::Point:
      return digit ? Number::Fraction : Number::Other;
    case Number::Fraction:
      return digit ? Number::Fraction : mark ? Number::Mark : Number::Other;
    case Number::Mark:
    case Number::MarkSign:
    case Number::Power:
      return digit ? Number::Power : Number::Other;
    case Number::Other:
      break;
  }
  return Number::Other;
}

bool Compiler::Compile(std::string_view text) {
  table_.names.clear();
  table_.names.reserve(text.size());
  table_.rows.clear();
  table_.variables.clear();
  table_.order.clear();
  table_.postfix.clear();
  table_.hasGuards = false;
  table_.byRowsOnly = false;
  if (std::count(text.begin(), text.end(), '|') % 2 != 0) {
    return Fail("abs symbols |.| mismatch", CharactersIn(text.substr(0, text.rfind('|') + 1)));
  }
  brackets_.assign(1, {});
  if (!Scan(text) || !Finish(CharactersIn(text))) {
    table_.rows.clear();
    return false;
  }
  OrderRows(table_);
  return true;
}

// How many characters from here on leave the token what it is: letters and digits of what is no
// number, digits of a whole number. They need not be looked at one by one.
std::size_t Compiler::RunLength(std::string_view text, std::size_t at) const {
  if (closed_ != Closed::No) return 0;
  const bool anything = number_ == Number::Other;
  if (!anything && number_ != Number::Whole) return 0;
  std::size_t end = at;
  while (end < text.size() && (IsDigit(text[end]) || (anything && IsLetter(text[end])))) ++end;
  return end - at;
}

bool Compiler::Scan(std::string_view text) {
  std::size_t continued = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    // With nothing to continue it is a character of its own.
    if (Continues(c) && !Token().empty() && closed_ == Closed::No) {
      ++continued;
      table_.names.push_back(c);
      number_ = Number::Other;
      continue;
    }
    if (c == ' ') continue;
    if (const std::size_t run = RunLength(text, at); run > 0) {
      table_.names.append(text, at, run);
      at += run - 1;
      last_ = text[at];
      continue;
    }
    position_ = static_cast<int>(at + 1 - continued);
    if (!Step(text, at)) return false;
    last_ = c;
  }
  return true;
}

bool Compiler::Step(std::string_view text, std::size_t& at) {
  const char c = text[at];
  switch (c) {
    case '(':
    case '[':
    case '{':
      return OpenBracket();
    case ')':
    case ']':
    case '}':
      return CloseBracket();
    case '+':
    case '-':
      return Sign(c);
    case '*':
      return Operator(operators::kMultiply, kProductPriority);
    case '/':
      return Operator(operators::kDivide, kProductPriority);
    case '\\':
      return Operator(operators::kIntegerDivide, kProductPriority);
    case '^':
      return Operator(operators::kPower, kPowerPriority);
    case '!':
    case '%':
      return Postfix(c);
    case '|':
      return Bar();
    case ',':
      return Comma();
    case '<':
    case '=':
    case '>':
      return Comparison(text, at);
    default:
      return TokenCharacter(c);
  }
}

bool Compiler::TokenCharacter(char c) {
  const bool multiplies = (c >= 'x' && c <= 'z') || (c >= 'X' && c <= 'Z');
  if (multiplies && IsNumber() && closed_ != Closed::Bracket) {
    if (!Operator(operators::kMultiply, kProductPriority)) return false;
  }
  if (closed_ != Closed::No) return SyntaxErrorAt(position_);
  if (Token().empty()) tokenPosition_ = position_;
  number_ = NextNumber(number_, c);
  table_.names.push_back(c);
  return true;
}

bool Compiler::OpenBracket() {
  if (closed_ != Closed::No) return SyntaxErrorAt(position_);
  brackets_.emplace_back();
  if (sign_ == '-' && Token().empty()) {
    sign_ = 0;
    table_.names += "Neg";
    if (!AddFunctionRow(operators::kNegate, TokenRange())) return false;
  } else if (!Token().empty() && !OpenCall()) {
    return false;
  }
  ClearToken();
  return true;
}

// A bracket behind a name.
bool Compiler::OpenCall() {
  const FunctionEntry* function = catalogue_.Find(Token());
  if (function == nullptr) {
    if (IsNumber()) return SyntaxErrorAt(position_);
    return Fail("Function < " + std::string(Token()) +
                    " > unknown at pos: " + std::to_string(tokenPosition_),
                tokenPosition_);
  }
  if (function->arguments == 1) return AddFunctionRow(*function, TokenRange());
  brackets_.back().call = static_cast<int>(calls_.size());
  calls_.push_back({function, TokenRange(), position_, 0,
                    static_cast<std::int8_t>(function->arguments - 1),
                    static_cast<std::int16_t>(sign_ == '-' ? -1 : 1)});
  return true;
}

bool Compiler::CloseBracket() {
  if (brackets_.size() == 1) {
    return Fail("Too many closing brackets at pos: " + std::to_string(position_), position_);
  }
  const int call = brackets_.back().call;
  // Said only at the end of the text: what else is wrong with it comes first.
  if (call >= 0 && calls_[static_cast<std::size_t>(call)].commas > 0) {
    unfinishedCall_ = position_;
  }
  if (call >= 0) calls_.pop_back();
  brackets_.pop_back();
  closed_ = Closed::Bracket;
  return true;
}

bool Compiler::Bar() {
  if (Pending() && !(sign_ == '-' && Token().empty())) {
    if (brackets_.size() == 1) return SyntaxErrorAt(position_);
    return CloseBracket();
  }
  if (closed_ != Closed::No) return SyntaxErrorAt(position_);
  brackets_.emplace_back();
  if (!AddFunctionRow(operators::kAbsolute, {})) return false;
  ClearToken();
  return true;
}

bool Compiler::Sign(char c) {
  if (!Pending()) {
    if (IsClosing(last_)) return Fail("missing argument", position_);
    sign_ = c;
    return true;
  }
  if (number_ == Number::Mark && closed_ == Closed::No) {
    number_ = Number::MarkSign;
    table_.names.push_back(c);
    return true;
  }
  return Operator(c == '+' ? operators::kAdd : operators::kSubtract, kSumPriority);
}

bool Compiler::Operator(const FunctionEntry& function, int priority) {
  if (!AddRow({.function = &function, .level = Level() + priority, .position = position_})) {
    return false;
  }
  ClearToken();
  return true;
}

bool Compiler::Postfix(char c) {
  const FunctionEntry& function = c == '!' ? operators::kFactorial : operators::kPercent;
  if (!AddRow({.function = &function,
               .level = Level() + kPostfixPriority,
               .position = position_,
               .arguments = 1})) {
    return false;
  }
  closed_ = c == '!' ? Closed::Bracket : Closed::Percent;
  return true;
}

bool Compiler::Comma() {
  Bracket& bracket = brackets_.back();
  if (bracket.call < 0 || calls_.back().commas == 0) {
    return Fail("Too many arguments at pos: " + std::to_string(position_), position_);
  }
  Call& call = calls_.back();
  const int arguments = call.function->arguments;
  if (!AddRow({.function = call.firstRow == 0 ? call.function : &operators::kRight,
               .level = Level(),
               .position = call.position,
               .arguments = call.firstRow == 0 ? arguments : 2,
               .continues = call.firstRow})) {
    return false;
  }
  Row& row = table_.rows.back();
  if (call.firstRow == 0) {
    call.firstRow = static_cast<std::int16_t>(LastRow());
    row.written = call.written;
    row.sign = call.sign;
  } else {
    row.argumentOf = call.firstRow;
    row.argumentIndex = static_cast<std::int16_t>(arguments - call.commas + 1);
  }
  --call.commas;
  bracket.comparison = 0;
  ClearToken();
  return true;
}

bool Compiler::Comparison(std::string_view text, std::size_t& at) {
  std::array<char, 2> sign = {text[at]};
  std::size_t length = 1;
  const std::size_t next = text.find_first_not_of(' ', at + 1);
  if (next != std::string_view::npos && IsComparisonSign(text[next])) {
    sign[length++] = text[next];
    at = next;
  }
  const FunctionEntry* function = operators::Comparison({sign.data(), length});
  if (function == nullptr) return SyntaxErrorAt(position_);

  const int before = brackets_.back().comparison;
  if (before != 0 && !AddRow({.function = &operators::kMultiply,
                              .level = Level() - 10 + kProductPriority,
                              .position = position_,
                              .isChain = true})) {
    return false;
  }
  if (!AddRow(
          {.function = function, .level = Level() + kComparisonPriority, .position = position_})) {
    return false;
  }
  const int row = LastRow();
  if (before != 0) {
    // The operand in the middle belongs to both comparisons.
    const std::int16_t middle = table_.At(before).source[1];
    table_.At(row).source[0] = middle;
    if (middle != 0) {
      table_.At(row).operand[0] = {};
      table_.At(middle).alsoFeeds = static_cast<std::int16_t>(row);
    }
  }
  brackets_.back().comparison = row;
  ClearToken();
  return true;
}

bool Compiler::Finish(int characters) {
  position_ = characters + 1;
  if (brackets_.size() > 1) return Fail("Not enough closing brackets", position_);
  if (table_.rows.empty()) {
    // A lone operand is added to nothing.
    if (!AddRow({.function = &operators::kAdd, .level = 1, .position = 1, .takesOperand = false})) {
      return false;
    }
  }
  Operand operand;
  if (!TakeOperand(operand)) return false;
  SetLastOperand(operand);
  if (unfinishedCall_ != 0) return Fail("missing argument", unfinishedCall_);
  while (waitingCount_ > 0) LinkTop(0);
  return true;
}

}  // namespace zentab::mathparser
