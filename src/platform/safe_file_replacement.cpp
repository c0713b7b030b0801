#include "platform/safe_file_replacement.h"

#include <memory>

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

// Counts what was handed over, so that the finished file's size can be checked against it.
class CountingFile final : public OutputFile {
 public:
  explicit CountingFile(OutputFile& file) : file_(file) {}
  std::error_code Write(std::string_view bytes) override {
    count_ += bytes.size();
    return file_.Write(bytes);
  }
  std::error_code Flush() override { return file_.Flush(); }
  std::error_code Size(std::uint64_t& size) override { return file_.Size(size); }
  std::error_code Truncate(std::uint64_t size) override {
    count_ = size;
    return file_.Truncate(size);
  }
  std::error_code Close() override { return file_.Close(); }

  [[nodiscard]] std::uint64_t Count() const { return count_; }

 private:
  OutputFile& file_;
  std::uint64_t count_ = 0;
};

std::error_code WriteWhole(OutputFile& file, const ContentWriter& write) {
  CountingFile counting(file);
  if (const std::error_code error = write(counting)) return error;
  if (const std::error_code error = counting.Flush()) return error;
  std::uint64_t size = 0;
  if (const std::error_code error = counting.Size(size)) return error;
  if (size != counting.Count()) return std::make_error_code(std::errc::io_error);
  return counting.Close();
}

// The file that is meant, behind any symbolic links; the path itself where there is no file yet.
fs::path FinalTarget(const fs::path& path) {
  std::error_code error;
  fs::path target = fs::is_symlink(path, error) ? fs::canonical(path, error) : path;
  return error ? path : target;
}

std::error_code RefuseUnlessReplaceable(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return {};
  if (error) return error;
  if (status.type() == fs::file_type::directory) {
    return std::make_error_code(std::errc::is_a_directory);
  }
  if (status.type() != fs::file_type::regular) {
    return std::make_error_code(std::errc::operation_not_supported);
  }
  if (IsReadOnly(path)) return std::make_error_code(std::errc::permission_denied);
  return {};
}

}  // namespace

std::error_code ReplaceFile(FileLayer& files, const fs::path& path, const ContentWriter& write) {
  const fs::path target = FinalTarget(path);
  if (const std::error_code error = RefuseUnlessReplaceable(target)) return error;
  fs::path fresh = target;
  fresh += ".new";
  if (const std::error_code error = files.Remove(fresh)) return error;
  std::unique_ptr<OutputFile> file;
  std::error_code error = files.Create(fresh, target, file);
  if (!error) error = WriteWhole(*file, write);
  const bool created = file != nullptr;
  file.reset();
  if (!error) error = files.MoveOver(fresh, target);
  if (error && created) {
    // The caller needs the first failure; a leftover is removed by the next replacement.
    [[maybe_unused]] const std::error_code dropped = files.Remove(fresh);
  }
  return error;
}

std::error_code AppendToFile(FileLayer& files, const fs::path& path, const ContentWriter& write) {
  if (const std::error_code error = RefuseUnlessReplaceable(path)) return error;
  std::error_code unknown;
  const bool isNew = fs::symlink_status(path, unknown).type() == fs::file_type::not_found;
  std::unique_ptr<OutputFile> file;
  if (const std::error_code error = files.OpenForAppending(path, file)) return error;
  std::uint64_t size = 0;
  std::error_code error = file->Size(size);
  if (!error) {
    error = write(*file);
    if (!error) error = file->Flush();
    if (error) {
      // Half a line would melt into the next entry. The first failure is what the caller needs.
      [[maybe_unused]] const std::error_code dropped = file->Truncate(size);
    }
  }
  if (!error) {
    // What was flushed stays, whatever the closing says; called a failure it would be added again.
    [[maybe_unused]] const std::error_code dropped = file->Close();
    return {};
  }
  file.reset();
  if (isNew) {
    [[maybe_unused]] const std::error_code dropped = files.Remove(path);
  }
  return error;
}

std::error_code AppendToFile(FileLayer& files, const fs::path& path, std::string_view bytes) {
  return AppendToFile(files, path, [bytes](OutputFile& file) { return file.Write(bytes); });
}

}  // namespace zentab::platform
