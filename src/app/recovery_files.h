#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "editor/table_state.h"
#include "platform/file_layer.h"

namespace zentab::app {

/// A table that no library has, as it is kept beyond the end of the program.
struct KeptTable {
  /// Whether it was edited and not stored, or put aside: that one is not offered any more.
  enum class Kind { Unsaved, PutAside };

  Kind kind = Kind::Unsaved;
  std::int64_t editedAt = 0;  // seconds since 1970, UTC
  std::string tablePath;      // the active table file
  editor::TableState state;
};

/// The text of a recovery file, and back; nothing where it is none of this program.
[[nodiscard]] std::string RecoveryText(const KeptTable& kept);
[[nodiscard]] std::optional<KeptTable> ReadRecoveryText(std::string_view text);

/// The recovery files of a user: one for each editor with a table to be kept, and those that
/// editors which are gone have left. A file is an editor's as long as that holds its lock; any
/// number of editors share the folder.
class RecoveryFiles {
 public:
  /// An empty folder keeps nothing.
  RecoveryFiles(platform::FileLayer& files, std::filesystem::path folder)
      : files_(files), folder_(std::move(folder)) {}

  /// A table that nobody has any more, with a number by which this editor knows it.
  struct FoundTable {
    int number;
    KeptTable kept;
  };

  /// Looks for such tables; the one edited last is the first, and number 0. From now on no other
  /// editor finds them. Files that are none of this program are left alone.
  [[nodiscard]] std::vector<FoundTable> Look();

  /// A found table is this editor's own from now on.
  void Adopt(int number);
  /// A found table is put aside.
  [[nodiscard]] std::error_code PutAside(int number);
  /// The editor's own table, if there is one, is put aside under a new number.
  [[nodiscard]] std::error_code PutOwnAside(int number);

  /// Keeps a table as the editor's own, in place of the one before. When it is an unsaved one,
  /// those that were put aside by former editors go.
  [[nodiscard]] std::error_code Keep(const KeptTable& kept);
  /// There is nothing to be kept.
  [[nodiscard]] std::error_code Forget();

 private:
  struct Slot {
    std::filesystem::path file;
    std::unique_ptr<platform::FileLock> lock;
    KeptTable kept;
    int number = 0;
    bool isFormer = false;  // of a former editor
  };

  [[nodiscard]] std::error_code TakeOwn();
  [[nodiscard]] std::vector<Slot>::iterator SlotOf(int number);
  [[nodiscard]] std::error_code Write(const std::filesystem::path& file, const KeptTable& kept);

  platform::FileLayer& files_;
  std::filesystem::path folder_;
  std::vector<Slot> found_;
  std::optional<Slot> own_;
};

}  // namespace zentab::app
