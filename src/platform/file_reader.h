#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include "platform/file_layer.h"

namespace zentab::platform {

/// The block that files are read in: large enough that the calls into the system do not count,
/// small enough to stay in the cache.
#ifdef ZENTAB_READ_BLOCK
inline constexpr std::size_t kReadBlock = ZENTAB_READ_BLOCK;
#else
inline constexpr std::size_t kReadBlock = 256u << 10;
#endif

/// Opens a regular file for reading in large blocks; false when that fails or it is none.
[[nodiscard]] bool OpenRegular(const std::filesystem::path& path, std::ifstream& file);

/// Reads parts of one file, which stays the same file while it is open, whoever replaces it.
/// Offsets are bytes from 0.
class FileReader {
 public:
  /// A file that cannot be opened, or is no regular file, has no bytes.
  explicit FileReader(const std::filesystem::path& path);

  [[nodiscard]] bool IsOpen() const { return file_.is_open(); }
  [[nodiscard]] std::uint64_t Size() const { return size_; }

  /// The bytes from `begin` up to `end`; nothing when they cannot all be read.
  [[nodiscard]] std::optional<std::string> Read(std::uint64_t begin, std::uint64_t end);

  /// Writes the same bytes into another file. Fails with std::errc::io_error when they cannot all
  /// be read, and with what the system says when writing fails.
  [[nodiscard]] std::error_code Copy(std::uint64_t begin, std::uint64_t end, OutputFile& output);

 private:
  [[nodiscard]] bool Fill(char* to, std::size_t size);

  std::ifstream file_;
  std::uint64_t size_ = 0;
};

}  // namespace zentab::platform
