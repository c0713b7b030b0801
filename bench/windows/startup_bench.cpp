// Times the editor's start to its first painted window beside an empty main window, in turn.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/speed_line.h"

namespace {

struct Times {
  double wall;
  double cpu;
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Times Run(const std::string& program) {
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "%s failed\n", program.c_str());
    std::exit(1);
  }
  return {wall.count(), Seconds(usage.ru_utime) + Seconds(usage.ru_stime)};
}

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int, char* argv[]) {
  constexpr int kRounds = 25;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const std::filesystem::path folder = std::filesystem::path(argv[0]).parent_path();
  const std::string empty = folder / "bench_empty_window";
  const std::string editor = folder / "bench_editor_window";
  Run(empty);
  Run(editor);
  std::vector<double> wall[2];
  std::vector<double> cpu[2];
  std::vector<double> ratios;
  for (int round = 0; round < kRounds; ++round) {
    const Times a = Run(empty);
    const Times b = Run(editor);
    wall[0].push_back(a.wall);
    wall[1].push_back(b.wall);
    cpu[0].push_back(a.cpu);
    cpu[1].push_back(b.cpu);
    ratios.push_back(b.wall / a.wall);
  }
  std::printf("to the first painted window, medians of %d starts\n", kRounds);
  std::printf("empty main window  %6.1f ms wall  %6.1f ms CPU\n", 1e3 * Median(wall[0]),
              1e3 * Median(cpu[0]));
  std::printf("editor             %6.1f ms wall  %6.1f ms CPU\n", 1e3 * Median(wall[1]),
              1e3 * Median(cpu[1]));
  std::printf("ratio              %6.2f (median of pairs)\n", Median(ratios));
  zentab::bench::PrintSpeedLine("Start to the first painted window", "x empty window",
                                Median(ratios));
  return 0;
}
