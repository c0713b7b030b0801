#include "app/start_up.h"

#include "app/demo_copy.h"
#include "app/windowless_session.h"
#include "platform/paths.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace zentab::app {
namespace {

class FakeRegistry final : public platform::Registry {
 public:
  explicit FakeRegistry(std::optional<std::string> value) : value_(std::move(value)) {}
  std::optional<std::string> ReadRegistryValue(platform::RootKey root, std::string_view keyPath,
                                               std::string_view valueName) const override {
    const bool asked = root == platform::RootKey::LocalMachine &&
                       keyPath == "SOFTWARE\\HALDOR\\MIRAXWIN" && valueName == "MIRAX";
    return asked ? value_ : std::nullopt;
  }

 private:
  std::optional<std::string> value_;
};

TEST(StartUp, TheInstallationIsWhereTheRegistrySaysOrBesideTheProgram) {
  const std::filesystem::path executable = "/opt/suite/Zentab";
  const std::pair<std::optional<std::string>, std::filesystem::path> cases[] = {
      {"  /srv/mirax ", "/srv/mirax"},
      {" mirax ", "mirax"},
      {"", "/opt/suite"},
      {"    ", "/opt/suite"},
      {std::nullopt, "/opt/suite"}};
  for (const auto& [value, folder] : cases) {
    EXPECT_EQ(FindInstallFolder(FakeRegistry(value), executable),
              platform::ToText(std::filesystem::absolute(folder)))
        << value.value_or("none");
    const bool isKnown = value.value_or("").find_first_not_of(' ') != std::string::npos;
    EXPECT_NE(StartSession({}, FakeRegistry(value), executable).isWithoutSuite, isKnown);
  }
}

using StartUpFolder = test::TemporaryFolder;

TEST_F(StartUpFolder, ASessionBeginsInTheInstallationWithTheSettings) {
  const std::filesystem::path before = std::filesystem::current_path();
  const test::Variable locale("LC_ALL", "C");
  const FakeRegistry registry(platform::ToText(Folder()));
  for (const auto& [setting, absolute] :
       {std::pair("1", true), {" 1 ", true}, {"0", false}, {"2", false}, {"x", false}}) {
    std::filesystem::current_path(before);
    const Session session =
        StartSession({"my.dat", "2,5", setting, {}}, registry, "/opt/suite/Zentab2.exe");
    EXPECT_EQ(session.baseName, "Zentab2");
    EXPECT_EQ(session.installFolder, platform::ToText(Folder()));
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), Folder()));
    EXPECT_EQ(session.localeDecimalSeparator, ".");
    EXPECT_EQ(session.tablePath, "my.dat");
    EXPECT_EQ(session.modes.absoluteValues, absolute) << setting;
    EXPECT_EQ(session.modes.pickup, "2,5");
    EXPECT_FALSE(session.isWithoutSuite);
  }
  const Session windowless = WindowlessSession({}, registry, "/opt/suite/Zentab", {});
  EXPECT_EQ(windowless.texts.instruments[1].name, "Current");
  EXPECT_EQ(windowless.texts.instruments[2].name, "Voltage");
  Write("FCC.TXT", "F1.INSTRUMENT2.TEXT {&Spannung}\n");
  const auto spoken = Write("sv.txt", "F1.INSTRUMENT1.TEXT {S&tröm}\nTIMEOUT.VALUE {7}\n");
  const Session other = WindowlessSession({}, registry, "/opt/suite/Zentab", spoken);
  EXPECT_EQ(other.texts.instruments[1].name + other.texts.import.timeout, "Ström");
  EXPECT_EQ(other.texts.instruments[2].name, "Spannung");
}

#ifndef _WIN32
TEST_F(StartUpFolder, TheDemoIsCopiedToWhereTheRegistryFindsIt) {
  const std::filesystem::path executable = Folder() / "bin" / "Zentab";
  const std::filesystem::path scratch = Folder() / "scratch";
  EXPECT_EQ(CopyDemo(executable, scratch), std::errc::no_such_file_or_directory);
  EXPECT_FALSE(HasDemo(executable));
  for (const char* const folder : {"share", "bin", "bin/instruments"}) {
    std::filesystem::create_directories(Folder() / folder);
  }
  // A package keeps it elsewhere.
  std::filesystem::create_directory_symlink("../share", Folder() / "bin" / "demo");
  Write("share/relayTables.dat", "table");
  Write("bin/instruments/CURR_API.so", "module");
  EXPECT_TRUE(HasDemo(executable));
  Write("bin/settings", "no folder");
  EXPECT_TRUE(CopyDemo(executable, Folder() / "bin"));
  ASSERT_FALSE(CopyDemo(executable, scratch));
  const test::Variable folder("ZENTAB_REGISTRY_DIR", (scratch / "registry").string());
  const std::filesystem::path found = FindInstallFolder(*platform::SystemRegistry(), executable);
  EXPECT_EQ(found, scratch / "installation");
  EXPECT_EQ(test::BytesOf(found / "relayTables.dat"), "table");
  EXPECT_EQ(test::BytesOf(found / "CURR_API.so"), "module");
}
#endif

TEST(StartUp, TheDecimalSeparatorIsCleanedOfWhatTheSystemAdds) {
  const std::pair<std::optional<std::string>, std::string_view> cases[] = {
      {".", "."},   {",", ","},          {" , ", ","}, {".\x01", "."},
      {"::", "::"}, {std::nullopt, ","}, {"", ","},
  };
  for (const auto& [item, separator] : cases) {
    EXPECT_EQ(DecimalSeparatorFrom(item), separator) << item.value_or("none");
  }
}

TEST(StartUp, CataloguesComeInAFixedOrder) {
  const auto names = [](const char* executable) {
    std::string all;
    for (const auto& file : CatalogueCandidates("/inst", executable))
      all += file.generic_string() + " ";
    return all;
  };
  EXPECT_EQ(names("/bin/Zentab"),
            "/inst/Zentab.dxt /inst/FCC.TXT /bin/Zentab.txt /inst/Zentab1.txt /inst/Zentab2.txt ");
  EXPECT_TRUE(names("/bin/my.tool").starts_with("/inst/my.tool.dxt "));
  EXPECT_EQ(names("/bin/Zentab2.EXE"),
            "/inst/Zentab.dxt /inst/FCC.TXT /inst/Zentab.txt /inst/Zentab1.txt /inst/Zentab2.txt ");
}

}  // namespace
}  // namespace zentab::app
