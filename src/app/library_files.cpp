#include "app/library_files.h"

#include <algorithm>
#include <memory>

#include "platform/file_reader.h"
#include "platform/safe_file_replacement.h"

namespace zentab::app {

std::error_code CopyTableFile(platform::FileLayer& files, const std::filesystem::path& from,
                              const std::filesystem::path& to) {
  if (platform::LinkTarget(from) == platform::LinkTarget(to)) {
    return std::make_error_code(std::errc::file_exists);
  }
  platform::FileReader source(files, from);
  if (source.Error()) return source.Error();
  return platform::ReplaceFile(files, to, [&source](platform::OutputFile& output) {
    return source.Copy(0, source.Size(), output);
  });
}

std::error_code CreateTableFile(platform::FileLayer& files, const std::filesystem::path& path) {
  std::unique_ptr<platform::OutputFile> file;
  if (const auto error = files.Create(path, {}, file)) return error;
  if (const auto error = file->Flush()) return error;
  return file->Close();
}

std::vector<std::string> RecentFilesIn(const FormValues& kept) {
  std::vector<std::string> paths;
  for (std::size_t number = 1; number <= kMostRecentFiles; ++number) {
    const std::string& path = ValueOf(kept, std::to_string(number));
    if (!path.empty()) paths.push_back(path);
  }
  return paths;
}

FormValues WithRecentFile(const FormValues& kept, std::string_view path) {
  std::vector<std::string> paths = RecentFilesIn(kept);
  std::erase(paths, path);
  paths.emplace(paths.begin(), path);
  paths.resize(std::min(paths.size(), kMostRecentFiles));
  FormValues result;
  for (std::size_t at = 0; at < paths.size(); ++at) result[std::to_string(at + 1)] = paths[at];
  return result;
}

}  // namespace zentab::app
