#include "interchange/column_plan.h"

#include <algorithm>
#include <charconv>

#include "platform/character_case.h"

namespace zentab::interchange {
namespace {

// The columns that hold loads, and those that hold times.
class Roles {
 public:
  explicit Roles(const std::vector<BlockColumn>& columns) : columns_(columns) {
    for (const BlockColumn& column : columns) headings_.push_back(ReadHeading(column.heading));
  }

  void Guess(std::size_t load, std::size_t time) {
    times_ = time == kUnknownColumn ? Of(ColumnRole::Time) : std::vector{time};
    loads_ = load == kUnknownColumn ? Of(ColumnRole::Load) : std::vector{load};
    if (load != kUnknownColumn) std::erase(times_, load);
    if (time != kUnknownColumn) std::erase(loads_, time);
    if (loads_.empty()) GuessLoad();
    if (times_.empty()) times_ = Free();
    if (times_.empty() && loads_.size() > 1) {
      times_.assign(loads_.begin() + 1, loads_.end());
      loads_.erase(loads_.begin() + 1, loads_.end());
    }
  }

  [[nodiscard]] std::vector<CurveColumns> Curves() const {
    std::vector<CurveColumns> curves;
    if (loads_.empty()) return curves;
    for (std::size_t at = 0; at < times_.size(); ++at) {
      const std::size_t load = loads_.size() == times_.size() ? loads_[at] : LoadOf(times_[at]);
      curves.push_back({load, times_[at], headings_[load], headings_[times_[at]]});
    }
    return curves;
  }

 private:
  [[nodiscard]] std::vector<std::size_t> Of(ColumnRole role) const {
    std::vector<std::size_t> found;
    for (std::size_t at = 0; at < columns_.size(); ++at) {
      if (columns_[at].hasNumbers && headings_[at].role == role) found.push_back(at);
    }
    return found;
  }

  // Columns of numbers that are nothing else.
  [[nodiscard]] std::vector<std::size_t> Free() const {
    std::vector<std::size_t> found = Of(ColumnRole::Unknown);
    std::erase_if(found, [this](std::size_t at) {
      return std::ranges::count(loads_, at) + std::ranges::count(times_, at) > 0;
    });
    return found;
  }

  void GuessLoad() {
    const std::vector<std::size_t> free = Free();
    if (free.empty()) return;
    // Loads increase, times fall.
    const bool isSecond = times_.empty() && free.size() > 1 && !columns_[free[0]].increases &&
                          columns_[free[1]].increases;
    loads_ = {free[isSecond ? 1 : 0]};
  }

  // The nearest in front, else the first.
  [[nodiscard]] std::size_t LoadOf(std::size_t time) const {
    std::size_t load = loads_.front();
    for (const std::size_t at : loads_) {
      if (at < time) load = at;
    }
    return load;
  }

  const std::vector<BlockColumn>& columns_;
  std::vector<ColumnHeading> headings_;
  std::vector<std::size_t> loads_;
  std::vector<std::size_t> times_;
};

}  // namespace

std::size_t ColumnOf(const std::vector<BlockColumn>& columns, const std::string& wanted) {
  std::size_t number = 0;
  const char* const end = wanted.data() + wanted.size();
  const auto [at, error] = std::from_chars(wanted.data(), end, number);
  const bool isNumber = error == std::errc() && at == end && number >= 1;
  if (isNumber && number <= columns.size()) return number - 1;
  const std::string folded = platform::LowerCase(wanted);
  for (std::size_t column = 0; column < columns.size(); ++column) {
    const std::string heading = platform::LowerCase(columns[column].heading);
    const std::string name = platform::LowerCase(ReadHeading(columns[column].heading).name);
    const std::string bare = heading.substr(0, heading.find_first_of("([{"));
    if (heading == folded || name == folded || bare == folded || bare == folded + ' ') {
      return column;
    }
  }
  return columns.size();
}

std::vector<CurveColumns> PlanColumns(const std::vector<BlockColumn>& columns, std::size_t load,
                                      std::size_t time) {
  Roles roles(columns);
  roles.Guess(load, time);
  return roles.Curves();
}

}  // namespace zentab::interchange
