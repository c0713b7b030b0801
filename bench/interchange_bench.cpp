// Libraries of 100,000 curves compared and merged beside listing the files, and rows of 100,000
// points read and written, to stay below 100 ms.
#include <benchmark/benchmark.h>

#include <fstream>

#include "bench/in_turns.h"
#include "bench/library_file.h"
#include "bench/speed_reporter.h"
#include "interchange/curve_csv.h"
#include "interchange/curve_import.h"
#include "interchange/library_comparison.h"
#include "interchange/library_merge.h"
#include "tables/table_listing.h"

namespace {

using namespace zentab;
using namespace zentab::bench;
using interchange::LibraryText;

constexpr int kPoints = 100'000;
constexpr std::size_t kOneIn = 100;

// The shared library with every hundredth entry changed, and all entries in reverse order.
fs::path ChangedLibrary() {
  fs::path path = SharedLibrary().Folder() / "changed.dat";
  std::ofstream file(path, std::ios::binary);
  for (std::size_t number = kEntries; number-- > 0;) {
    tables::CurveTableEntry entry = EntryNumber(number);
    if (number % kOneIn == 0) entry.milliseconds = true;
    file << tables::FormatEntryLine(entry) << "\r\n";
  }
  return path;
}

void List(const fs::path& path) {
  tables::TableListing listing;
  Require(!tables::ListEntries(platform::SystemFiles(), path, listing));
  Require(listing.names.size() == kEntries);
}

LibraryText Read(const fs::path& path) {
  LibraryText text;
  Require(!LibraryText::Read(platform::SystemFiles(), path, text));
  return text;
}

void DiffFiles(benchmark::State& state) {
  const fs::path before = SharedLibrary().Path();
  const fs::path after = ChangedLibrary();
  const auto list = [&] {
    List(before);
    List(after);
  };
  const auto diff = [&] {
    interchange::ComparedFile one = {before, {}};
    interchange::ComparedFile two = {after, {}};
    std::vector<interchange::EntryDifference> differences;
    Require(!interchange::Compare(platform::SystemFiles(), one, two, differences));
    Require(differences.size() == kEntries / kOneIn);
  };
  InTurns(state, diff, {{"reading", list}}, 2.0);
}

void MergeFiles(benchmark::State& state) {
  const fs::path base = SharedLibrary().Path();
  const fs::path changed = ChangedLibrary();
  const auto list = [&] {
    List(base);
    List(base);
    List(changed);
  };
  const auto merge = [&] {
    const auto merged = interchange::Merge(Read(base), Read(base), Read(changed));
    Require(merged.conflicts.empty());
  };
  InTurns(state, merge, {{"reading", list}}, 6.0);
}

std::string Rows() {
  std::string rows = "Load [multiple];Time [s]\n";
  for (int point = 1; point <= kPoints; ++point) {
    rows += std::to_string(point) + ",125;" + std::to_string(2 * kPoints - point) + ",0625\n";
  }
  return rows;
}

void ReadRows(benchmark::State& state) {
  const std::string rows = Rows();
  for (auto _ : state) {
    const auto imported = interchange::ImportCurves(rows, {});
    Require(interchange::FaultOf(imported) == nullptr);
  }
  state.counters["most ms"] = 100.0;
}

// With what the curves' own thinning adds, which curves_bench times alone.
void ReadAndThinRows(benchmark::State& state) {
  const std::string rows = Rows();
  for (auto _ : state) {
    const auto imported = interchange::ImportCurves(rows, {});
    const auto& text = std::get<interchange::ImportedText>(imported);
    const auto points =
        interchange::PointsForTable(text.curves.front(), interchange::Surplus::Thin);
    Require(curves::FaultOf(points) == nullptr);
  }
}

void WriteRows(benchmark::State& state) {
  tables::CurveTableEntry entry = EntryNumber(0);
  for (auto _ : state) {
    std::string rows;
    for (std::size_t number = 0; number < kPoints / tables::kMaxPoints; ++number) {
      rows += interchange::CsvOf(entry, {});
    }
    benchmark::DoNotOptimize(rows);
  }
  state.counters["most ms"] = 100.0;
}

BENCHMARK(DiffFiles)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(MergeFiles)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(ReadRows)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndThinRows)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteRows)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
