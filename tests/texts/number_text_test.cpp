#include "texts/number_text.h"

#include <cstdlib>
#include <random>

#include "support/cases.h"

namespace zentab::texts {
namespace {

using test::Cases;

double Number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

TEST(NumberText, ReadsTheLongestLeadingNumber) {
  for (const auto& row : Cases("numbers.txt", "read")) {
    const auto leading = row[1] == "none" ? std::nullopt : std::optional(Number(row[1]));
    EXPECT_EQ(LeadingNumber(row[0]), leading) << row[0];
    EXPECT_EQ(WholeNumber(row[0]), row[2] == "whole" ? leading : std::nullopt) << row[0];
  }
}

// Numbers of few digits, as most are, and of a few more.
TEST(NumberText, ReadsTheNearestDouble) {
  std::mt19937_64 random(5);
  for (int round = 0; round < 20'000; ++round) {
    std::string text = std::to_string(random() >> (random() % 64));
    text.insert(static_cast<std::size_t>(random() % (text.size() + 1)), ".");
    if (round % 5 == 0) text.insert(0, "-000");
    ASSERT_EQ(WholeNumber(text), Number(text)) << text;
    ASSERT_EQ(LeadingNumber(text + "E+x"), Number(text)) << text;
  }
}

TEST(NumberText, WritesFifteenDigitsAndScientificFormOnlyFarOut) {
  for (const auto& row : Cases("numbers.txt", "write")) {
    EXPECT_EQ(NumberText(Number(row[0]), ","), row[1]);
  }
}

TEST(NumberText, WritesAsManyDigitsAsAreWanted) {
  for (const auto& row : Cases("numbers.txt", "fixed")) {
    EXPECT_EQ(FixedText(Number(row[0]), std::stoi(row[1])), row[2]) << row[0];
  }
  for (const auto& row : Cases("numbers.txt", "short")) {
    EXPECT_EQ(ShortText(Number(row[0]), Number(row[1]), ","), row[2]) << row[0];
  }
}

TEST(NumberText, ReplacesOnlyTheFirstSeparator) {
  for (const auto& row : Cases("numbers.txt", "separator")) {
    EXPECT_EQ(SetDecimalSeparator(row[0], row[1]), row[2]) << row[0];
  }
}

TEST(NumberText, RoundsHalvesToTheEvenDigitThatTheUserSees) {
  for (const auto& row : Cases("numbers.txt", "round")) {
    EXPECT_EQ(RoundHalfEven(Number(row[0]), 3), Number(row[1])) << row[0];
  }
}

}  // namespace
}  // namespace zentab::texts
