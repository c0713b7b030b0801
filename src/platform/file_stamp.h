#pragma once

#include <cstdint>

namespace zentab::platform {

/// What tells one content of a file from the next: a file that was replaced or written to since
/// has another stamp. Two changes within one tick of the file system's clock (some milliseconds)
/// that keep the size of a file that is not replaced look like one.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t file = 0;      // the file's number on its device
  std::uint64_t size = 0;      // bytes
  std::uint64_t modified = 0;  // in the file system's own ticks

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

}  // namespace zentab::platform
