#include "app/kept_axes.h"

#include <algorithm>

#include "app/form_values.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using editor::ChartAxes;
using editor::LoadUnit;
using editor::Range;

constexpr std::string_view kAxesForm = "Axes";
constexpr char kPathMark = '|';  // in front of the path, which ends the row

std::string Packed(const std::optional<Range>& range) {
  if (!range) return "-";
  return texts::NumberText(range->minimum, ".") + ':' + texts::NumberText(range->maximum, ".");
}

std::optional<Range> UnpackedRange(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const std::optional<double> minimum = texts::WholeNumber(text.substr(0, colon));
  const std::optional<double> maximum = texts::WholeNumber(text.substr(colon + 1));
  if (!minimum || !maximum || !(*minimum < *maximum)) return std::nullopt;
  return Range{*minimum, *maximum};
}

std::string Packed(const ChartAxes& axes) {
  std::string switches;
  for (const bool on : {axes.logarithmic.load, axes.logarithmic.time, axes.absoluteLimits,
                        axes.squareDecades, axes.pickupLine}) {
    switches += on ? '1' : '0';
  }
  switches += static_cast<char>('0' + static_cast<int>(axes.unit));
  return switches + ' ' + Packed(axes.loads) + ' ' + Packed(axes.times);
}

std::optional<ChartAxes> Unpacked(std::string_view text) {
  constexpr std::size_t kSwitches = 6;
  const std::size_t times = text.rfind(' ');
  if (text.size() <= kSwitches || text[kSwitches] != ' ' || times <= kSwitches) return std::nullopt;
  const auto isOn = [text](std::size_t place) { return text[place] == '1'; };
  ChartAxes axes;
  axes.logarithmic = {isOn(0), isOn(1)};
  axes.absoluteLimits = isOn(2);
  axes.squareDecades = isOn(3);
  axes.pickupLine = isOn(4);
  for (const LoadUnit unit : {LoadUnit::Multiples, LoadUnit::Absolute}) {
    if (text[5] == static_cast<char>('0' + static_cast<int>(unit))) axes.unit = unit;
  }
  axes.loads = UnpackedRange(text.substr(kSwitches + 1, times - kSwitches - 1));
  axes.times = UnpackedRange(text.substr(times + 1));
  return axes;
}

}  // namespace

KeptAxes KeptAxes::Load(const platform::SettingsStore& store, std::string_view title) {
  KeptAxes kept;
  const FormValues rows = LoadForm(store, title, kAxesForm);
  for (std::size_t place = 1; place <= kMost; ++place) {
    const std::string& row = ValueOf(rows, std::to_string(place));
    const std::size_t mark = row.find(kPathMark);
    if (mark == std::string::npos) continue;
    const std::optional<ChartAxes> axes = Unpacked(std::string_view(row).substr(0, mark));
    if (axes) kept.kept_.push_back({row.substr(mark + 1), *axes});
  }
  return kept;
}

ChartAxes KeptAxes::Of(std::string_view path) const {
  const auto found = std::find_if(kept_.begin(), kept_.end(),
                                  [path](const Kept& kept) { return kept.path == path; });
  return found == kept_.end() ? ChartAxes() : found->axes;
}

void KeptAxes::Keep(std::string_view path, const ChartAxes& axes) {
  std::erase_if(kept_, [path](const Kept& kept) { return kept.path == path; });
  kept_.insert(kept_.begin(), {std::string(path), axes});
  if (kept_.size() > kMost) kept_.pop_back();
}

std::error_code KeptAxes::Save(platform::SettingsStore& store, std::string_view title) const {
  FormValues rows;
  for (const Kept& kept : kept_) {
    rows[std::to_string(rows.size() + 1)] = Packed(kept.axes) + kPathMark + kept.path;
  }
  return SaveForm(store, title, kAxesForm, rows);
}

}  // namespace zentab::app
