#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace simulator {

/// A time test without a test set. It lives in a data folder, where the text file
/// "instrument.txt" says what it does, read anew at every operation:
///
///     pickup = 0.5                  amperes or volts
///     fail = open close refgraph    operations that refuse; "pickup" reports 0
///
/// The reference graph it accepted last lies beside it as "reference.grh".
class SimulatedInstrument {
 public:
  static constexpr std::int32_t kDone = 1;
  static constexpr std::int32_t kRefused = 0;

  /// Done when the folder has a readable instrument.txt. Names may be written with backslashes.
  std::int32_t OpenFiles(const char* dataFolder);
  /// 0 while nothing is open or the text file gives no number.
  [[nodiscard]] float GetStartUp() const;
  /// Refused while nothing is open.
  std::int32_t CloseFiles();
  /// Done when something is open, `graph` is 0 and the file is a whole GRH file; the reference
  /// graph is then that one, else the former.
  [[nodiscard]] std::int32_t SetRefgraph(std::int32_t graph, const char* file) const;

 private:
  [[nodiscard]] bool Fails(std::string_view operation) const;

  std::filesystem::path folder_;
  bool open_ = false;
};

}  // namespace simulator
