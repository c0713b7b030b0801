#include "texts/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zentab::texts {
namespace {

TEST(NumberText, ReadsTheLongestLeadingNumber) {
  const struct {
    std::string_view text;
    std::optional<double> leading;
    bool whole;
  } cases[] = {
      {"2.5", 2.5, true},    {"  -1.5 ", -1.5, true},   {"+3", 3.0, true},
      {".5", 0.5, true},     {"5.", 5.0, true},         {"-.25", -0.25, true},
      {"1E-05", 1e-5, true}, {"1e3", 1000.0, true},     {"1.5E+20", 1.5e20, true},
      {"1E", 1.0, false},    {"1E+", 1.0, false},       {"2.5.7", 2.5, false},
      {"2,5", 2.0, false},   {"1.234.5", 1.234, false}, {"12abc", 12.0, false},
      {"0x10", 0.0, false},  {"1 2", 1.0, false},       {"1E-400", 0.0, true},
      {"1E400", {}, false},  {"", {}, false},           {"   ", {}, false},
      {".", {}, false},      {"-", {}, false},          {"--1", {}, false},
      {"abc", {}, false},    {"inf", {}, false},        {"nan", {}, false},
      {"\t1", {}, false},    {"e5", {}, false},         {std::string_view("1\0002", 3), 1.0, false},
  };
  for (const auto& [text, leading, whole] : cases) {
    EXPECT_EQ(LeadingNumber(text), leading) << text;
    EXPECT_EQ(WholeNumber(text), whole ? leading : std::nullopt) << text;
  }
}

TEST(NumberText, WritesFifteenDigitsAndScientificFormOnlyFarOut) {
  const struct {
    double number;
    std::string_view text;
  } cases[] = {
      {0.0, "0"},
      {-0.0, "0"},
      {1.5, "1,5"},
      {-10.0, "-10"},
      {0.1 + 0.2, "0,3"},
      {1.0 / 3.0, "0,333333333333333"},
      {100.0 / 3.0, "33,3333333333333"},
      {1234567890.5, "1234567890,5"},
      {0.0001, "0,0001"},
      {-0.000123456, "-0,000123456"},
      {0.00009999, "9,999E-05"},
      {0.00001, "1E-05"},
      {1e-100, "1E-100"},
      {999999999999999.0, "999999999999999"},
      {999999999999999.9, "1E+15"},
      {1e15, "1E+15"},
      {-1.5e20, "-1,5E+20"},
      {std::numeric_limits<double>::max(), "1,79769313486232E+308"},
      {std::numeric_limits<double>::denorm_min(), "4,94065645841247E-324"},
  };
  for (const auto& [number, text] : cases) EXPECT_EQ(NumberText(number, ","), text);
}

TEST(NumberText, ReplacesOnlyTheFirstSeparator) {
  const std::string_view cases[][3] = {
      {"2,5", ".", "2.5"},         {"2.5", ",", "2,5"}, {"1,234.5", ".", "1.234.5"},
      {"1.234,5", ".", "1.234.5"}, {"25", ",", "25"},   {"", ".", ""},
      {"1.2.3", ",", "1,2.3"},     {",", "::", "::"},
  };
  for (const auto& [text, separator, expected] : cases) {
    EXPECT_EQ(SetDecimalSeparator(text, separator), expected) << text;
  }
}

TEST(NumberText, RoundsHalvesToTheEvenDigitThatTheUserSees) {
  const struct {
    double number;
    double rounded;
  } cases[] = {
      {1.2345, 1.234},   {1.2355, 1.236},   {1.0015, 1.002},    {0.0005, 0.0},    {0.0015, 0.002},
      {-0.0025, -0.002}, {-1.2355, -1.236}, {1.23449, 1.234},   {1.23451, 1.235}, {2.0, 2.0},
      {0.9996, 1.0},     {1e15, 1e15},      {1.5e300, 1.5e300}, {1e-9, 0.0},      {2.675, 2.675},
  };
  for (const auto& [number, rounded] : cases)
    EXPECT_EQ(RoundHalfEven(number, 3), rounded) << number;
}

TEST(NumberText, TrimsBlanksButNoTabs) {
  EXPECT_EQ(TrimBlanks("  a b  "), "a b");
  EXPECT_EQ(TrimBlanks("\t a"), "\t a");
  EXPECT_EQ(TrimBlanks("   "), "");
}

}  // namespace
}  // namespace zentab::texts
