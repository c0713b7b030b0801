#include "texts/template_text.h"

#include <gtest/gtest.h>

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
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"%D %E Started", "20260307 09:05 Started"},
      {"%S", "09:05:01"},
      {"<%1|%2|%3>", "<one|%D|>"},
      {"%F", "C:\\%1.dat"},
      {"%G%N%X", "other\nmS"},
      {"%T %U %V", "1.5;2 Current A"},
      {"a%Ab%Bc%Cd%He%If%Jg%Kh", "abcdefgh"},
      {"100%% %%D", "100% %D"},
      {"%d %? %", "%d %? %"},
      {"%", "%"},
      {"", ""},
      {"Größe %V", "Größe A"},
  };
  for (const auto& [text, expanded] : cases) {
    EXPECT_EQ(ExpandTemplate(text, fields, {"one", "%D"}), expanded) << text;
  }
}

}  // namespace
}  // namespace zentab::texts
