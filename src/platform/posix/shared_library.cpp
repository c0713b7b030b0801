#include "platform/shared_library.h"

#include <dlfcn.h>

namespace zentab::platform {
namespace {

class PosixLibrary final : public SharedLibrary {
 public:
  explicit PosixLibrary(void* handle) : handle_(handle) {}
  ~PosixLibrary() override { ::dlclose(handle_); }
  PosixLibrary(const PosixLibrary&) = delete;
  PosixLibrary& operator=(const PosixLibrary&) = delete;

  FunctionAddress Find(const std::string& name) const override {
    // POSIX lets the address of a symbol be one of a function.
    return reinterpret_cast<FunctionAddress>(::dlsym(handle_, name.c_str()));
  }

 private:
  void* handle_;
};

}  // namespace

LoadedLibrary LoadSharedLibrary(const std::filesystem::path& path) {
  // Everything is bound now: what is missing shows here and not in the middle of a call.
  if (void* const handle = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    return {std::make_unique<PosixLibrary>(handle), {}};
  }
  const char* const reason = ::dlerror();
  return {nullptr, reason == nullptr ? path.string() : reason};
}

}  // namespace zentab::platform
