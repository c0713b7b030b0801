// Applying the five text catalogues of a start, 300 lines each, with every key in every one.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <random>

#include "bench/speed_reporter.h"
#include "platform/file_layer.h"
#include "texts/apply_texts.h"

namespace {

using namespace zentab::texts;

class NoWindow final : public TextTarget {
 public:
  void SetCaption(std::string_view, std::string_view) override {}
  void SetTooltip(std::string_view, std::string_view) override {}
  void SetShown(std::string_view, bool) override {}
  void SetPlaceholder(std::string_view, std::string_view) override {}
  void SetSpokenName(std::string_view, std::string_view) override {}
  std::string Caption(std::string_view) const override { return {}; }
};

void FiveCatalogues(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path() /
                      ("zentab-bench-" + std::to_string(std::random_device()()));
  std::filesystem::create_directory(folder);
  for (int number = 0; number < 5; ++number) {
    std::ofstream file(folder / std::to_string(number));
    std::size_t lines = 0;
    for (const std::string& key : CatalogueKeys()) {
      file << key << " {A text of the length that a helpful tooltip has, about so long}\n";
      ++lines;
    }
    for (; lines < 300; ++lines) file << "A line of explanation that holds no key at all\n";
  }
  NoWindow window;
  for (auto _ : state) {
    CatalogueTexts texts;
    for (int number = 0; number < 5; ++number) {
      const auto error =
          ApplyTexts(zentab::platform::SystemFiles(), folder / std::to_string(number), window,
                     texts, [](std::string_view text) { return std::string(text); });
      if (error) std::abort();
    }
    benchmark::DoNotOptimize(texts.logSwitch);
  }
  std::filesystem::remove_all(folder);
}

}  // namespace

BENCHMARK(FiveCatalogues)->Unit(benchmark::kMillisecond)->MinTime(1.0);
int main(int argc, char** argv) { return zentab::bench::RunBenchmarks(argc, argv); }
