#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>

#include "support/stepped_file_layer.h"

namespace zentab::test {

/// How a device fails.
struct DeviceFault {
  enum class Write { Nothing, Half, HalfUnnoticed };  // what a failing write leaves in the file

  std::string_view what;
  std::errc error = std::errc::io_error;
  Write write = Write::Nothing;
  bool lasts = false;  // every step behind the failing one fails as well
};

/// The system's files, but one step fails, or the device is full after so many bytes. The steps
/// count from 0.
class FailingFileLayer final : public SteppedFileLayer {
 public:
  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

  DeviceFault fault;
  std::size_t failingStep = kNever;
  std::size_t bytesThatFit = kNever;
  std::string failedStep;            // the name of the step that failed
  std::size_t failingRead = kNever;  // of the steps that read, which are counted apart
  bool countsAsking = false;         // among these

  std::error_code Ask(const std::function<std::error_code()>& call) override {
    const std::error_code error = countsAsking ? BeforeReading("ask") : std::error_code();
    return error ? error : call();
  }
  // There is nobody whose change could come to its end.
  bool GoOnWaiting(std::chrono::steady_clock::duration) override { return false; }

 private:
  std::error_code BeforeReading(const char* step) override {
    if (reads_++ != failingRead) return {};
    failedStep = step;
    return std::make_error_code(fault.error);
  }

  std::error_code Before(const char* step) override {
    const std::size_t number = steps_++;
    if (number < failingStep || (number > failingStep && !fault.lasts)) return {};
    if (number == failingStep) failedStep = step;
    failsInside_ = fault.write != DeviceFault::Write::Nothing && failedStep == "write" &&
                   number == failingStep;
    return failsInside_ ? std::error_code() : std::make_error_code(fault.error);
  }

  std::error_code WriteTo(platform::OutputFile& file, std::string_view bytes) override {
    if (std::exchange(failsInside_, false)) return WriteHalf(file, bytes);
    const std::size_t fitting = std::min(bytes.size(), bytesThatFit);
    if (bytesThatFit != kNever) bytesThatFit -= fitting;
    if (const std::error_code error = file.Write(bytes.substr(0, fitting))) return error;
    return fitting == bytes.size() ? std::error_code()
                                   : std::make_error_code(std::errc::no_space_on_device);
  }

  [[nodiscard]] std::error_code WriteHalf(platform::OutputFile& file,
                                          std::string_view bytes) const {
    if (const std::error_code error = file.Write(bytes.substr(0, bytes.size() / 2))) return error;
    const bool unnoticed = fault.write == DeviceFault::Write::HalfUnnoticed && !bytes.empty();
    return unnoticed ? std::error_code() : std::make_error_code(fault.error);
  }

  std::size_t steps_ = 0;
  std::size_t reads_ = 0;
  bool failsInside_ = false;  // the failing step is a write that does a part of its work
};

}  // namespace zentab::test
