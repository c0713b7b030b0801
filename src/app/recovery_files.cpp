#include "app/recovery_files.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/file_text.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"

namespace zentab::app {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr int kFormat = 1;
constexpr std::size_t kLargestFile = 64u << 20;
constexpr std::string_view kPrefix = "recovery-";
constexpr std::string_view kSuffix = ".json";

// The table's parts in a form that a person can read, too.
struct Parts {
  editor::CurveGrid grid;
  editor::ValueModes modes;
  tables::Instrument instrument = tables::Instrument::None;
};

json PointsOf(const editor::CurveGrid& grid) {
  json points = json::array();
  for (int row = editor::kFirstRow; row <= editor::kLastRow; ++row) {
    points.push_back({grid.Cell(row, editor::kLoadColumn), grid.Cell(row, editor::kTimeColumn)});
  }
  return points;
}

// Whatever the text holds is told by exceptions, which end here.
KeptTable TableFrom(const json& text) {
  Parts parts;
  const json& points = text.at("points");
  for (std::size_t at = 0; at < points.size(); ++at) {
    const int row = editor::kFirstRow + static_cast<int>(at);
    parts.grid.SetCell(row, editor::kLoadColumn, points.at(at).at(0).get<std::string>());
    parts.grid.SetCell(row, editor::kTimeColumn, points.at(at).at(1).get<std::string>());
  }
  text.at("milliseconds").get_to(parts.modes.milliseconds);
  text.at("absoluteValues").get_to(parts.modes.absoluteValues);
  text.at("pickup").get_to(parts.modes.pickup);
  text.at("multiplier").get_to(parts.modes.multiplier);
  const int instrument = text.at("instrument").get<int>();
  if (instrument >= 0 && instrument <= 3) {
    parts.instrument = static_cast<tables::Instrument>(instrument);
  }
  editor::TableOrigin origin;
  if (text.contains("entry")) {
    const json& entry = text.at("entry");
    origin.source = {entry.at("file").get<std::string>(), entry.at("name").get<std::string>(),
                     entry.at("hash").get<std::uint64_t>()};
  }
  KeptTable kept;
  kept.kind =
      text.at("putAside").get<bool>() ? KeptTable::Kind::PutAside : KeptTable::Kind::Unsaved;
  text.at("editedAt").get_to(kept.editedAt);
  text.at("tableFile").get_to(kept.tablePath);
  // Nothing in it is stored: that is why it was kept.
  kept.state = {editor::Pack(parts.grid, parts.modes, parts.instrument),
                std::make_shared<editor::TableOrigin>(std::move(origin)), text.at("row").get<int>(),
                text.at("column").get<int>(), true};
  return kept;
}

}  // namespace

std::string RecoveryText(const KeptTable& kept) {
  Parts parts;
  editor::Unpack(kept.state.table, parts.grid, parts.modes, parts.instrument);
  json text = {{"zentabRecovery", kFormat},
               {"putAside", kept.kind == KeptTable::Kind::PutAside},
               {"editedAt", kept.editedAt},
               {"tableFile", kept.tablePath},
               {"points", PointsOf(parts.grid)},
               {"milliseconds", parts.modes.milliseconds},
               {"absoluteValues", parts.modes.absoluteValues},
               {"pickup", parts.modes.pickup},
               {"multiplier", parts.modes.multiplier},
               {"instrument", static_cast<int>(parts.instrument)},
               {"row", kept.state.row},
               {"column", kept.state.column}};
  if (const auto& source = kept.state.origin->source) {
    text["entry"] = {{"file", source->tablePath}, {"name", source->name}, {"hash", source->hash}};
  }
  return text.dump(1, ' ', false, json::error_handler_t::replace) + "\n";
}

std::optional<KeptTable> ReadRecoveryText(std::string_view text) {
  const json parsed = json::parse(text, nullptr, false);
  if (!parsed.is_object() || parsed.value("zentabRecovery", json()) != kFormat) return std::nullopt;
  try {
    return TableFrom(parsed);
  } catch (const json::exception&) {
    return std::nullopt;
  }
}

std::vector<RecoveryFiles::FoundTable> RecoveryFiles::Look() {
  found_.clear();
  if (folder_.empty()) return {};
  std::error_code error;
  for (auto at = fs::directory_iterator(folder_, error); !error && at != fs::directory_iterator();
       at.increment(error)) {
    const fs::path file = at->path();
    const std::string name = platform::ToText(file.filename());
    if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix)) continue;
    std::unique_ptr<platform::FileLock> lock;
    if (files_.TryLock(fs::path(file).replace_extension(), lock)) continue;
    std::string text;
    if (platform::ReadWholeFile(files_, file, kLargestFile, text)) continue;
    auto kept = ReadRecoveryText(text);
    if (kept) found_.push_back({file, std::move(lock), *std::move(kept), 0, true});
  }
  std::stable_sort(found_.begin(), found_.end(), [](const Slot& one, const Slot& other) {
    return one.kept.editedAt > other.kept.editedAt;
  });
  std::vector<FoundTable> tables;
  for (Slot& slot : found_) {
    slot.number = static_cast<int>(tables.size());
    tables.push_back({slot.number, slot.kept});
  }
  return tables;
}

std::vector<RecoveryFiles::Slot>::iterator RecoveryFiles::SlotOf(int number) {
  return std::find_if(found_.begin(), found_.end(),
                      [number](const Slot& slot) { return slot.number == number; });
}

void RecoveryFiles::Adopt(int number) {
  const auto slot = SlotOf(number);
  if (slot == found_.end()) return;
  own_ = std::move(*slot);
  found_.erase(slot);
}

std::error_code RecoveryFiles::PutAside(int number) {
  const auto slot = SlotOf(number);
  if (slot == found_.end()) return std::make_error_code(std::errc::no_such_file_or_directory);
  slot->kept.kind = KeptTable::Kind::PutAside;
  return Write(slot->file, slot->kept);
}

std::error_code RecoveryFiles::PutOwnAside(int number) {
  if (!own_) return {};
  own_->number = number;
  own_->isFormer = false;
  found_.push_back(std::move(*own_));
  own_.reset();
  return PutAside(number);
}

std::error_code RecoveryFiles::TakeOwn() {
  if (own_) return {};
  std::error_code error;
  fs::create_directories(folder_, error);
  if (error) return error;
  constexpr int kMostEditors = 1000;
  for (int number = 1; number <= kMostEditors; ++number) {
    const fs::path name = folder_ / (std::string(kPrefix) + std::to_string(number));
    Slot slot{fs::path(name) += kSuffix, nullptr, {}, 0, false};
    if ((error = files_.TryLock(name, slot.lock))) continue;
    // One that was left waits to be looked at.
    if (fs::exists(slot.file, error) || error) continue;
    own_ = std::move(slot);
    return {};
  }
  return error ? error : std::make_error_code(std::errc::file_exists);
}

std::error_code RecoveryFiles::Write(const fs::path& file, const KeptTable& kept) {
  return platform::ReplaceFile(files_, file, [&kept](platform::OutputFile& output) {
    return output.Write(RecoveryText(kept));
  });
}

std::error_code RecoveryFiles::Keep(const KeptTable& kept) {
  if (folder_.empty()) return {};
  if (const std::error_code error = TakeOwn()) return error;
  if (const std::error_code error = Write(own_->file, kept)) return error;
  own_->kept = kept;
  if (kept.kind == KeptTable::Kind::PutAside) return {};
  std::erase_if(found_, [this](const Slot& slot) {
    // One that cannot be removed is put aside still.
    return slot.isFormer && slot.kept.kind == KeptTable::Kind::PutAside &&
           !files_.Remove(slot.file);
  });
  return {};
}

std::error_code RecoveryFiles::Forget() {
  if (!own_) return {};
  const std::error_code error = files_.Remove(own_->file);
  if (!error) own_.reset();
  return error;
}

}  // namespace zentab::app
