#include "app/kept_axes.h"

#include "app/form_values.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

using editor::ChartAxes;
using editor::LoadUnit;

class KeptAxesTest : public test::TemporaryFolder {
 protected:
  const test::Variable folder_{"ZENTAB_SETTINGS_DIR", Folder().string()};
  std::unique_ptr<platform::SettingsStore> store_ = platform::UserSettingsStore();
};

TEST_F(KeptAxesTest, EveryFileGetsItsOwnBackTheLatestOnesForEver) {
  const std::vector<ChartAxes> cases = {
      {},
      {{false, true}, LoadUnit::Multiples, {}, false, {}, true, true},
      {{true, false}, LoadUnit::Absolute, {{0.1, 40}}, true, {{1e-5, 2.5e20}}, false, false},
      {{true, true}, LoadUnit::AsInGrid, {}, true, {{-3, 0.25}}, false, true},
  };
  KeptAxes kept;
  for (std::size_t file = 0; file < KeptAxes::kMost + 2; ++file) {
    kept.Keep("C:\\a|b; = " + std::to_string(file), cases[file % cases.size()]);
    ASSERT_FALSE(kept.Save(*store_, "Zentab"));
  }
  const KeptAxes read = KeptAxes::Load(*store_, "Zentab");
  for (std::size_t file = 2; file < KeptAxes::kMost + 2; ++file) {
    EXPECT_EQ(read.Of("C:\\a|b; = " + std::to_string(file)), cases[file % cases.size()]) << file;
  }
  EXPECT_EQ(read.Of("C:\\a|b; = 1"), ChartAxes());
}

TEST_F(KeptAxesTest, WhatNobodyWroteIsPassedOver) {
  const char* const rows[] = {"",       "|a",           "000000|a",    "0000000 - -|a", "01 - -|a",
                              "11|a|b", "000000 - -|x", "000000  |a|", "000000 -|a"};
  for (const char* const row : rows) {
    ASSERT_FALSE(SaveForm(*store_, "Zentab", "Axes", {{"1", row}}));
    EXPECT_EQ(KeptAxes::Load(*store_, "Zentab").Of("a"), ChartAxes()) << row;
  }
  ASSERT_FALSE(SaveForm(*store_, "Zentab", "Axes", {{"1", "000019 5:5 1:x|a"}}));
  const ChartAxes damaged = KeptAxes::Load(*store_, "Zentab").Of("a");
  EXPECT_EQ(damaged, (ChartAxes{{false, false}, LoadUnit::AsInGrid, {}, false, {}, false, true}));
}

TEST_F(KeptAxesTest, AFormOfAnotherProgramIsReadAsFarAsItIsOne) {
  const std::pair<const char*, FormValues> cases[] = {
      {"{", {}}, {"[\"x\"]", {}}, {"{\"a\":7,\"b\":\"x\",\"c\":null}", {{"b", "x"}}}};
  for (const auto& [text, values] : cases) {
    ASSERT_FALSE(store_->Save("Zentab", "Dialogs", {{"Curve", text}}));
    EXPECT_EQ(LoadForm(*store_, "Zentab", "Curve"), values) << text;
  }
}

}  // namespace
}  // namespace zentab::app
