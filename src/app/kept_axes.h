#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "editor/chart_axes.h"
#include "platform/settings_store.h"

namespace zentab::app {

/// The axes of the chart for each of the table files used last.
class KeptAxes {
 public:
  /// How many files are remembered.
  static constexpr std::size_t kMost = 24;

  /// What the store holds under the program's title; rows that nobody could have written are
  /// passed over.
  [[nodiscard]] static KeptAxes Load(const platform::SettingsStore& store, std::string_view title);

  /// The axes of a table file, by its path; those of a new chart where none are kept.
  [[nodiscard]] editor::ChartAxes Of(std::string_view path) const;
  /// Keeps them; the file counts as the one used last.
  void Keep(std::string_view path, const editor::ChartAxes& axes);

  [[nodiscard]] std::error_code Save(platform::SettingsStore& store, std::string_view title) const;

 private:
  struct Kept {
    std::string path;
    editor::ChartAxes axes;
  };

  std::vector<Kept> kept_;  // the file used last comes first
};

}  // namespace zentab::app
