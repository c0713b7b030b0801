#include "platform/private_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

#include "platform/posix/last_error.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

class PosixPrivateFile final : public PrivateFile {
 public:
  PosixPrivateFile(int descriptor, std::string name)
      : descriptor_(descriptor), name_(std::move(name)), path_(name_) {}
  ~PosixPrivateFile() override {
    if (!name_.empty()) ::unlink(name_.c_str());
    ::close(descriptor_);
  }
  PosixPrivateFile(const PosixPrivateFile&) = delete;
  PosixPrivateFile& operator=(const PosixPrivateFile&) = delete;

  [[nodiscard]] const fs::path& Path() const override { return path_; }

  std::error_code Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return LastError();
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
  }

  // A file that is open is still reached by its descriptor's name, and needs no other that a
  // process which is killed would leave behind.
  void GiveUpName() {
    const std::string opened = "/proc/self/fd/" + std::to_string(descriptor_);
    struct stat named {};
    struct stat held {};
    const bool isReached = ::stat(opened.c_str(), &named) == 0 &&
                           ::fstat(descriptor_, &held) == 0 && named.st_dev == held.st_dev &&
                           named.st_ino == held.st_ino;
    if (!isReached || ::unlink(name_.c_str()) != 0) return;
    name_.clear();
    path_ = opened;
  }

 private:
  int descriptor_;
  std::string name_;  // in the folder, as long as it has one
  fs::path path_;
};

}  // namespace

std::error_code WritePrivateFile(std::string_view bytes, std::unique_ptr<PrivateFile>& file) {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (error) return error;
  std::string name = (fs::absolute(folder) / "zentab-XXXXXX").string();
  const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
  if (descriptor < 0) return LastError();
  auto made = std::make_unique<PosixPrivateFile>(descriptor, std::move(name));
  made->GiveUpName();
  if ((error = made->Write(bytes))) return error;
  file = std::move(made);
  return {};
}

}  // namespace zentab::platform
