// The operations on a library of 100,000 curves beside what they are measured against, in turns:
//   replacing a line near the end   beside a plain copy of the file and a rename
//   listing all names               beside wc -l
//   reading a line near the end     beside wc -l
// The counters are ratios of the medians; "target" is what they should stay below.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "library_file.h"
#include "tables/entry_line.h"
#include "tables/table_library.h"
#include "unflushed_files.h"

namespace {

using namespace zentab;
using namespace zentab::bench;

constexpr std::size_t kNearEnd = kEntries - 10;

void PlainCopy(const fs::path& path, bool flushed) {
  const fs::path copy = path.string() + ".copy";
  CopyBytes(path, copy, flushed);
  fs::rename(copy, path);
  if (flushed) FlushFolder(path);
}

void WordCount(const fs::path& path) {
  std::string program = "wc", option = "-l", file = path.string();
  char* const arguments[] = {program.data(), option.data(), file.data(), nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  Require(::posix_spawnp(&child, "wc", &actions, nullptr, arguments, environ) == 0);
  int status = 0;
  Require(::waitpid(child, &status, 0) == child && status == 0);
  posix_spawn_file_actions_destroy(&actions);
}

void CountLineFeeds(const fs::path& path) {
  const int in = ::open(path.c_str(), O_RDONLY);
  const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
  std::ptrdiff_t lines = 0;
  while (const ssize_t count = ::read(in, block.get(), kBlock)) {
    Require(count > 0);
    lines += std::count(block.get(), block.get() + count, '\n');
  }
  ::close(in);
  Require(lines == static_cast<std::ptrdiff_t>(kEntries));
}

struct Yardstick {
  std::string name;
  std::function<void(const fs::path&)> work;
};

void InTurns(benchmark::State& state, const std::function<void(const fs::path&)>& work,
             const std::vector<Yardstick>& yardsticks, double target) {
  const fs::path path = SharedLibrary().Path();
  std::vector<double> own;
  std::vector<std::vector<double>> others(yardsticks.size());
  for (auto _ : state) {
    for (std::size_t i = 0; i < yardsticks.size(); ++i) {
      others[i].push_back(Seconds([&] { yardsticks[i].work(path); }));
    }
    own.push_back(Seconds([&] { work(path); }));
    state.SetIterationTime(own.back());
  }
  for (std::size_t i = 0; i < yardsticks.size(); ++i) {
    state.counters["x " + yardsticks[i].name] = Median(own) / Median(others[i]);
  }
  state.counters["target"] = target;
}

void ReplaceLine(benchmark::State& state, bool flushed) {
  UnflushedFiles unflushed;
  platform::FileLayer& files = flushed ? platform::SystemFiles() : unflushed;
  InTurns(
      state,
      [&files](const fs::path& path) {
        Require(!tables::ReplaceEntry(files, path, kNearEnd, EntryNumber(kNearEnd)));
      },
      {{"copy+rename", [flushed](const fs::path& path) { PlainCopy(path, flushed); }}}, 1.1);
}

const std::vector<Yardstick> kCounting = {{"wc -l", WordCount}, {"counting", CountLineFeeds}};

void ListNames(benchmark::State& state) {
  InTurns(
      state, [](const fs::path& path) { Require(tables::ListEntryNames(path).size() == kEntries); },
      kCounting, 3.0);
}

void ReadLineNearEnd(benchmark::State& state) {
  InTurns(
      state,
      [](const fs::path& path) { Require(tables::ReadEntryLine(path, kNearEnd).has_value()); },
      kCounting, 3.0);
}

BENCHMARK_CAPTURE(ReplaceLine, flushed, true)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(25);
BENCHMARK_CAPTURE(ReplaceLine, unflushed, false)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(40);
BENCHMARK(ListNames)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(60);
BENCHMARK(ReadLineNearEnd)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(60);

}  // namespace

BENCHMARK_MAIN();
