#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace zentab::test {

/// A test with an empty folder of its own, which goes when the test ends; the working folder is
/// then the one it was.
class TemporaryFolder : public ::testing::Test {
 public:
  ~TemporaryFolder() override {
    std::error_code ignored;
    std::filesystem::current_path(workingFolder_, ignored);
    // Windows removes neither read-only files nor what a test holds open.
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_, ignored)) {
      std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_write,
                                   std::filesystem::perm_options::add, ignored);
    }
    std::filesystem::remove_all(folder_, ignored);
  }

 protected:
  explicit TemporaryFolder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path())
      : folder_(parent / ("zentab-test-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directory(folder_);
  }

  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }

  /// Writes a file of the folder; its full path.
  std::filesystem::path Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }

  /// The names of all that the folder holds, sorted.
  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::filesystem::path workingFolder_ = std::filesystem::current_path();
  std::filesystem::path folder_;
};

/// A file's bytes; "(missing)" when it cannot be opened.
[[nodiscard]] inline std::string BytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return "(missing)";
  std::ostringstream bytes;
  if (stream.peek() != std::ifstream::traits_type::eof()) bytes << stream.rdbuf();
  return std::move(bytes).str();
}

}  // namespace zentab::test
