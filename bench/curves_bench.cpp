// Operations on curves beside their limits:
//   a fit of 26 points against all families, to stay below 20 ms
//   the best loads for 26 points of each family, the slowest of them below 50 ms
//   thinning 1,000,000 measured points beside the import's own reading of them
// "x read" is a ratio of medians, "most" what it or the time is to stay below.
#include <benchmark/benchmark.h>

#include <random>

#include "bench/in_turns.h"
#include "bench/result_file.h"
#include "bench/speed_reporter.h"
#include "curves/fit.h"
#include "curves/sampling.h"
#include "curves/thinning.h"
#include "timetest/point_reader.h"

namespace {

using namespace zentab;
using bench::InTurns;
using bench::Require;

constexpr int kPoints = 1'000'000;

curves::CharacteristicCurve CurveOf(const curves::FamilyRow& row) {
  curves::Characteristic settings;
  settings.family = row.family;
  settings.constants = row.constants;
  settings.equation = "multiplier*0.14/((v/pickup)^0.02-1)";
  return std::get<curves::CharacteristicCurve>(curves::CharacteristicCurve::Of(settings));
}

std::vector<curves::Point> Noisy(const curves::FamilyRow& row) {
  const auto curve = CurveOf(row);
  auto sampled = std::get<curves::ChosenPoints>(
      curves::Sample(curve, curves::UsualSampling(curve.Settings())));
  std::mt19937 random(1);
  std::normal_distribution<double> noise(1.0, 0.01);
  for (curves::Point& point : sampled.points) point.time *= noise(random);
  return sampled.points;
}

void FitAllFamilies(benchmark::State& state) {
  const auto points = Noisy(curves::RowOf(curves::Family::IeeeVery));
  curves::FitOptions options;
  options.pickupFree = state.range(0) != 0;
  for (auto _ : state) {
    const curves::FitResult result = curves::Fit(points, {}, options);
    Require(result.fits.size() >= 10);
  }
  state.counters["most ms"] = 20.0;
}

void BestLoads(benchmark::State& state) {
  const curves::FamilyRow& row = curves::Families()[static_cast<std::size_t>(state.range(0))];
  const auto curve = CurveOf(row);
  curves::Sampling sampling = curves::UsualSampling(curve.Settings());
  sampling.spacing = curves::Spacing::Best;
  for (auto _ : state) {
    const auto best = curves::Sample(curve, sampling);
    Require(curves::FaultOf(best) == nullptr);
  }
  state.SetLabel(std::string(row.id));
  state.counters["most ms"] = 50.0;
}

timetest::ReadPoints Read(const timetest::ResultSource& source) {
  timetest::ReadPoints read;
  const timetest::ProgressReport silent;
  Require(!timetest::ReadTimeTest(platform::SystemFiles(), source, {},
                                  timetest::ProgressMeter(silent, 0.0, 1.0), read));
  Require(read.points.size() == kPoints);
  return read;
}

// From the points as they were read: looking at them and sorting out the curve belongs to it.
void ThinAMillion(benchmark::State& state) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> noise(0.99, 1.01);
  const bench::ResultFile file(kPoints, 6,
                               [&](int /*point*/, double time) { return time * noise(random); });
  std::vector<curves::Point> points;
  for (const timetest::MeasuredPoint& point : Read(file.Source()).points) {
    points.push_back({point.load, point.time});
  }
  double deviation = 0.0;
  const auto thin = [&] {
    const auto curve = curves::TableCurve::Of(points, curves::Axes::Chart);
    deviation = curves::Thin(std::get<curves::TableCurve>(curve), 26).deviation;
  };
  InTurns(state, thin, {{"read", [&file] { benchmark::DoNotOptimize(Read(file.Source())); }}}, 2.0);
  state.counters["deviation %"] = deviation * 100.0;
}

BENCHMARK(FitAllFamilies)->Arg(0)->Arg(1)->ArgName("pickup free")->Unit(benchmark::kMillisecond);
BENCHMARK(BestLoads)->DenseRange(0, 15)->Unit(benchmark::kMillisecond);
BENCHMARK(ThinAMillion)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

}  // namespace

int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
