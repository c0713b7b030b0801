#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace zentab::bench {

inline void Require(bool done) {
  if (!done) std::abort();
}

inline double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + std::ssize(values) / 2, values.end());
  return values[values.size() / 2];
}

/// What a piece of work is measured against.
struct Yardstick {
  std::string name;
  std::function<void()> work;
};

/// Times the work and its yardsticks in turns, so that all of them meet the same machine. The
/// counters "x NAME" are ratios of the medians; the first is to stay below `most`, unless that is
/// 0.
inline void InTurns(benchmark::State& state, const std::function<void()>& work,
                    const std::vector<Yardstick>& yardsticks, double most) {
  std::vector<double> own;
  std::vector<std::vector<double>> others(yardsticks.size());
  for (auto _ : state) {
    for (std::size_t i = 0; i < yardsticks.size(); ++i) {
      others[i].push_back(Seconds(yardsticks[i].work));
    }
    own.push_back(Seconds(work));
    state.SetIterationTime(own.back());
  }
  for (std::size_t i = 0; i < yardsticks.size(); ++i) {
    state.counters["x " + yardsticks[i].name] = Median(own) / Median(others[i]);
  }
  if (most > 0.0) state.counters["most x " + yardsticks.front().name] = most;
}

}  // namespace zentab::bench
