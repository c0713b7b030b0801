#pragma once

#include <functional>

#include "support/stepped_file_layer.h"

namespace zentab::test {

/// The system's files, which wait for others as long as the test says.
class WaitingFileLayer final : public SteppedFileLayer {
 public:
  int alive = 0;

  explicit WaitingFileLayer(std::function<bool()> goOn) : goOn_(std::move(goOn)) {}

  void KeepAlive() override { ++alive; }
  bool GoOnWaiting(std::chrono::steady_clock::duration) override { return goOn_(); }

 private:
  std::error_code Before(const char*) override { return {}; }

  std::function<bool()> goOn_;
};

}  // namespace zentab::test
