#include "texts/template_text.h"

#include <gtest/gtest.h>

#include "support/cases.h"

namespace zentab::texts {
namespace {

TEST(ExpandTemplate, FillsInEveryFieldOnce) {
  TemplateFields fields;
  fields.now.tm_year = 126;
  fields.now.tm_mon = 2;
  fields.now.tm_mday = 7;
  fields.now.tm_hour = 9;
  fields.now.tm_min = 5;
  fields.now.tm_sec = 1;
  fields.tablePath = "C:\\%1.dat";
  fields.exchangeFile = "other";
  fields.timeUnit = "mS";
  fields.loadLevels = "1.5;2";
  fields.instrumentName = "Current";
  fields.instrumentUnit = "A";
  for (const auto& row : test::Cases("texts.txt", "templates")) {
    EXPECT_EQ(ExpandTemplate(row[0], fields, {"one", "%D"}), row[1]) << row[0];
  }
}

}  // namespace
}  // namespace zentab::texts
