#include <algorithm>
#include <array>

#include "mathparser/expression_table.h"
#include "mathparser/function_catalogue.h"

namespace zentab::mathparser {
namespace {

constexpr int kGuardLevel = 100;  // what a guard's priority is raised by

bool IsComparisonRow(const Row& row) { return row.isChain || IsComparison(row.function->code); }

bool IsProduct(const Row& row) { return row.function == &operators::kMultiply && !row.isChain; }

// What guards one factor of each product: the other one, or a truth among the factors of that. A
// truth is a comparison or a product of nothing but truths, 1 or 0 either way.
class GuardFinder {
 public:
  struct Guard {
    int row = 0;      // 0 for none
    int guarded = 0;  // the row of the factor that it guards, 0 for one that is no row
  };

  explicit GuardFinder(const ExpressionTable& table) {
    for (const std::int16_t number : table.postfix) {
      const Row& row = table.At(number);
      Facts& facts = facts_[static_cast<std::size_t>(number)];
      facts.isComparison = IsComparisonRow(row);
      facts.isTruth = facts.isComparison;
      if (IsProduct(row)) Look(row, facts);
      if (facts.isTruth) facts.truth = number;
    }
  }

  [[nodiscard]] Guard Of(int product) const {
    return facts_[static_cast<std::size_t>(product)].guard;
  }

 private:
  struct Facts {
    bool isComparison = false;
    bool isTruth = false;
    int truth = 0;  // without which the value is 0; of several the one that the others guard
    Guard guard;
  };

  void Look(const Row& product, Facts& facts) {
    const std::array rows = {static_cast<int>(product.source[0]),
                             static_cast<int>(product.source[1])};
    const Facts& left = facts_[static_cast<std::size_t>(rows[0])];
    const Facts& right = facts_[static_cast<std::size_t>(rows[1])];
    facts.isTruth = left.isTruth && right.isTruth;
    // No comparison is guarded by another one beside it, which also keeps two from guarding each
    // other.
    const bool isLeft = left.isComparison != right.isComparison ? left.isComparison
                        : left.isTruth != right.isTruth         ? left.isTruth
                                                                : left.truth != 0;
    const bool hasNone = left.isComparison == right.isComparison && left.isTruth && right.isTruth;
    if (hasNone) return;
    const Facts& guarding = isLeft ? left : right;
    const Facts& other = isLeft ? right : left;
    facts.guard = {guarding.truth, rows[isLeft ? 1 : 0]};
    facts.truth = guarding.truth != 0 && other.truth != 0 ? other.truth : guarding.truth;
  }

  std::array<Facts, kMaxRows + 1> facts_{};  // of row 0: those of an operand that is no row
};

// Marks the rows that a guard stands before, and gives every guard's rows a rank that puts them
// ahead of what it guards.
class GuardMarker {
 public:
  explicit GuardMarker(ExpressionTable& table) : table_(table), guards_(table) {}

  void Mark() {
    // Parents before their children, so that what holds for a row is handed down.
    for (auto at = table_.postfix.rbegin(); at != table_.postfix.rend(); ++at) {
      Row& row = table_.At(*at);
      if (row.argumentOf != 0) {
        row.guard = row.guard != 0 ? row.guard : table_.At(row.argumentOf).guard;
        if (group_[Place(*at)] == 0) group_[Place(*at)] = group_[Place(row.argumentOf)];
      }
      const GuardFinder::Guard guard = guards_.Of(*at);
      if (guard.row != 0) Raise(guard, *at);
    }
  }

  // For each row the place of its group in the order of evaluation. Guards that do not wait for one
  // another have the same, so that they go from left to right.
  [[nodiscard]] std::array<int, kMaxRows + 1> Ranks() const {
    std::array<int, kMaxRows + 1> ranks{};
    for (bool isSettled = false; !isSettled;) {
      isSettled = true;
      const auto follow = [&](int group, int earlier) {
        if (ranks[Place(group)] > ranks[Place(earlier)]) return;
        ranks[Place(group)] = ranks[Place(earlier)] + 1;
        isSettled = false;
      };
      for (const Use& use : uses_) {
        const int outer = table_.At(use.guard).guard;
        if (outer != 0) follow(use.guard, outer);
        // The group around a guard waits for it; of the outermost group all do.
        const int around = group_[Place(use.product)];
        if (around != 0) follow(around, use.guard);
      }
    }
    std::array<int, kMaxRows + 1> rankOfRow{};
    for (std::size_t row = 1; row <= table_.rows.size(); ++row) {
      rankOfRow[row] = group_[row] == 0 ? kMaxRows : ranks[Place(group_[row])];
    }
    return rankOfRow;
  }

 private:
  struct Use {
    int guard;
    int product;
  };

  static std::size_t Place(int number) { return static_cast<std::size_t>(number); }

  void Raise(const GuardFinder::Guard& guard, int product) {
    if (guard.guarded != 0) {
      table_.At(guard.guarded).guard = static_cast<std::int16_t>(guard.row);
      table_.At(product).factorGuard = static_cast<std::int16_t>(guard.row);
      table_.hasGuards = true;
    }
    uses_.push_back({guard.row, product});
    if (group_[Place(guard.row)] == guard.row) return;  // one that stands before several factors
    group_[Place(guard.row)] = guard.row;
    table_.At(guard.row).level += kGuardLevel;
  }

  ExpressionTable& table_;
  GuardFinder guards_;
  std::array<int, kMaxRows + 1> group_{};  // the guard to whose value a row contributes
  std::vector<Use> uses_;
};

bool HasComparison(const ExpressionTable& table) {
  return std::any_of(table.rows.begin(), table.rows.end(),
                     [](const Row& row) { return IsComparison(row.function->code); });
}

// A function of more than two arguments waits for the rows that pass them on.
int OrderKey(const Row& row) { return row.arguments > 2 ? row.key - 1 : row.key; }

}  // namespace

void OrderRows(ExpressionTable& table) {
  std::array<int, kMaxRows + 1> ranks{};
  if (HasComparison(table)) {
    GuardMarker marker(table);
    marker.Mark();
    ranks = marker.Ranks();
  }
  const auto before = [&](std::int16_t a, std::int16_t b) {
    const int rankA = ranks[static_cast<std::size_t>(a)];
    const int rankB = ranks[static_cast<std::size_t>(b)];
    if (rankA != rankB) return rankA < rankB;
    return OrderKey(table.At(a)) > OrderKey(table.At(b));
  };
  // Insertion keeps rows of equal priority in the order of the text. There are at most kMaxRows.
  table.order.resize(table.rows.size());
  for (std::size_t made = 0; made < table.order.size(); ++made) {
    const auto row = static_cast<std::int16_t>(made + 1);
    std::size_t at = made;
    for (; at > 0 && before(row, table.order[at - 1]); --at) table.order[at] = table.order[at - 1];
    table.order[at] = row;
  }
}

}  // namespace zentab::mathparser
