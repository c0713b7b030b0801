#include "platform/file_errors.h"

#include <string>

namespace zentab::platform {
namespace {

class FileErrorCategory final : public std::error_category {
 public:
  [[nodiscard]] const char* name() const noexcept override { return "file"; }
  [[nodiscard]] std::string message(int value) const override {
    switch (static_cast<FileError>(value)) {
      case FileError::LineTooLong:
        return "A line is too long";
      case FileError::GivenUp:
        return "Given up";
    }
    return "Unknown";
  }
};

}  // namespace

const std::error_category& FileErrors() {
  static const FileErrorCategory category;
  return category;
}

}  // namespace zentab::platform
