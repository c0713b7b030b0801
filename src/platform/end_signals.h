#pragma once

#include <memory>

namespace zentab::platform {

/// The signals that ask a program to end: SIGTERM, SIGINT and SIGHUP. While this lives they end
/// nothing by themselves, so that the program can end in order. One that the program was started to
/// ignore (by nohup, say) stays ignored. There is at most one of these at a time; on Windows, where
/// the window is told instead, it does nothing.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  /// A file descriptor that can be read from once a signal has arrived, and from then on; -1 where
  /// there is none, and the signals do what they did.
  [[nodiscard]] int Descriptor() const;

 private:
  struct Caught;
  std::unique_ptr<Caught> caught_;
};

}  // namespace zentab::platform
