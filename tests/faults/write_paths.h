#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/library_commands.h"
#include "app/reference_graph_commands.h"

namespace zentab::test {

/// What one start of the editor changes files with, on an installation folder. The grid holds a
/// curve with edits that no file has.
class Workplace {
 public:
  Workplace(const std::filesystem::path& folder, platform::FileLayer& files);

  [[nodiscard]] bool Add(std::string_view name);
  [[nodiscard]] bool Update(std::string_view name);
  [[nodiscard]] bool Remove(std::string_view name);
  /// Copies every third entry.
  [[nodiscard]] bool PutBack(std::string_view name, std::string_view inFrontOf);
  [[nodiscard]] bool Copy(std::string_view source, std::string_view target);
  [[nodiscard]] bool WriteGraph();

  [[nodiscard]] std::size_t IndexOf(std::string_view name) const;

  app::Session session;
  app::EventLog log;
  tables::TableWriter writer;
  app::LibraryCommands library{session, writer};

 private:
  std::filesystem::path folder_;
  testset::InstrumentSession instruments_;
  app::ReferenceGraphCommands graphs_;
};

/// Puts a curve of 26 points into a session's grid, whose times begin at `firstTime`.
void FillGrid(app::Session& session, int firstTime);
/// The line of a table file for that curve, with its line end.
[[nodiscard]] std::string CurveLine(std::string_view name, int firstTime);

/// The content of files by their names in the folder; a missing file is not in it.
using Files = std::map<std::string, std::string>;

[[nodiscard]] std::string ReadFile(const std::filesystem::path& file);
[[nodiscard]] Files ReadFolder(const std::filesystem::path& folder);
/// Makes the folder hold these files and no others.
void FillFolder(const std::filesystem::path& folder, const Files& files);
/// An installation: a library of so many entries, another one, a reference graph, a backup.
[[nodiscard]] Files Installation(int entries);

/// A way in which the editor changes a file, and the file's new content, made without it.
struct WritePath {
  std::string_view what;
  std::string target;
  bool (*run)(Workplace&);
  std::string (*after)(const Files& before);
  bool isTable = true;  // whose first change keeps a backup
  bool saves = false;   // the edits in the grid
};

[[nodiscard]] const std::vector<WritePath>& WritePaths();

/// All files of an installation behind a change.
[[nodiscard]] Files Changed(const WritePath& path, const Files& before);
/// Whether all files are as before a change that failed, or was killed, before the new file took
/// the old one's place. The backup may have been made.
[[nodiscard]] bool AreUntouched(const WritePath& path, const Files& before, Files now);

inline constexpr std::string_view kLibrary = "library.dat";
inline constexpr int kGridTime = 100;  // of the curve in the grid at the start

}  // namespace zentab::test
