#include "testset/instrument_module.h"

#include <optional>
#include <system_error>

#include "platform/paths.h"
#include "platform/process_state.h"
#include "platform/shared_library.h"

#ifdef _WIN32
#define ZENTAB_MODULE_CALL __stdcall
#else
#define ZENTAB_MODULE_CALL
#endif

namespace zentab::testset {
namespace {

using OpenFilesFunction = std::int32_t(ZENTAB_MODULE_CALL*)(const char* dataFolder);
using GetStartUpFunction = float(ZENTAB_MODULE_CALL*)();
using CloseFilesFunction = std::int32_t(ZENTAB_MODULE_CALL*)();
using SetRefgraphFunction = std::int32_t(ZENTAB_MODULE_CALL*)(std::int32_t graph, const char* file);

#ifdef _WIN32
constexpr std::string_view kSuffix = ".DLL";
std::string ExportName(std::string_view decorated) { return std::string(decorated); }
#else
constexpr std::string_view kSuffix = ".so";
std::string ExportName(std::string_view decorated) {
  return std::string(decorated.substr(1, decorated.find('@') - 1));
}
#endif

struct Operations {
  OpenFilesFunction openFiles = nullptr;
  GetStartUpFunction getStartUp = nullptr;
  CloseFilesFunction closeFiles = nullptr;
  SetRefgraphFunction setRefgraph = nullptr;
};

// Every piece of a module's code runs in here, its start-up and its end included: in the
// installation folder, and whatever it does to the process is undone behind it.
template <typename Call>
auto CallModule(const std::filesystem::path& installFolder, const Call& call) {
  // One that is gone leaves the working folder as it is; the module then says what it misses.
  [[maybe_unused]] const std::error_code dropped = platform::ChangeCurrentFolder(installFolder);
  const platform::ProcessState kept;
  return call();
}

class LibraryModule final : public InstrumentModule {
 public:
  LibraryModule(std::unique_ptr<platform::SharedLibrary> library, const Operations& operations,
                std::filesystem::path installFolder)
      : library_(std::move(library)),
        operations_(operations),
        installFolder_(std::move(installFolder)) {}
  ~LibraryModule() override {
    CallModule(installFolder_, [this] { library_.reset(); });
  }
  LibraryModule(const LibraryModule&) = delete;
  LibraryModule& operator=(const LibraryModule&) = delete;

  std::int32_t OpenFiles(const std::string& dataFolder) override {
    return CallModule(installFolder_, [&] { return operations_.openFiles(dataFolder.c_str()); });
  }
  float GetStartUp() override {
    return CallModule(installFolder_, [this] { return operations_.getStartUp(); });
  }
  std::int32_t CloseFiles() override {
    return CallModule(installFolder_, [this] { return operations_.closeFiles(); });
  }
  std::int32_t SetRefgraph(const std::string& file) override {
    return CallModule(installFolder_, [&] { return operations_.setRefgraph(0, file.c_str()); });
  }

 private:
  std::unique_ptr<platform::SharedLibrary> library_;
  Operations operations_;
  std::filesystem::path installFolder_;
};

// Binds one export; its name when the library has none such.
template <typename Function>
std::optional<std::string> Bind(const platform::SharedLibrary& library, std::string_view decorated,
                                Function& function) {
  std::string name = ExportName(decorated);
  const platform::FunctionAddress address = library.Find(name);
  if (address == nullptr) return name;
  function = reinterpret_cast<Function>(address);
  return std::nullopt;
}

}  // namespace

LoadedModule LoadInstrumentModule(const InstrumentProfile& profile,
                                  const std::filesystem::path& installFolder) {
  const std::string name = std::string(profile.library).append(kSuffix);
  const std::filesystem::path installed = platform::FindFixedName(installFolder, name);
  std::error_code ignored;
  const bool isInstalled = std::filesystem::exists(installed, ignored);
  const std::filesystem::path file = isInstalled ? installed : platform::ToPath(name);
  platform::LoadedLibrary loaded =
      CallModule(installFolder, [&file] { return platform::LoadSharedLibrary(file); });
  if (!loaded.library) return {nullptr, std::move(loaded.failure)};

  Operations bound;
  std::optional<std::string> missing =
      Bind(*loaded.library, profile.exports.openFiles, bound.openFiles);
  if (!missing) missing = Bind(*loaded.library, profile.exports.getStartUp, bound.getStartUp);
  if (!missing) missing = Bind(*loaded.library, profile.exports.closeFiles, bound.closeFiles);
  if (!missing) missing = Bind(*loaded.library, profile.exports.setRefgraph, bound.setRefgraph);
  // Made in any case, so that one without them is unloaded with the same care.
  auto module = std::make_unique<LibraryModule>(std::move(loaded.library), bound, installFolder);
  if (missing) return {nullptr, platform::ToText(file) + ": " + *missing};
  return {std::move(module), {}};
}

}  // namespace zentab::testset
