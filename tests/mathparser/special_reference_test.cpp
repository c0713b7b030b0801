#include "special_reference.h"

#include <gtest/gtest.h>

#include <set>

namespace zentab::mathparser {
namespace {

TEST(SpecialFunctions, AgreeWithTheReferenceValues) {
  const auto references = ReadReferenceValues(MATHPARSER_DATA "special_reference.txt");
  std::set<std::string> keywords;
  for (const ReferenceValue& reference : references) {
    keywords.insert(reference.keyword);
    const double value = Computed(reference);
    EXPECT_LE(ErrorInTolerances(reference, value), 1.0)
        << reference.Text() << " is " << static_cast<double>(reference.value) << ", not " << value;
  }
  EXPECT_EQ(keywords.size(), 37U);
}

}  // namespace
}  // namespace zentab::mathparser
