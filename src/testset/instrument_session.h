#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tables/curve_table_entry.h"
#include "testset/instrument_module.h"

namespace zentab::testset {

/// How a session is followed from outside.
struct SessionHooks {
  std::function<void(std::string_view)> writeLogLine;  // a template of the event log
  std::function<void()> letEventsRun;                  // between the calls, which may be slow
};

/// What came of opening a module.
struct OpenOutcome {
  bool open = false;
  std::string failure;  // why there is no module to open; empty when it refused by its result
};

/// The session with the time-test module of the chosen instrument; at most one module is open.
/// Modules are loaded when they are first needed and stay loaded as long as this lives.
class InstrumentSession {
 public:
  InstrumentSession(std::filesystem::path installFolder, SessionHooks hooks);

  /// Closes whatever is open and makes `kind` the chosen instrument.
  void Choose(tables::Instrument kind);
  /// Opens the chosen instrument's module and reads its pickup value; for the third choice, which
  /// has none, nothing happens.
  [[nodiscard]] OpenOutcome Open();
  /// Closes whatever is open.
  void CloseRequest();

  /// Hands a reference graph file to the chosen instrument's module, open or not, and logs the
  /// result; 0 where there is no module to call.
  void SetReferenceGraph(std::string_view file);

  [[nodiscard]] tables::Instrument Kind() const { return kind_; }
  [[nodiscard]] bool HasModule() const;
  [[nodiscard]] bool IsOpen() const;

  /// The pickup value in amperes or volts, which is 1 when a module reports less than 0.1, or no
  /// number at all, and none has reported a better one before.
  [[nodiscard]] float UsablePickup();
  void SetPickup(float pickup) { pickup_ = pickup; }

 private:
  struct Slot {
    std::unique_ptr<InstrumentModule> module;  // once it has been loaded
    bool open = false;
  };

  [[nodiscard]] Slot& ChosenSlot() { return slots_.at(static_cast<std::size_t>(kind_)); }
  [[nodiscard]] std::string Load();

  std::filesystem::path installFolder_;
  SessionHooks hooks_;
  tables::Instrument kind_ = tables::Instrument::None;
  std::array<Slot, 4> slots_;  // by kind
  float pickup_ = 0.0f;
};

}  // namespace zentab::testset
