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
///     opened = 2                    what a successful open returns in the place of 1
///     leave = folder locale         what every operation leaves changed in the process, as some
///                                   modules do: also "arithmetic" (exceptions trap, numbers are
///                                   rounded up), "signals" (those that end a program do nothing)
///     wait = 500                    milliseconds for which setting the reference graph lets the
///                                   events of the process's windows run
///
/// The reference graph it accepted last lies beside it as "reference.grh".
class SimulatedInstrument {
 public:
  static constexpr std::int32_t kDone = 1;
  static constexpr std::int32_t kRefused = 0;

  /// Done when the folder has a readable instrument.txt, unless that tells another result. Names
  /// may be written with backslashes.
  std::int32_t OpenFiles(const char* dataFolder);
  /// 0 while nothing is open or the text file gives no number.
  [[nodiscard]] float GetStartUp() const;
  /// Refused while nothing is open.
  std::int32_t CloseFiles();
  /// Done when something is open, `graph` is 0 and the file is a whole GRH file; the reference
  /// graph is then that one, else the former.
  [[nodiscard]] std::int32_t SetRefgraph(std::int32_t graph, const char* file) const;

  /// The result of an operation, behind which the process is left as the text file says.
  template <typename Result>
  [[nodiscard]] Result Left(Result result) const {
    LeaveChanges();
    return result;
  }

 private:
  [[nodiscard]] bool Fails(std::string_view operation) const { return Lists("fail", operation); }
  [[nodiscard]] bool Lists(std::string_view key, std::string_view word) const;
  void LeaveChanges() const;

  std::filesystem::path folder_;
  bool open_ = false;
};

}  // namespace simulator
