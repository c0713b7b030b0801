#include "platform/paths.h"

#include <algorithm>

#include "platform/character_case.h"
#include "platform/file_layer.h"

namespace zentab::platform {
namespace fs = std::filesystem;

fs::path ToPath(std::string_view utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string ToText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

fs::path AbsolutePath(const fs::path& path) {
  if (path.is_absolute()) return path;
  std::error_code error;
  fs::path whole = path.empty() ? fs::current_path(error) : fs::absolute(path, error);
  return error ? path : whole;
}

namespace {

fs::path FindPart(const fs::path& folder, const fs::path& part) {
  std::error_code ignored;
  if (fs::exists(folder / part, ignored)) return part;
  const std::string wanted = LowerCase(ToText(part));
  const fs::path searched = folder.empty() ? fs::path(".") : folder;
  fs::directory_iterator entries(searched, ignored);
  // The first in the order of names, so that the choice does not depend on the file system's.
  fs::path found;
  for (; !ignored && entries != fs::directory_iterator(); entries.increment(ignored)) {
    const fs::path name = entries->path().filename();
    if (LowerCase(ToText(name)) == wanted && (found.empty() || name < found)) found = name;
  }
  return found.empty() ? part : found;
}

}  // namespace

fs::path FindFixedName(const fs::path& folder, std::string_view name) {
  std::string portable(name);
  std::replace(portable.begin(), portable.end(), '\\', '/');
  fs::path result = folder;
  for (const fs::path& part : ToPath(portable)) {
    if (part.empty() || part == "/") continue;
    result /= FindPart(result, part);
  }
  return result;
}

fs::path FindFixedName(FileLayer& files, const fs::path& folder, std::string_view name) {
  return AskFor(files, [folder, name = std::string(name)] { return FindFixedName(folder, name); })
      .value_or(folder / ToPath(name));
}

std::string BaseName(const fs::path& executable) {
  const bool hasSuffix = LowerCase(ToText(executable.extension())) == ".exe";
  return ToText(hasSuffix ? executable.stem() : executable.filename());
}

std::error_code ChangeCurrentFolder(const fs::path& folder) {
  std::error_code error;
  fs::current_path(folder, error);
  return error;
}

}  // namespace zentab::platform
