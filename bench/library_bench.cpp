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
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <vector>

#include "bench/in_turns.h"
#include "platform/file_layer.h"
#include "tables/entry_line.h"
#include "tables/table_library.h"

namespace {

namespace fs = std::filesystem;
using namespace zentab;
using bench::InTurns;
using bench::Require;

constexpr std::size_t kEntries = 100'000;
constexpr std::size_t kNearEnd = kEntries - 10;
constexpr std::size_t kBlock = 256u << 10;

tables::CurveTableEntry EntryNumber(std::size_t number) {
  tables::CurveTableEntry entry = {"IEC SI TMS 0.10 Feeder " + std::to_string(number),
                                   {},
                                   false,
                                   true,
                                   tables::Instrument::Current};
  for (int point = 1; point <= 26; ++point) {
    entry.points.push_back({std::to_string(point) + ".125", std::to_string(100 - point) + ".0625"});
  }
  return entry;
}

class Library {
 public:
  Library() : folder_(fs::temp_directory_path() / ("zentab-bench-" + std::to_string(::getpid()))) {
    fs::create_directories(folder_);
    std::ofstream file(Path(), std::ios::binary);
    for (std::size_t number = 0; number < kEntries; ++number) {
      file << tables::FormatEntryLine(EntryNumber(number)) << "\r\n";
    }
  }
  ~Library() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  [[nodiscard]] fs::path Path() const { return folder_ / "relayTables.dat"; }

 private:
  fs::path folder_;
};

const Library& SharedLibrary() {
  static const Library library;
  return library;
}

// The system's files without the flush to the device.
class UnflushedFile final : public platform::OutputFile {
 public:
  explicit UnflushedFile(std::unique_ptr<OutputFile> file) : file_(std::move(file)) {}
  std::error_code Write(std::string_view bytes) override { return file_->Write(bytes); }
  std::error_code Flush() override { return {}; }
  std::error_code Size(std::uint64_t& size) override { return file_->Size(size); }
  std::error_code Truncate(std::uint64_t size) override { return file_->Truncate(size); }
  std::error_code Close() override { return file_->Close(); }

 private:
  std::unique_ptr<OutputFile> file_;
};

class UnflushedFiles final : public platform::FileLayer {
 public:
  std::error_code Create(const fs::path& path, const fs::path& like,
                         std::unique_ptr<platform::OutputFile>& file) override {
    const std::error_code error = platform::SystemFiles().Create(path, like, file);
    if (!error) file = std::make_unique<UnflushedFile>(std::move(file));
    return error;
  }
  std::error_code OpenForAppending(const fs::path& path,
                                   std::unique_ptr<platform::OutputFile>& file) override {
    return platform::SystemFiles().OpenForAppending(path, file);
  }
  std::error_code MoveOver(const fs::path& from, const fs::path& to) override {
    std::error_code error;
    fs::rename(from, to, error);
    return error;
  }
  std::error_code Remove(const fs::path& path) override {
    return platform::SystemFiles().Remove(path);
  }
};

void PlainCopy(const fs::path& path, bool flushed) {
  const fs::path copy = path.string() + ".copy";
  const int in = ::open(path.c_str(), O_RDONLY);
  const int out = ::open(copy.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
  Require(in >= 0 && out >= 0);
  const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
  while (const ssize_t count = ::read(in, block.get(), kBlock)) {
    Require(count > 0 && ::write(out, block.get(), static_cast<std::size_t>(count)) == count);
  }
  if (flushed) Require(::fsync(out) == 0);
  ::close(in);
  ::close(out);
  fs::rename(copy, path);
  if (!flushed) return;
  const int folder = ::open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY);
  Require(folder >= 0 && ::fsync(folder) == 0);
  ::close(folder);
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
  InTurns(
      state, [&] { Require(!tables::ReplaceEntry(files, path, kNearEnd, EntryNumber(kNearEnd))); },
      {{"copy+rename", [&] { PlainCopy(path, flushed); }}}, 1.1);
}

void BesideCounting(benchmark::State& state, const std::function<void(const fs::path&)>& work) {
  const fs::path path = SharedLibrary().Path();
  InTurns(
      state, [&] { work(path); },
      {{"wc -l", [&] { WordCount(path); }}, {"counting", [&] { CountLineFeeds(path); }}}, 3.0);
}

void ListNames(benchmark::State& state) {
  BesideCounting(state, [](const fs::path& path) {
    Require(tables::ListEntryNames(path).size() == kEntries);
  });
}

void ReadLineNearEnd(benchmark::State& state) {
  BesideCounting(state, [](const fs::path& path) {
    Require(tables::ReadEntryLine(path, kNearEnd).has_value());
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

BENCHMARK_MAIN();
