#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "mathparser/math_parser.h"

// Random expressions, made as trees, are written down with as few brackets as they need (and some
// more) and evaluated a second time as the trees that they are.

namespace zentab::mathparser {
namespace {

using Values = std::vector<double>;  // of the variables a, b, c, d

struct Node {
  enum class Kind { Literal, Variable, Binary, Comparison, Function };
  Kind kind = Kind::Literal;
  std::string text;  // of a comparison: its signs, one behind the other
  double value = 0.0;
  int binding = 10;  // of its operator; atoms bind tightest
  std::vector<std::unique_ptr<Node>> children;
  std::function<double(const Values&)> compute;  // from the children's values
};
using NodePointer = std::unique_ptr<Node>;

// Nothing for a failure.
using Result = std::optional<double>;

bool IsComparison(const Node& node) { return node.kind == Node::Kind::Comparison; }
bool IsProduct(const Node& node) { return node.kind == Node::Kind::Binary && node.text == "*"; }
bool IsTruth(const Node& node) {
  return IsComparison(node) ||
         (IsProduct(node) && IsTruth(*node.children[0]) && IsTruth(*node.children[1]));
}
bool HasTruth(const Node& node) {
  return IsTruth(node) ||
         (IsProduct(node) && (HasTruth(*node.children[0]) || HasTruth(*node.children[1])));
}
bool IsOperand(const Node& node) {
  return node.kind == Node::Kind::Literal || node.kind == Node::Kind::Variable;
}

// The factor with the truths whose 0 makes the other one be left alone, -1 for none.
int GuardOf(const Node& product) {
  const Node& left = *product.children[0];
  const Node& right = *product.children[1];
  if (IsComparison(left) != IsComparison(right)) return IsComparison(left) ? 0 : 1;
  if (IsTruth(left) != IsTruth(right)) return IsTruth(left) ? 0 : 1;
  if (IsTruth(left) || !(HasTruth(left) || HasTruth(right))) return -1;
  return HasTruth(left) ? 0 : 1;
}

Result Evaluate(const Node& node, const Values& variables);

Result Checked(double value) { return std::isfinite(value) ? Result(value) : std::nullopt; }

// Whether all truths among the factors hold, each asked only when those that guard it do.
Result Holds(const Node& node, const Values& variables) {
  if (IsTruth(node)) return Evaluate(node, variables);
  const auto guard = static_cast<std::size_t>(GuardOf(node));
  const Result first = Holds(*node.children[guard], variables);
  const Node& other = *node.children[1 - guard];
  return first && *first != 0.0 && HasTruth(other) ? Holds(other, variables) : first;
}

Result EvaluateProduct(const Node& node, const Values& variables) {
  const int guard = GuardOf(node);
  if (guard >= 0 && !IsOperand(*node.children[static_cast<std::size_t>(1 - guard)])) {
    const Node& guarding = *node.children[static_cast<std::size_t>(guard)];
    const Result condition = Holds(guarding, variables);
    if (!condition) return condition;
    const Result value = *condition == 0.0 ? Evaluate(guarding, variables) : std::nullopt;
    if (*condition == 0.0) return value ? Checked(*value * 0.0) : std::nullopt;
  }
  const Result left = Evaluate(*node.children[0], variables);
  const Result right = Evaluate(*node.children[1], variables);
  if (!left || !right) return std::nullopt;
  return Checked(*left * *right);
}

std::optional<Values> OperandsOf(const Node& node, const Values& variables) {
  Values operands;
  for (const NodePointer& child : node.children) {
    const Result operand = Evaluate(*child, variables);
    if (!operand) return std::nullopt;
    operands.push_back(*operand);
  }
  return operands;
}

Result EvaluateComparison(const Node& node, const Values& variables) {
  const std::optional<Values> operands = OperandsOf(node, variables);
  if (!operands) return std::nullopt;
  double truth = 1.0;
  for (std::size_t i = 0; i < node.text.size(); ++i) {
    const double a = (*operands)[i];
    const double b = (*operands)[i + 1];
    const bool holds = node.text[i] == '<' ? a < b : node.text[i] == '>' ? a > b : a == b;
    truth *= holds ? 1.0 : 0.0;
  }
  return truth;
}

Result Evaluate(const Node& node, const Values& variables) {
  if (node.kind == Node::Kind::Literal) return node.value;
  if (node.kind == Node::Kind::Variable) {
    return node.value * variables[static_cast<std::size_t>(node.text.back() - 'a')];
  }
  if (IsProduct(node)) return EvaluateProduct(node, variables);
  if (IsComparison(node)) return EvaluateComparison(node, variables);
  const std::optional<Values> operands = OperandsOf(node, variables);
  if (!operands) return std::nullopt;
  const Result result = Checked(node.compute(*operands));
  if (!result) return std::nullopt;
  return node.text.front() == '-' && node.kind == Node::Kind::Function ? -*result : *result;
}

class Generator {
 public:
  explicit Generator(unsigned seed) : random_(seed) {}

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  double Number() {
    const double numbers[] = {0.0, 1.0, -1.0, 2.0, 0.5, -3.25, 1e3, 1e-4, -1e160, 2e200};
    return Below(3) == 0 ? numbers[Below(10)] : Below(2000) / 100.0 - 10.0;
  }

  NodePointer Make(int depth) {
    if (depth == 0 || Below(6) == 0) return Below(2) == 0 ? MakeLiteral() : MakeVariable();
    switch (Below(10)) {
      case 0:
      case 1:
        return MakeComparison(depth);
      case 2:
        return MakeGuarded(depth);
      case 3:
      case 4:
      case 5:
        return MakeFunction(depth);
      default:
        return MakeBinary(depth);
    }
  }

  std::string Write(const Node& node) {
    if (node.kind == Node::Kind::Literal || node.kind == Node::Kind::Variable) return node.text;
    std::string text;
    if (node.kind == Node::Kind::Function) {
      const bool bars = node.text.ends_with("abs") && Below(2) == 0;
      const bool postfix = node.text == "%";
      if (postfix) return Operand(*node.children[0], 9) + "%";
      text = bars ? (node.text.front() == '-' ? "-|" : "|") : node.text + "(";
      for (const NodePointer& child : node.children) text += Write(*child) + ",";
      text.back() = bars ? '|' : ')';
      return text;
    }
    text = Operand(*node.children[0], IsComparison(node) ? node.binding + 1 : node.binding);
    for (std::size_t i = 1; i < node.children.size(); ++i) {
      text += Below(4) == 0 ? " " : "";
      text += IsComparison(node) ? std::string(1, node.text[i - 1]) : node.text;
      text += Operand(*node.children[i], node.binding + 1);
    }
    return text;
  }

 private:
  std::string Operand(const Node& node, int binding) {
    std::string text = Write(node);
    if (node.binding >= binding && Below(8) != 0) return text;
    const char* brackets[] = {"()", "[]", "{}", "(]"};
    const char* pair = brackets[Below(4)];
    return pair[0] + text + pair[1];
  }
  NodePointer MakeLiteral() {
    auto node = std::make_unique<Node>();
    node->text = std::to_string(Number());
    node->value = std::stod(node->text);
    return node;
  }
  NodePointer MakeVariable() {
    auto node = std::make_unique<Node>();
    node->kind = Node::Kind::Variable;
    node->value = Below(3) == 0 ? -1.0 : 1.0;
    node->text = (node->value < 0.0 ? "-" : "") + std::string(1, static_cast<char>('a' + Below(4)));
    return node;
  }
  NodePointer MakeComparison(int depth) {
    auto node = std::make_unique<Node>();
    node->kind = Node::Kind::Comparison;
    node->binding = 1;
    node->children.push_back(Make(depth - 1));
    for (int n = Below(4) == 0 ? 1 + Below(3) : 1; n > 0; --n) {
      node->text += "<>="[Below(3)];
      node->children.push_back(Make(depth - 1));
    }
    return node;
  }
  // A comparison among the two, three or four factors of a product.
  NodePointer MakeGuarded(int depth) {
    NodePointer product = MakeComparison(depth);
    for (int factors = 1 + Below(2) * Below(3); factors > 0; --factors) {
      auto node = std::make_unique<Node>();
      node->kind = Node::Kind::Binary;
      node->text = "*";
      node->binding = 3;
      node->children.push_back(std::move(product));
      node->children.push_back(Make(Below(depth)));
      if (Below(2) == 0) std::swap(node->children[0], node->children[1]);
      product = std::move(node);
    }
    return product;
  }
  NodePointer MakeBinary(int depth) {
    struct Operator {
      const char* sign;
      int binding;
      double (*compute)(double, double);
    };
    static const Operator operators[] = {
        {"+", 2, [](double a, double b) { return a + b; }},
        {"-", 2, [](double a, double b) { return a - b; }},
        {"*", 3, [](double a, double b) { return a * b; }},
        {"/", 3, [](double a, double b) { return a / b; }},
        {"^", 4, [](double a, double b) { return std::pow(a, b); }},
    };
    const Operator& made = operators[Below(5)];
    auto node = std::make_unique<Node>();
    node->kind = Node::Kind::Binary;
    node->text = made.sign;
    node->binding = made.binding;
    node->compute = [compute = made.compute](const Values& v) { return compute(v[0], v[1]); };
    node->children.push_back(Make(depth - 1));
    node->children.push_back(Make(depth - 1));
    return node;
  }
  NodePointer MakeFunction(int depth) {
    struct Known {
      const char* name;
      int arguments;
      double (*compute)(const Values&);
    };
    static const Known functions[] = {
        {"sin", 1, [](const Values& v) { return std::sin(v[0]); }},
        {"Exp", 1, [](const Values& v) { return std::exp(v[0]); }},
        {"ln", 1, [](const Values& v) { return std::log(v[0]); }},
        {"sqr", 1, [](const Values& v) { return std::sqrt(v[0]); }},
        {"abs", 1, [](const Values& v) { return std::abs(v[0]); }},
        {"TANH", 1, [](const Values& v) { return std::tanh(v[0]); }},
        {"%", 1, [](const Values& v) { return v[0] / 100.0; }},
        {"max", 2, [](const Values& v) { return v[0] > v[1] ? v[0] : v[1]; }},
        {"min", 2, [](const Values& v) { return v[0] < v[1] ? v[0] : v[1]; }},
        {"mod", 2, [](const Values& v) { return std::fmod(v[0], v[1]); }},
        {"Or", 2, [](const Values& v) { return v[0] != 0.0 || v[1] != 0.0 ? 1.0 : 0.0; }},
        {"clip", 3, [](const Values& v) { return std::min(std::max(v[0], v[1]), v[2]); }},
    };
    const Known& made = functions[Below(12)];
    auto node = std::make_unique<Node>();
    node->kind = Node::Kind::Function;
    node->text = made.name;
    if (node->text == "%") {
      node->binding = 9;
    } else if (Below(4) == 0) {
      node->text = '-' + node->text;
    }
    node->compute = made.compute;
    for (int i = 0; i < made.arguments; ++i) node->children.push_back(Make(depth - 1));
    return node;
  }

  std::mt19937 random_;
};

Result EvalOf(MathParser& parser) {
  try {
    return parser.Eval();
  } catch (const EvaluationError&) {
    return std::nullopt;
  }
}

bool SameBits(const Result& a, const Result& b) {
  return a.has_value() == b.has_value() &&
         (!a || std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b));
}

// EvalMulti over more than a block, against a loop of Eval; both end at the first failure.
void CompareMulti(MathParser& parser, int variable, Generator& generator) {
  Values inputs(300);
  for (double& input : inputs) input = generator.Number();
  Values expected;
  for (const double input : inputs) {
    parser.VarValue(variable, input);
    const Result result = EvalOf(parser);
    if (!result) break;
    expected.push_back(*result);
  }
  const std::string error = parser.ErrorDescription();
  Values results(inputs.size());
  bool failed = false;
  try {
    parser.EvalMulti(inputs, results, variable);
  } catch (const EvaluationError& raised) {
    failed = true;
    EXPECT_EQ(raised.what(), error);
    EXPECT_EQ(parser.VarValue(variable), inputs[expected.size()]);
  }
  EXPECT_EQ(failed, expected.size() < inputs.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_TRUE(SameBits(results[i], expected[i])) << "value " << i;
  }
}

TEST(RandomExpressions, AgreeWithTheirTrees) {
  Generator generator(4711);
  int good = 0;
  for (int made = 0; made < 3000; ++made) {
    const NodePointer tree = generator.Make(1 + generator.Below(6));
    const std::string text = generator.Write(*tree);
    SCOPED_TRACE(text);
    MathParser parser;
    if (!parser.StoreExpression(text)) {
      ASSERT_EQ(parser.ErrorDescription(), "too many rows");
      continue;
    }
    for (int point = 0; point < 8; ++point) {
      Values variables(4);
      for (std::size_t i = 0; i < variables.size(); ++i) {
        variables[i] = generator.Number();
        parser.VarSymb(std::string(1, static_cast<char>('a' + i)), variables[i]);
      }
      Result expected = Evaluate(*tree, variables);
      if (expected && IsOperand(*tree)) expected = 0.0 + *expected;
      const Result result = EvalOf(parser);
      ASSERT_TRUE(SameBits(result, expected))
          << (result ? std::to_string(*result) : parser.ErrorDescription()) << " for "
          << (expected ? std::to_string(*expected) : "a failure");
      good += result ? 1 : 0;
    }
    if (parser.VarTop() > 0) {
      CompareMulti(parser, 1 + generator.Below(parser.VarTop()), generator);
    }
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(good, 10000);
}

}  // namespace
}  // namespace zentab::mathparser
