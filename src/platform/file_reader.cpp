#include "platform/file_reader.h"

#include <algorithm>
#include <memory>

namespace zentab::platform {

namespace fs = std::filesystem;

bool OpenRegular(const fs::path& path, std::ifstream& file) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return false;
  // Unbuffered: the blocks are read straight to where they are used.
  file.rdbuf()->pubsetbuf(nullptr, 0);
  file.open(path, std::ios::binary);
  return file.is_open();
}

FileReader::FileReader(const fs::path& path) {
  if (!OpenRegular(path, file_) || !file_.seekg(0, std::ios::end)) return;
  const std::streamoff end = file_.tellg();
  size_ = end > 0 ? static_cast<std::uint64_t>(end) : 0;
}

bool FileReader::Fill(char* to, std::size_t size) {
  file_.read(to, static_cast<std::streamsize>(size));
  return static_cast<std::size_t>(file_.gcount()) == size;
}

std::optional<std::string> FileReader::Read(std::uint64_t begin, std::uint64_t end) {
  if (begin > end || end > size_) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(end - begin), '\0');
  file_.clear();
  file_.seekg(static_cast<std::streamoff>(begin));
  if (!Fill(bytes.data(), bytes.size())) return std::nullopt;
  return bytes;
}

std::error_code FileReader::Copy(std::uint64_t begin, std::uint64_t end, OutputFile& output) {
  const auto block = std::make_unique_for_overwrite<char[]>(kReadBlock);
  file_.clear();
  file_.seekg(static_cast<std::streamoff>(begin));
  while (begin < end) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kReadBlock, end - begin));
    if (!Fill(block.get(), wanted)) return std::make_error_code(std::errc::io_error);
    if (const std::error_code error = output.Write({block.get(), wanted})) return error;
    begin += wanted;
  }
  return {};
}

}  // namespace zentab::platform
