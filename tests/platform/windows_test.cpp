// The Windows side of the platform layer, on the real system.
#include <windows.h>
#undef ReplaceFile

#include <fstream>
#include <functional>
#include <thread>

#include "platform/ansi_code_page.h"
#include "platform/character_case.h"
#include "platform/file_errors.h"
#include "platform/locale_queries.h"
#include "platform/paths.h"
#include "platform/registry.h"
#include "platform/safe_file_replacement.h"
#include "platform/settings_store.h"
#include "platform/shared_library.h"
#include "support/simulated_modules.h"
#include "support/temporary_folder.h"
#include "support/waiting_file_layer.h"

namespace zentab::platform {
namespace {

constexpr const char* kKey = "Software\\ZentabTest";

class WindowsRegistryTest : public ::testing::Test {
 public:
  ~WindowsRegistryTest() override { RegDeleteTreeA(HKEY_CURRENT_USER, kKey); }

 protected:
  static void Set(const char* name, DWORD type, std::string_view bytes) {
    ASSERT_EQ(RegSetKeyValueA(HKEY_CURRENT_USER, kKey, name, type, bytes.data(),
                              static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
  }
  [[nodiscard]] static std::string Value(const char* name) {
    return SystemRegistry()->ReadRegistryValue(RootKey::CurrentUser, kKey, name).value_or("none");
  }
};

TEST_F(WindowsRegistryTest, GivesTextsAndNumbers) {
  using namespace std::string_view_literals;
  Set("text", REG_SZ, "C:\\MIRAX\0behind"sv);
  Set("open", REG_SZ, "C:\\no end");
  Set("ansi", REG_SZ,
      "C:\\Pr\xFC"
      "fger\xE4t");
  Set("empty", REG_SZ, "");
  Set("number", REG_DWORD, "\x1F\0\0\x80"sv);
  Set("longest", REG_SZ, std::string(1023, 'x') + '\0');
  Set("longer", REG_SZ, std::string(1024, 'x') + '\0');
  EXPECT_EQ(Value("text"), "C:\\MIRAX");
  EXPECT_EQ(Value("open"), "C:\\no end");
  EXPECT_EQ(Value("ansi"), "C:\\Pr\u00FCfger\u00E4t");
  EXPECT_EQ(Value("empty"), "");
  EXPECT_EQ(Value("number"), "2147483679");
  EXPECT_EQ(Value("longest").size(), 1023u);
  EXPECT_EQ(Value("longer"), "none");
  EXPECT_EQ(Value("missing"), "none");
  EXPECT_FALSE(SystemRegistry()->ReadRegistryValue(RootKey::LocalMachine, kKey, "text"));
}

// A key that each kind of program has for itself; the program's own comes first.
TEST(WindowsRegistryViews, AreThoseOfBothKindsOfPrograms) {
  constexpr const char* kSuite = "SOFTWARE\\ZentabTest";
  const auto found = [] {
    return SystemRegistry()->ReadRegistryValue(RootKey::LocalMachine, kSuite, "MIRAX");
  };
  for (const auto& [view, folder] :
       {std::pair<REGSAM, std::string>{KEY_WOW64_32KEY, "C:\\suite"}, {REGSAM{0}, "C:\\own"}}) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExA(HKEY_LOCAL_MACHINE, kSuite, 0, nullptr, 0, KEY_ALL_ACCESS | view,
                              nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExA(key, "MIRAX", 0, REG_SZ, reinterpret_cast<const BYTE*>(folder.c_str()),
                   static_cast<DWORD>(folder.size() + 1));
    RegCloseKey(key);
    EXPECT_EQ(found(), folder);
  }
  for (const REGSAM view : {REGSAM{KEY_WOW64_32KEY}, REGSAM{0}}) {
    RegDeleteKeyExA(HKEY_LOCAL_MACHINE, kSuite, view, 0);
  }
  EXPECT_FALSE(found());
}

TEST_F(WindowsRegistryTest, KeepsSettingsOfEveryAlphabet) {
  const auto store = UserSettingsStore();
  const std::string path = "C:\\\u00DCber\\\u53D8\u7535\u7AD9.dat";
  ASSERT_FALSE(store->Save("ZentabTest", "Settings", {{"TableName", path}, {"NomLoad1", ""}}));
  EXPECT_EQ(store->Read("ZentabTest", "settings", "TableName"), path);
  EXPECT_EQ(store->Read("ZentabTest", "Settings", "NomLoad1"), "");
  EXPECT_FALSE(store->Read("ZentabTest", "Settings", "AbsValues"));
}

TEST(WindowsTexts, PassThroughTheCodePageOfTheSystem) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(ToAnsi(FromAnsi(bytes)), bytes);
  EXPECT_EQ(FromAnsi("\xFC"), "\u00FC");
  EXPECT_FALSE(ToAnsi("\u53D8"));
  EXPECT_FALSE(ToAnsi("\xFF"));
  EXPECT_EQ(LowerCase("\u00DCBER \u0416"), "\u00FCber \u0436");
  EXPECT_TRUE(UserDecimalSeparator().has_value());
  EXPECT_NE(SystemLocaleIdentifier(), 0u);
  EXPECT_NE(MonthAbbreviation(11), MonthAbbreviation(12));
}

class WindowsFiles : public test::TemporaryFolder {
 public:
  ~WindowsFiles() override {
    std::filesystem::current_path(std::filesystem::temp_directory_path());
  }
};

TEST_F(WindowsFiles, HaveNamesOfEveryAlphabetAndAnyCase) {
  const auto name = ToPath("\u53D8\u7535 \u00DC.dat");
  std::ofstream(Folder() / name) << "x";
  EXPECT_EQ(test::BytesOf(FindFixedName(Folder(), "\u53D8\u7535 \u00FC.DAT")), "x");
  EXPECT_EQ(ToText(name), "\u53D8\u7535 \u00DC.dat");
  ASSERT_FALSE(ChangeCurrentFolder(Folder()));
  EXPECT_EQ(test::BytesOf(name), "x");
  EXPECT_TRUE(ChangeCurrentFolder(Folder() / "missing"));
  EXPECT_EQ(BaseName(ExecutablePath()), "zentab_tests");
}

TEST_F(WindowsFiles, AreReplacedInOneStepOrNotAtAll) {
  const auto file = Write("table.dat", "old");
  const auto replace = [&file](std::string_view bytes) {
    return ReplaceFile(SystemFiles(), file,
                       [bytes](OutputFile& output) { return output.Write(bytes); });
  };
  EXPECT_FALSE(replace("new"));
  EXPECT_EQ(test::BytesOf(file), "new");
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(replace("third"));
  EXPECT_EQ(test::BytesOf(file), "new");
  EXPECT_EQ(Names(), std::vector<std::string>{"table.dat"});
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
}

// Who shares everything, as this program's readers do, goes on reading the former content.
TEST_F(WindowsFiles, ThatOthersHaveOpenAreWaitedFor) {
  constexpr DWORD kAllSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  for (const DWORD sharing : {kAllSharing, DWORD{0}}) {
    const auto file = Write("table.dat", "old");
    HANDLE const held =
        CreateFileW(file.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    const auto replace = [&](std::function<bool()> goOn) {
      test::WaitingFileLayer files(std::move(goOn));
      return ReplaceFile(files, file, [](OutputFile& output) { return output.Write("new"); });
    };
    const std::error_code error = replace([] { return false; });
    char byte = 0;
    DWORD count = 0;
    EXPECT_NE(ReadFile(held, &byte, 1, &count, nullptr), 0);
    EXPECT_EQ(byte, 'o');
    if (sharing == 0) {
      EXPECT_EQ(error, FileError::OpenElsewhere);
      EXPECT_FALSE(replace([held] { return CloseHandle(held) != 0; }));
    } else {
      EXPECT_FALSE(error) << error.message();
      EXPECT_FALSE(replace([] { return false; })) << "while the former one is still read";
      CloseHandle(held);
    }
    EXPECT_EQ(test::BytesOf(file), "new");
    EXPECT_EQ(Names(), std::vector<std::string>{"table.dat"});
  }
}

// As a virus scanner keeps others out.
TEST_F(WindowsFiles, ThatNobodyMayReadAreAskedForAgain) {
  const auto file = Write("table.dat", "old");
  const auto open = [&file] {
    std::unique_ptr<InputFile> input;
    return SystemFiles().Open(file, input);
  };
  HANDLE const held =
      CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(open(), FileError::OpenElsewhere);
  std::thread scanner([held] {
    Sleep(100);
    CloseHandle(held);
  });
  EXPECT_FALSE(open());
  scanner.join();
}

// A file for its owner alone, where the folder hands down more.
TEST_F(WindowsFiles, KeepAccessListsOfTheirOwn) {
  const auto access = [](const std::filesystem::path& path, SECURITY_INFORMATION what) {
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), what, nullptr, 0, &size);
    std::vector<BYTE> bytes(size);
    EXPECT_NE(GetFileSecurityW(path.c_str(), what, bytes.data(), size, &size), 0);
    return bytes;
  };
  const auto file = Write("table.dat", "old");
  const auto common = access(file, DACL_SECURITY_INFORMATION);
  auto ownership = access(file, OWNER_SECURITY_INFORMATION);
  PSID owner = nullptr;
  BOOL isDefault = FALSE;
  ASSERT_NE(GetSecurityDescriptorOwner(ownership.data(), &owner, &isDefault), 0);
  std::vector<BYTE> list(256);
  const auto entries = reinterpret_cast<ACL*>(list.data());
  SECURITY_DESCRIPTOR mine;
  ASSERT_NE(InitializeAcl(entries, static_cast<DWORD>(list.size()), ACL_REVISION), 0);
  ASSERT_NE(AddAccessAllowedAce(entries, ACL_REVISION, FILE_ALL_ACCESS, owner), 0);
  ASSERT_NE(InitializeSecurityDescriptor(&mine, SECURITY_DESCRIPTOR_REVISION), 0);
  ASSERT_NE(SetSecurityDescriptorDacl(&mine, TRUE, entries, FALSE), 0);
  ASSERT_NE(SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, &mine), 0);
  const auto former = access(file, DACL_SECURITY_INFORMATION);
  ASSERT_NE(former, common);
  const auto write = [](OutputFile& output) { return output.Write("new"); };
  EXPECT_FALSE(ReplaceFile(SystemFiles(), file, write));
  EXPECT_FALSE(ReplaceFile(SystemFiles(), Folder() / "copy.dat", write, {nullptr, file, {}}));
  EXPECT_EQ(access(file, DACL_SECURITY_INFORMATION), former);
  EXPECT_EQ(access(Folder() / "copy.dat", DACL_SECURITY_INFORMATION), former);
}

TEST_F(WindowsFiles, ModulesExportTheDecoratedNamesAndNoOthers) {
  test::InstallSimulators(Folder());
  const std::pair<std::string_view, std::string_view> modules[] = {
      {test::kCurrentModule, "CURRENT__getIstartUp"},
      {test::kVoltageModule, "VOLTAGE__getUstartUp"}};
  for (const auto& [module, getStartUp] : modules) {
    const LoadedLibrary loaded = LoadSharedLibrary(Folder() / module);
    ASSERT_TRUE(loaded.library) << loaded.failure;
    EXPECT_TRUE(loaded.library->Find('_' + std::string(getStartUp) + "@0"));
    EXPECT_FALSE(loaded.library->Find(std::string(getStartUp)));
  }
  const LoadedLibrary none = LoadSharedLibrary(Folder() / "missing.dll");
  EXPECT_FALSE(none.library);
  EXPECT_NE(none.failure.find("missing.dll: "), std::string::npos);
}

}  // namespace
}  // namespace zentab::platform
