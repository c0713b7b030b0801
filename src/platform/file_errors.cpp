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
        return "the file's group would lose its access";
      case FileError::OwnerNotKept:
        return "the file's owner would lose his access";
      case FileError::AccessListNotKept:
        return "the file's access list cannot be kept";
      case FileError::HardLinked:
        return "the file has other names (hard links), which would keep the old content";
      case FileError::LockedByOther:
        return "someone else is writing to the file";
      case FileError::OpenElsewhere:
        return "another program has the file open";
      case FileError::NoRegularFile:
        return "not a regular file";
      case FileError::LineTooLong:
        return "a line is too long";
      case FileError::GivenUp:
        return "given up";
    }
    return "unknown error";
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

std::error_code make_error_code(FileError error) {  // NOLINT
  return {static_cast<int>(error), FileErrors()};
}

}  // namespace zentab::platform
