#include "platform/private_file.h"

#include <random>
#include <string>

#include "platform/file_layer.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

class WindowsPrivateFile final : public PrivateFile {
 public:
  explicit WindowsPrivateFile(fs::path path) : path_(std::move(path)) {}
  ~WindowsPrivateFile() override {
    // A temporary file that stays is the system's to remove.
    std::error_code dropped;
    fs::remove(path_, dropped);
  }
  WindowsPrivateFile(const WindowsPrivateFile&) = delete;
  WindowsPrivateFile& operator=(const WindowsPrivateFile&) = delete;

  [[nodiscard]] const fs::path& Path() const override { return path_; }

 private:
  fs::path path_;
};

}  // namespace

// The folder is the user's own, and its files have its access rights.
std::error_code WritePrivateFile(std::string_view bytes, std::unique_ptr<PrivateFile>& file) {
  std::error_code error;
  fs::path path = fs::temp_directory_path(error);
  if (error) return error;
  std::random_device random;
  std::string name = "zentab";
  for (int part = 0; part < 4; ++part) name += '-' + std::to_string(random());
  path /= name;
  std::unique_ptr<OutputFile> output;
  if ((error = SystemFiles().Create(path, {}, output))) return error;
  auto made = std::make_unique<WindowsPrivateFile>(path);
  error = output->Write(bytes);
  if (!error) error = output->Close();
  output.reset();
  if (!error) file = std::move(made);
  return error;
}

}  // namespace zentab::platform
