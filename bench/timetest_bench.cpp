// The import of a time test with 1,000,000 points, all stages (built-in measure and filter, mean
// over 5), beside what it is measured against:
//   the whole import      beside reading the file and converting its two columns
//   twice the points      beside the whole import
//   a value equation      beside the whole import
//   a mean over 20,000    beside the whole import
//   previews of a change  beside reading the points
// "bytes a point" is how far the process grows while it imports.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <cstring>
#include <filesystem>
#include <string>
#include <utility>

#include "bench/in_turns.h"
#include "bench/result_file.h"
#include "bench/speed_reporter.h"
#include "timetest/import_pipeline.h"

namespace {

namespace fs = std::filesystem;
using namespace zentab;
using bench::InTurns;
using bench::Require;
using bench::ResultFile;

constexpr int kPoints = 1'000'000;

// Times that scatter like those of a relay.
double Scattered(int point, double time) { return time + (point % 1000 * 7919 % 1000) / 100.0; }

const timetest::ResultSource& Single() {
  static const ResultFile file(kPoints, 3, Scattered);
  static const timetest::ResultSource source = file.Source();
  return source;
}

const timetest::ResultSource& Twice() {
  static const ResultFile file(2 * kPoints, 3, Scattered);
  static const timetest::ResultSource source = file.Source();
  return source;
}

void Import(const timetest::ResultSource& source, std::int16_t meanOver = 5,
            const char* equation = "") {
  texts::CatalogueTexts texts;
  texts.equations[static_cast<std::size_t>(texts::EquationStage::Value)][5] = equation;
  const timetest::ImportOptions options = {{false, false, 1.0}, 0, 3, meanOver, "0"};
  const timetest::ImportResult result =
      timetest::ImportCurve(platform::SystemFiles(), source, options, texts, nullptr, nullptr);
  Require(result.points.size() >= 2);
}

// No error is looked at and no line is anything but three columns.
void ReadAndConvert(const timetest::ResultSource& source) {
  std::string bytes(fs::file_size(source.file), '\0');
  const int file = ::open(source.file.c_str(), O_RDONLY);
  Require(file >= 0 && ::read(file, bytes.data(), bytes.size()) == std::ssize(bytes));
  ::close(file);
  std::vector<std::pair<double, double>> points;
  const char* const end = bytes.data() + bytes.size();
  const char* at = bytes.data() + bytes.find('\n') + 1;
  while (at < end) {
    const char* const column = static_cast<const char*>(std::memchr(at, '\t', 12)) + 1;
    double load = 0.0;
    double time = 0.0;
    const char* const next = std::from_chars(column, end, load).ptr + 1;
    at = std::from_chars(next, end, time).ptr + 3;
    points.emplace_back(load, time);
  }
  Require(points.size() >= kPoints);
}

double BytesAPoint() {
  int ends[2];
  Require(::pipe(ends) == 0);
  const pid_t child = ::fork();
  Require(child >= 0);
  if (child == 0) {
    rusage before{};
    rusage after{};
    ::getrusage(RUSAGE_SELF, &before);
    Import(Single());
    ::getrusage(RUSAGE_SELF, &after);
    const long grown = after.ru_maxrss - before.ru_maxrss;
    Require(::write(ends[1], &grown, sizeof grown) == sizeof grown);
    ::_exit(0);
  }
  long grown = 0;
  ::close(ends[1]);
  Require(::read(ends[0], &grown, sizeof grown) == sizeof grown);
  ::waitpid(child, nullptr, 0);
  ::close(ends[0]);
  return static_cast<double>(grown) * 1024.0 / kPoints;
}

void WholeImport(benchmark::State& state) {
  const auto& source = Single();
  state.counters["bytes a point"] = BytesAPoint();
  InTurns(
      state, [&] { Import(source); }, {{"read+convert", [&] { ReadAndConvert(source); }}}, 3.0);
}

void BesideWholeImport(benchmark::State& state, const std::function<void()>& work, double most) {
  InTurns(state, work, {{"import", [] { Import(Single()); }}}, most);
}

void TwiceThePoints(benchmark::State& state) {
  BesideWholeImport(
      state, [] { Import(Twice()); }, 2.2);
}
void ValueEquation(benchmark::State& state) {
  const char* const equation = "(t0+t1+t2)/3+0*(z+y+v0+v1+v2+tMin+tMax+vMin+vMax)";
  BesideWholeImport(
      state, [equation] { Import(Single(), 5, equation); }, 2.0);
}
void WideMean(benchmark::State& state) {
  BesideWholeImport(
      state, [=] { Import(Single(), 20'000); }, 0.0);
}

// What the workbench calculates when a parameter changes; its limit is 150 ms.
void PreviewOfAChange(benchmark::State& state, const timetest::ImportOptions& options,
                      texts::EquationStage stage, const char* equation) {
  timetest::ReadPoints read;
  const auto readAgain = [&read, &options] {
    const timetest::ProgressReport none;
    read = {};
    Require(!timetest::ReadTimeTest(platform::SystemFiles(), Single(), options.modes,
                                    timetest::ProgressMeter(none, 0.0, 1.0), read));
  };
  texts::EquationTexts equations;
  equations[static_cast<std::size_t>(stage)][5] = equation;
  readAgain();
  const auto preview = [&] {
    timetest::ImportEffects effects;
    const auto result = timetest::ImportPoints(read, options, equations, nullptr, &effects);
    Require(result.points.size() >= 2);
  };
  InTurns(state, preview, {{"reading", readAgain}}, 0.0);
  state.counters["most ms"] = 150.0;
}
void PreviewOfAMean(benchmark::State& state) {
  PreviewOfAChange(state, {{false, false, 1.0}, 0, 3, 6, "0"}, texts::EquationStage::Value, "");
}
void PreviewOfAFilterEquation(benchmark::State& state) {
  PreviewOfAChange(state, {{false, false, 1.0}, 0, 5, 5, "0"}, texts::EquationStage::Filter,
                   "(t1<0.99*tMax)*max(min(t0,t1),min(max(t0,t1),t2))-(t1>=0.99*tMax)");
}
void PreviewOfADifferenceEquation(benchmark::State& state) {
  PreviewOfAChange(state, {{false, false, 1.0}, 5, 3, 5, "0"}, texts::EquationStage::Difference,
                   "((t2-t1)/(v2-v1)-(t1-t0)/(v1-v0))/t1");
}

BENCHMARK(WholeImport)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(25);
BENCHMARK(TwiceThePoints)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(ValueEquation)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(25);
BENCHMARK(PreviewOfAMean)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(PreviewOfAFilterEquation)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(PreviewOfADifferenceEquation)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(15);
BENCHMARK(WideMean)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
