#include <algorithm>
#include <array>

#include "mathparser/expression_table.h"
#include "mathparser/function_catalogue.h"

namespace zentab::mathparser {
namespace {

constexpr int kGuardLevel = 100;  // what a guard's priority is raised by

bool IsComparisonRow(const Row& row) { return row.isChain || IsComparison(row.function->code); }

bool IsProduct(const Row& row) { return row.function == &operators::kMultiply && !row.isChain; }

// A comparison, or a product of nothing but comparisons: 1 or 0 either way.
bool IsTruth(const ExpressionTable& table, int number) {
  if (number == 0) return false;
  const Row& row = table.At(number);
  if (IsComparisonRow(row)) return true;
  return IsProduct(row) && row.source[0] != 0 && row.source[1] != 0 &&
         IsComparisonRow(table.At(row.source[0])) && IsComparisonRow(table.At(row.source[1]));
}

// The factor of a product that guards the other one, 0 for none. A comparison is never guarded
// itself, which also keeps two of them from guarding each other.
int GuardOf(const ExpressionTable& table, const Row& product) {
  const int left = product.source[0];
  const int right = product.source[1];
  const auto isComparison = [&](int row) { return row != 0 && IsComparisonRow(table.At(row)); };
  if (isComparison(left) != isComparison(right)) return isComparison(left) ? left : right;
  if (isComparison(left)) return 0;
  if (IsTruth(table, left) != IsTruth(table, right)) return IsTruth(table, left) ? left : right;
  return 0;
}

// Marks the rows that a guard stands before, and gives every guard's subtree a rank that puts it
// ahead of what it guards. A rank is a place in a list; a guard's goes in right before that of the
// rows around it, behind those of the guards further out.
class GuardMarker {
 public:
  explicit GuardMarker(ExpressionTable& table) : table_(table) {}

  void Mark() {
    // Parents before their children, so that what holds for a row is handed down.
    for (auto at = table_.postfix.rbegin(); at != table_.postfix.rend(); ++at) {
      Row& row = table_.At(*at);
      if (row.argumentOf != 0) {
        row.guard = row.guard != 0 ? row.guard : table_.At(row.argumentOf).guard;
        if (list_[Place(*at)] == 0) list_[Place(*at)] = list_[Place(row.argumentOf)];
      }
      if (!IsProduct(row)) continue;
      const int guard = GuardOf(table_, row);
      if (guard != 0) Raise(guard, row);
    }
  }

  // For each row the place of its list in the order of evaluation.
  [[nodiscard]] std::array<int, kMaxRows + 1> Ranks() const {
    std::array<int, kMaxRows + 1> rankOfList{};
    int rank = 0;
    for (int list = first_; list != 0; list = next_[Place(list)]) rankOfList[Place(list)] = rank++;
    rankOfList[0] = rank;
    std::array<int, kMaxRows + 1> ranks{};
    for (std::size_t row = 1; row <= table_.rows.size(); ++row) {
      ranks[row] = rankOfList[Place(list_[row])];
    }
    return ranks;
  }

 private:
  void Raise(int guard, const Row& product) {
    Row& comparison = table_.At(guard);
    comparison.level += kGuardLevel;
    const int guarded = product.source[0] == guard ? product.source[1] : product.source[0];
    if (guarded != 0) table_.At(guarded).guard = static_cast<std::int16_t>(guard);
    table_.hasGuards = table_.hasGuards || guarded != 0;
    InsertBefore(guard, list_[Place(&product - table_.rows.data() + 1)]);
  }
  static std::size_t Place(std::ptrdiff_t number) { return static_cast<std::size_t>(number); }

  // A new list, named after the guard's row, before another; 0 is the last of all.
  void InsertBefore(int list, int other) {
    int previous = 0;
    for (int at = first_; at != other && at != 0; at = next_[Place(at)]) previous = at;
    next_[Place(list)] = other;
    (previous == 0 ? first_ : next_[Place(previous)]) = list;
    list_[Place(list)] = list;
  }

  ExpressionTable& table_;
  std::array<int, kMaxRows + 1> list_{};
  std::array<int, kMaxRows + 1> next_{};
  int first_ = 0;
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
