#include "editor/point_checks.h"

#include <algorithm>
#include <optional>

#include "editor/row_tools.h"
#include "texts/number_text.h"
#include "texts/template_text.h"

namespace zentab::editor {
namespace {

// Takes the rows one after the other.
class Checker {
 public:
  void Take(int row, std::string_view load, std::string_view time) {
    const std::optional<double> level = NumberOf(row, kLoadColumn, load, time);
    const std::optional<double> seconds = NumberOf(row, kTimeColumn, time, load);
    if (level) CheckLoad(row, *level);
    if (seconds && !(*seconds > 0.0)) Find(row, kTimeColumn, PointFault::NotPositive);
  }

  void Find(int row, int column, PointFault fault, int other = 0) {
    faults_.push_back({row, column, fault, other});
  }

  [[nodiscard]] std::vector<CellFault> Faults() && { return std::move(faults_); }

 private:
  struct Load {
    int row;
    double value;
  };

  std::optional<double> NumberOf(int row, int column, std::string_view cell,
                                 std::string_view otherHalf) {
    const std::optional<double> number = texts::WholeNumber(cell);
    const bool isMissing = cell.empty() && !otherHalf.empty();
    if (!number) Find(row, column, isMissing ? PointFault::Missing : PointFault::NoNumber);
    return number;
  }

  void CheckLoad(int row, double load) {
    if (!loads_.empty() && !(load > loads_.back().value)) {
      Find(row, kLoadColumn, PointFault::NotIncreasing);
    }
    const auto same = std::find_if(loads_.begin(), loads_.end(),
                                   [load](const Load& earlier) { return earlier.value == load; });
    if (same != loads_.end()) Find(row, kLoadColumn, PointFault::Doubled, same->row);
    loads_.push_back({row, load});
  }

  std::vector<CellFault> faults_;
  std::vector<Load> loads_;
};

const std::string& TemplateFor(const texts::PointTexts& texts, const CellFault& fault) {
  const bool isLoad = fault.column == kLoadColumn;
  switch (fault.fault) {
    case PointFault::NoNumber:
      return isLoad ? texts.loadNoNumber : texts.timeNoNumber;
    case PointFault::Missing:
      return isLoad ? texts.loadMissing : texts.timeMissing;
    case PointFault::NotIncreasing:
      return texts.loadNotIncreasing;
    case PointFault::Doubled:
      return texts.loadDoubled;
    case PointFault::NotPositive:
      return texts.timeNotPositive;
    case PointFault::Gap:
      break;
  }
  return texts.gap;
}

}  // namespace

std::vector<CellFault> FaultsOf(const CurveGrid& grid, std::string_view localeDecimalSeparator) {
  Checker checker;
  const int used = LastUsedRow(grid);
  for (int row = kFirstRow; row <= used; ++row) {
    const std::string& load = grid.Cell(row, kLoadColumn);
    const std::string& time = grid.Cell(row, kTimeColumn);
    if (load.empty() && time.empty()) {
      checker.Find(row, kLoadColumn, PointFault::Gap);
    } else {
      checker.Take(row, texts::FileNumber(load, localeDecimalSeparator),
                   texts::FileNumber(time, localeDecimalSeparator));
    }
  }
  return std::move(checker).Faults();
}

std::vector<CellFault> FaultsOf(const std::vector<tables::CurvePoint>& points) {
  Checker checker;
  int row = kFirstRow;
  for (const tables::CurvePoint& point : points) {
    checker.Take(row, point.load, point.time);
    ++row;
  }
  return std::move(checker).Faults();
}

std::string FaultText(const texts::PointTexts& texts, const CellFault& fault,
                      std::string_view cell) {
  const std::string other = std::to_string(fault.other);
  const bool namesRow = fault.fault == PointFault::Doubled;
  return texts::ExpandTemplate(TemplateFor(texts, fault), {}, {namesRow ? other : cell});
}

}  // namespace zentab::editor
