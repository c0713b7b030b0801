#include "platform/file_errors.h"

#include <string>

namespace zentab::platform {
namespace {

class FileErrorCategory final : public std::error_category {
 public:
  [[nodiscard]] const char* name() const noexcept override { return "file"; }

  [[nodiscard]] std::string message(int value) const override {
    switch (static_cast<FileError>(value)) {
      case FileError::GroupNotKept:
        return "The file's group would lose its access";
      case FileError::OwnerNotKept:
        return "The file's owner would lose his access";
      case FileError::AccessListNotKept:
        return "The file's access list cannot be kept";
      case FileError::HardLinked:
        return "The file has other names (hard links), which would keep the old content";
      case FileError::LockedByOther:
        return "Someone else is writing to the file";
      case FileError::OpenElsewhere:
        return "Another program has the file open";
      case FileError::NoRegularFile:
        return "Not a regular file";
      case FileError::LineTooLong:
        return "A line is too long";
      case FileError::GivenUp:
        return "Given up";
    }
    return "Unknown";
  }

  [[nodiscard]] std::error_condition default_error_condition(int value) const noexcept override {
    switch (static_cast<FileError>(value)) {
      case FileError::GroupNotKept:
      case FileError::OwnerNotKept:
      case FileError::AccessListNotKept:
        return std::errc::permission_denied;
      case FileError::HardLinked:
        return std::errc::too_many_links;
      case FileError::LockedByOther:
      case FileError::OpenElsewhere:
        return std::errc::device_or_resource_busy;
      case FileError::NoRegularFile:
        return std::errc::operation_not_supported;
      case FileError::LineTooLong:
      case FileError::GivenUp:
        break;
    }
    return {value, *this};
  }
};

}  // namespace

const std::error_category& FileErrors() {
  static const FileErrorCategory category;
  return category;
}

}  // namespace zentab::platform
