#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
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

/// Reads parts of one file, which stays the same file while it is open, whoever replaces it.
/// Offsets are bytes from 0.
class FileReader {
 public:
  /// A file that cannot be opened, or is no regular file, has no bytes.
  FileReader(FileLayer& files, const std::filesystem::path& path);

  /// Why it could not be opened; no error when it could.
  [[nodiscard]] std::error_code Error() const { return error_; }
  [[nodiscard]] std::uint64_t Size() const { return stamp_.size; }
  /// The stamp when it was opened.
  [[nodiscard]] const FileStamp& Stamp() const { return stamp_; }

  /// The bytes from `begin` up to `end`. Fails with std::errc::io_error when they are not all
  /// there.
  [[nodiscard]] std::error_code Read(std::uint64_t begin, std::uint64_t end, std::string& bytes);

  /// Writes the same bytes into another file; fails also with what the system says to that.
  [[nodiscard]] std::error_code Copy(std::uint64_t begin, std::uint64_t end, OutputFile& output);

 private:
  [[nodiscard]] std::error_code Fill(std::uint64_t offset, char* to, std::size_t size);

  std::unique_ptr<InputFile> file_;
  std::error_code error_;
  FileStamp stamp_;
};

}  // namespace zentab::platform
