// The operations on a library of 100,000 curves beside what they are measured against:
//   replacing a line near the end   beside a plain copy of the file and a rename
//   listing all names               beside wc -l
//   reading a line near the end     beside wc -l

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "bench/in_turns.h"
#include "bench/library_file.h"
#include "bench/speed_reporter.h"
#include "bench/unflushed_files.h"
#include "tables/table_writer.h"

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

void ReplaceLine(benchmark::State& state, bool flushed) {
  UnflushedFiles unflushed;
  platform::FileLayer& files = flushed ? platform::SystemFiles() : unflushed;
  const fs::path path = SharedLibrary().Path();
  tables::TableWriter writer(files, tables::Backups::None);
  tables::TableListing listing;
  Require(!tables::ListEntries(files, path, listing));
  tables::EntryMark mark = listing.MarkOf(kNearEnd);
  InTurns(
      state, [&] { Require(!writer.ReplaceEntry(path, listing, mark, EntryNumber(kNearEnd))); },
      {{"copy+rename",
        [&] {
          PlainCopy(path, flushed);
          // The copy is what the listing is of.
          Require(!files.StampOf(path, listing.stamp));
        }}},
      1.1);
}

void BesideCounting(benchmark::State& state, const std::function<void(const fs::path&)>& work) {
  const fs::path path = SharedLibrary().Path();
  InTurns(
      state, [&] { work(path); },
      {{"wc -l", [&] { WordCount(path); }}, {"counting", [&] { CountLineFeeds(path); }}}, 3.0);
}

void ListNames(benchmark::State& state) {
  BesideCounting(state, [](const fs::path& path) {
    tables::TableListing listing;
    Require(!tables::ListEntries(platform::SystemFiles(), path, listing));
    Require(listing.names.size() == kEntries);
  });
}

void ReadLineNearEnd(benchmark::State& state) {
  platform::FileLayer& files = platform::SystemFiles();
  tables::TableListing listing;
  Require(!tables::ListEntries(files, SharedLibrary().Path(), listing));
  tables::EntryMark mark = listing.MarkOf(kNearEnd);
  std::string line;
  BesideCounting(state, [&](const fs::path& path) {
    Require(!tables::ReadEntryLine(files, path, listing, mark, line));
  });
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

int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
