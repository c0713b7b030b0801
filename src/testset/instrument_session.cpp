#include "testset/instrument_session.h"

#include <cmath>
#include <cstdint>

#include "texts/number_text.h"

namespace zentab::testset {
namespace {

constexpr std::int32_t kOpened = 1;
constexpr float kSmallestPickup = 0.1f;
constexpr tables::Instrument kKinds[] = {tables::Instrument::Current, tables::Instrument::Voltage,
                                         tables::Instrument::Third};

std::string WithValue(std::string_view line, std::int32_t value) {
  return std::string(line) + std::to_string(value);
}

}  // namespace

InstrumentSession::InstrumentSession(std::filesystem::path installFolder, SessionHooks hooks)
    : installFolder_(std::move(installFolder)), hooks_(std::move(hooks)) {}

void InstrumentSession::Choose(tables::Instrument kind) {
  hooks_.writeLogLine(ProfileOf(kind).selectedLine);
  CloseRequest();
  kind_ = kind;
}

OpenOutcome InstrumentSession::Open() {
  if (!HasModule()) return {};
  const InstrumentProfile& profile = ProfileOf(kind_);
  OpenOutcome outcome{false, Load()};
  Slot& slot = ChosenSlot();
  const std::int32_t result =
      slot.module ? slot.module->OpenFiles(std::string(profile.dataFolder)) : 0;
  hooks_.writeLogLine(WithValue(profile.openLine, result));
  slot.open = outcome.open = result == kOpened;
  if (!outcome.open) return outcome;
  hooks_.letEventsRun();
  pickup_ = slot.module->GetStartUp();
  hooks_.writeLogLine(std::string(profile.pickupLine) +
                      texts::NumberText(texts::ShownValue(pickup_), "."));
  hooks_.letEventsRun();
  return outcome;
}

void InstrumentSession::CloseRequest() {
  hooks_.writeLogLine(" %E Close request ");
  for (const tables::Instrument kind : kKinds) {
    Slot& slot = slots_.at(static_cast<std::size_t>(kind));
    if (!slot.open) continue;
    const InstrumentProfile& profile = ProfileOf(kind);
    hooks_.writeLogLine(profile.isOpenLine);
    slot.open = false;
    if (slot.module) {
      hooks_.writeLogLine(WithValue(profile.closeLine, slot.module->CloseFiles()));
    } else {
      hooks_.letEventsRun();
    }
  }
}

void InstrumentSession::SetReferenceGraph(std::string_view file) {
  hooks_.letEventsRun();
  // Why a module cannot be loaded was told when it was chosen.
  [[maybe_unused]] const std::string dropped = HasModule() ? Load() : std::string();
  const Slot& slot = ChosenSlot();
  const std::int32_t result = slot.module ? slot.module->SetRefgraph(std::string(file)) : 0;
  hooks_.letEventsRun();
  hooks_.writeLogLine(WithValue(" %E SetRefgraph ", result));
}

bool InstrumentSession::HasModule() const {
  return kind_ == tables::Instrument::Current || kind_ == tables::Instrument::Voltage;
}

bool InstrumentSession::IsOpen() const { return slots_.at(static_cast<std::size_t>(kind_)).open; }

float InstrumentSession::UsablePickup() {
  if (!std::isfinite(pickup_) || pickup_ < kSmallestPickup) pickup_ = 1.0f;
  return pickup_;
}

std::string InstrumentSession::Load() {
  Slot& slot = ChosenSlot();
  if (slot.module) return {};
  LoadedModule loaded = LoadInstrumentModule(ProfileOf(kind_), installFolder_);
  slot.module = std::move(loaded.module);
  return std::move(loaded.failure);
}

}  // namespace zentab::testset
