#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "tools/demo_curves.h"
#include "tools/demo_time_test.h"

namespace {

void Write(const std::filesystem::path& path, const std::string& bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << bytes << std::flush;
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace

int main(int count, char** arguments) try {
  if (count != 2) {
    std::cerr << "usage: make_demo_installation FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder = arguments[1];
  Write(folder / "relayTables.dat", zentab::tools::DemoLibrary());
  Write(folder / "data/current/result.txt", zentab::tools::DemoCurrentResult());
  Write(folder / "data/voltage/result.txt", zentab::tools::DemoVoltageResult());
  return 0;
} catch (const std::exception& error) {
  std::cerr << "make_demo_installation: " << error.what() << '\n';
  return 1;
}
