// The command-line companion as a program, beside what it is measured against:
//   list                of a library of 100,000 entries beside wc -l
//   eval --batch        300,000 short expressions; "per second" is to stay above 300,000
//   the start           "ms of CPU" of a call that does next to nothing, to stay below 3
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "bench/in_turns.h"
#include "bench/speed_reporter.h"

namespace {

namespace fs = std::filesystem;
using zentab::bench::InTurns;
using zentab::bench::Require;
using zentab::bench::Seconds;

class Scratch {
 public:
  Scratch() { fs::create_directories(folder_); }
  ~Scratch() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  [[nodiscard]] std::string File(const char* name) const { return (folder_ / name).string(); }

 private:
  fs::path folder_ = fs::temp_directory_path() / ("zentab-cli-bench-" + std::to_string(::getpid()));
};

const Scratch& Folder() {
  static const Scratch scratch;
  return scratch;
}

// As a script does: the start of the shell is part of what is timed.
void Run(const std::string& command) {
  Require(std::system(command.c_str()) == 0);  // NOLINT(cert-env33-c)
}

double ChildSeconds() {
  rusage usage{};
  ::getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void List(benchmark::State& state) {
  const std::string library = Folder().File("library.dat");
  std::ofstream file(library, std::ios::binary);
  for (int entry = 0; entry < 100'000; ++entry) {
    file << "{\"IEC SI TMS 0.10 Feeder " << entry << "\"\t";
    for (int point = 1; point <= 26; ++point)
      file << '(' << point << ".125;" << 99 - point << ".5)";
    file << " 011}\r\n";
  }
  Require(static_cast<bool>(file.flush()));
  InTurns(
      state, [&] { Run("exec " PROGRAM " list " + library + " >/dev/null"); },
      {{"wc -l", [&] { Run("exec wc -l " + library + " >/dev/null"); }}}, 3.0);
}

void EvalBatch(benchmark::State& state) {
  constexpr int kExpressions = 300'000;
  const std::string input = Folder().File("expressions.txt");
  std::ofstream file(input, std::ios::binary);
  for (int line = 0; line < kExpressions; ++line) {
    file << "0.14/((i/2)^0.02-1)*tms\ti=" << 3 + line % 50 << "\ttms=0." << 1 + line % 9 << '\n';
  }
  Require(static_cast<bool>(file.flush()));
  for (auto _ : state) {
    const double seconds =
        Seconds([&] { Run("exec " PROGRAM " eval --batch <" + input + " >/dev/null"); });
    state.SetIterationTime(seconds);
  }
  state.counters["per second"] =
      benchmark::Counter(kExpressions, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["least per second"] = 300'000.0;
}

void Start(benchmark::State& state) {
  const double before = ChildSeconds();
  for (auto _ : state) {
    state.SetIterationTime(Seconds([] { Run("exec " PROGRAM " eval 1 >/dev/null"); }));
  }
  state.counters["ms of CPU"] =
      (ChildSeconds() - before) * 1000.0 / static_cast<double>(state.iterations());
  state.counters["most ms of CPU"] = 3.0;
}

BENCHMARK(List)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(EvalBatch)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(Start)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(100);

}  // namespace

int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
