#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zentab::timetest {

/// The sums of all windows of so many numbers that follow one another, bit for bit those of adding
/// each window's numbers from the first to the last, in a time that hardly depends on the width.
///
/// As long as such a sum stays between two powers of two, every number adds to it a multiple of the
/// sum's last binary digit, to which it is rounded whatever the sum is; only of two multiples at
/// the same distance the sum decides. So one table of rounded numbers added up, for each power of
/// two, serves all windows: a sum takes one step to the next power of two or to the next number
/// that lies in the middle, and is rounded there as the processor does.
class WideSums {
 public:
  /// The widest window. The numbers of wider ones would overflow the tables.
  static constexpr std::size_t kWidest = 32767;
  /// Whether sums of such numbers, all of them from 0 up, can be told.
  [[nodiscard]] static bool CanAdd(const std::vector<double>& numbers, std::size_t width);

  /// `numbers` is kept, not copied; `width` is at most kWidest.
  WideSums(const std::vector<double>& numbers, std::size_t width);

  /// The sum of the window that begins at `first`, infinite where it is beyond the range of a
  /// double. Windows are asked for in rising order.
  [[nodiscard]] double Of(std::size_t first);

 private:
  // The numbers of a block as multiples of the last digit of sums with one exponent.
  struct Level {
    std::vector<std::uint64_t> before;    // the multiples of all numbers in front, added up
    std::vector<std::uint32_t> nextStop;  // the place of the next number that is no such multiple
    std::size_t lastEnd = 0;              // where the window before left the level
    bool isMade = false;
  };

  void Begin(std::size_t first);
  Level& LevelOf(unsigned exponent);
  void MakeLevel(Level& level, unsigned exponent) const;

  const std::vector<double>& numbers_;
  std::size_t width_;
  std::size_t begin_ = 0;  // of the block, which has the windows from here up to end_
  std::size_t end_ = 0;
  std::size_t length_ = 0;     // of the block, in numbers
  std::vector<double> heads_;  // the sums of the windows' first numbers
  std::vector<Level> levels_;  // by the biased exponent of the sum
};

}  // namespace zentab::timetest
