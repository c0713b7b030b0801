// Copying 50,000 selected entries of a library of 100,000 into another file, flushed and not,
// beside plain copies of the library, all of which has to be read, and of the selected bytes alone.
// The counters are ratios of the medians; "most" is what they should stay below.

#include <benchmark/benchmark.h>

#include "bench/in_turns.h"
#include "bench/library_file.h"
#include "bench/speed_reporter.h"
#include "bench/unflushed_files.h"
#include "exchange/entry_copy.h"

namespace {

using namespace zentab;
using namespace zentab::bench;

enum Selection { EverySecond, SecondHalf };

std::vector<bool> Selected(Selection selection) {
  std::vector<bool> rows(kEntries);
  for (std::size_t row = 0; row < kEntries; ++row) {
    rows[row] = selection == EverySecond ? row % 2 == 1 : row >= kEntries / 2;
  }
  return rows;
}

void PlainCopy(const fs::path& from, bool flushed) {
  const fs::path plain = SharedLibrary().Folder() / "plain.dat";
  fs::remove(plain);
  CopyBytes(from, plain, flushed);
}

void CopySelected(benchmark::State& state, Selection selection, bool flushed) {
  UnflushedFiles unflushed;
  platform::FileLayer& files = flushed ? platform::SystemFiles() : unflushed;
  const fs::path library = SharedLibrary().Path();
  const fs::path copied = SharedLibrary().Folder() / "copied.dat";
  const fs::path selectedBytes = SharedLibrary().Folder() / "selected.dat";
  const std::vector<bool> rows = Selected(selection);
  tables::TableWriter writer(files, tables::Backups::None);
  tables::TableListing listing;
  Require(!tables::ListEntries(files, library, listing));
  fs::remove(selectedBytes);
  Require(exchange::CopyEntries(writer, library, listing, rows, selectedBytes).copied ==
          kEntries / 2);

  // Every copy is written into a fresh file; removing the last one is timed for all of them.
  InTurns(
      state,
      [&] {
        fs::remove(copied);
        Require(!exchange::CopyEntries(writer, library, listing, rows, copied).error);
      },
      {{"library", [&] { PlainCopy(library, flushed); }},
       {"selected", [&] { PlainCopy(selectedBytes, flushed); }}},
      1.5);
  state.counters["MB"] = static_cast<double>(fs::file_size(library)) / 1e6;
}

#define ZENTAB_COPY(name, ...)                       \
  BENCHMARK_CAPTURE(CopySelected, name, __VA_ARGS__) \
      ->UseManualTime()                              \
      ->Unit(benchmark::kMillisecond)                \
      ->Iterations(30)

ZENTAB_COPY(every_second, EverySecond, true);
ZENTAB_COPY(second_half, SecondHalf, true);
ZENTAB_COPY(every_second_unflushed, EverySecond, false);
ZENTAB_COPY(second_half_unflushed, SecondHalf, false);

}  // namespace

int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
