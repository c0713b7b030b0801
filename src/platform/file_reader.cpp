#include "platform/file_reader.h"

#include <algorithm>

namespace zentab::platform {

FileReader::FileReader(FileLayer& files, const std::filesystem::path& path)
    : error_(files.Open(path, file_)) {
  if (!error_) error_ = file_->Stamp(stamp_);
  if (!error_) return;
  file_.reset();
  stamp_ = {};
}

std::error_code FileReader::Fill(std::uint64_t offset, char* to, std::size_t size) {
  if (error_) return error_;
  std::size_t count = 0;
  const std::error_code error = file_->ReadAt(offset, to, size, count);
  if (error || count == size) return error;
  return std::make_error_code(std::errc::io_error);
}

std::error_code FileReader::Read(std::uint64_t begin, std::uint64_t end, std::string& bytes) {
  if (begin > end || end > Size()) return std::make_error_code(std::errc::io_error);
  bytes.resize(static_cast<std::size_t>(end - begin));
  return Fill(begin, bytes.data(), bytes.size());
}

std::error_code FileReader::Copy(std::uint64_t begin, std::uint64_t end, OutputFile& output) {
  const auto block = std::make_unique_for_overwrite<char[]>(kReadBlock);
  while (begin < end) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kReadBlock, end - begin));
    if (const std::error_code error = Fill(begin, block.get(), wanted)) return error;
    if (const std::error_code error = output.Write({block.get(), wanted})) return error;
    begin += wanted;
  }
  return {};
}

}  // namespace zentab::platform
