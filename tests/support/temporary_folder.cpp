#include "support/temporary_folder.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

namespace zentab::test {
namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    folder_ = fs::temp_directory_path() / ("zentab-test-" + std::to_string(random()));
  } while (!fs::create_directory(folder_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

fs::path TemporaryFolder::Write(std::string_view name, std::string_view bytes) const {
  fs::path file = folder_ / name;
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return file;
}

std::vector<std::string> TemporaryFolder::Names() const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder_)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string BytesOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return "(missing)";
  std::ostringstream bytes;
  if (stream.peek() != std::ifstream::traits_type::eof()) bytes << stream.rdbuf();
  return std::move(bytes).str();
}

}  // namespace zentab::test
