#include <algorithm>
#include <set>

#include "support/listed.h"
#include "support/temporary_folder.h"
#include "tables/table_listing.h"
#include "tools/demo_curves.h"
#include "tools/demo_time_test.h"

namespace zentab::tools {
namespace {

constexpr const char* kCheckedIn = DEMO_INSTALLATION "/relayTables.dat";
constexpr const char* kHowToMake = "run: make_demo_installation examples/installation";

TEST(DemoLibrary, IsWhatTheGeneratorMakes) {
  ASSERT_TRUE(test::BytesOf(kCheckedIn) == DemoLibrary()) << kHowToMake;
  std::vector<std::string> names;
  for (const auto& curve : DemoCurves()) names.push_back(curve.name);
  EXPECT_EQ(test::Listed(kCheckedIn).names, names);
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

// Worked out by hand, and as printed in relay manuals.
TEST(DemoLibrary, PointsAreThoseOfThePublishedCurves) {
  const std::string_view cases[][3] = {
      {"IEC SI TMS 1.00", "2", "10.03"},
      {"IEC SI TMS 1.00", "10", "2.971"},
      {"IEC VI TMS 1.00", "10", "1.5"},
      {"IEC EI TMS 1.00", "5", "3.333"},
      {"IEC LTI TMS 1.00", "5", "30"},
      {"IEC STI TMS 1.00", "10", "0.5183"},
      {"IEEE MI TD 1.0", "2", "3.803"},
      {"IEEE VI TD 2.0 51P Feeder 12", "2", "14.06"},
      {"IEEE EI TD 1.0 51P Recloser R-204", "10", "0.4065"},
      {"59 IDMT TMS 1.0", "1.25", "4"},
      {"27 IDMT TMS 0.5", "0.5", "1"},
      {"Überspannung U> 59-1", "200", "0.5"},
      {"50-1 Feeder 12 DT 300 ms", "10", "300"},
  };
  const std::vector<tables::CurveTableEntry> curves = DemoCurves();
  for (const auto& [name, load, time] : cases) {
    const auto curve =
        std::find_if(curves.begin(), curves.end(),
                     [&name = name](const auto& entry) { return entry.name == name; });
    ASSERT_NE(curve, curves.end()) << name;
    const tables::CurvePoint point = {std::string(load), std::string(time)};
    EXPECT_EQ(std::count(curve->points.begin(), curve->points.end(), point), 1) << name;
  }
}

TEST(DemoTimeTests, AreWhatTheGeneratorMakes) {
  const std::string data = DEMO_INSTALLATION "/data/";
  EXPECT_TRUE(test::BytesOf(data + "current/result.txt") == DemoCurrentResult()) << kHowToMake;
  EXPECT_TRUE(test::BytesOf(data + "voltage/result.txt") == DemoVoltageResult()) << kHowToMake;
}

}  // namespace
}  // namespace zentab::tools
