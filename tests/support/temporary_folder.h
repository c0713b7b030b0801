#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zentab::test {

/// A test with an empty folder of its own, which goes when the test ends.
class TemporaryFolder : public ::testing::Test {
 protected:
  TemporaryFolder();
  ~TemporaryFolder() override;

  [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }
  /// Writes a file of the folder; its full path.
  std::filesystem::path Write(std::string_view name, std::string_view bytes) const;
  /// The names of all that the folder holds, sorted.
  [[nodiscard]] std::vector<std::string> Names() const;

 private:
  std::filesystem::path folder_;
};

/// A file's bytes; "(missing)" when it cannot be opened.
[[nodiscard]] std::string BytesOf(const std::filesystem::path& file);

}  // namespace zentab::test
