#include <exception>
#include <fstream>
#include <iostream>

#include "tools/demo_curves.h"

int main(int count, char** arguments) try {
  if (count != 2) {
    std::cerr << "usage: make_demo_library FILE\n";
    return 2;
  }
  std::ofstream file(arguments[1], std::ios::binary);
  file << zentab::tools::DemoLibrary() << std::flush;
  if (file) return 0;
  std::cerr << "make_demo_library: cannot write " << arguments[1] << '\n';
  return 1;
} catch (const std::exception& error) {
  std::cerr << "make_demo_library: " << error.what() << '\n';
  return 1;
}
