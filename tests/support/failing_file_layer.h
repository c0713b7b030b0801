#pragma once

#include <cstddef>
#include <limits>
#include <string>

#include "platform/file_layer.h"

namespace zentab::test {

/// The system's files, but one step fails, or the device is full after so many bytes. The steps
/// count from 0 over the layer and all its files.
class FailingFileLayer final : public platform::FileLayer {
 public:
  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

  std::size_t failingStep = kNever;
  std::size_t bytesThatFit = kNever;
  bool losesBytesSilently = false;  // what does not fit is reported as written
  std::string failedStep;           // the name of the step that failed

  std::error_code Create(const std::filesystem::path& path, const std::filesystem::path& like,
                         std::unique_ptr<platform::OutputFile>& file) override;
  std::error_code OpenForAppending(const std::filesystem::path& path,
                                   std::unique_ptr<platform::OutputFile>& file) override;
  std::error_code MoveOver(const std::filesystem::path& from,
                           const std::filesystem::path& to) override;
  std::error_code Remove(const std::filesystem::path& path) override;

 private:
  friend class FailingFile;
  [[nodiscard]] std::error_code Step(const char* name);

  std::size_t steps_ = 0;
};

}  // namespace zentab::test
