#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>

#include "platform/file_layer.h"
#include "platform/safe_file_replacement.h"
#include "tables/curve_table_entry.h"
#include "tables/line_change.h"
#include "tables/table_listing.h"

namespace zentab::tables {

/// Whether the first change of a table file keeps its former content beside it, as FILE.bak. One
/// that has entries stays instead of a file that has none.
enum class Backups { None, AtFirstWrite };

/// Changes table files, each change by replacing the whole file in one step, under its lock: who
/// is killed, or meets a full disk, leaves the old file or the new one. Whatever has changed the
/// file since it was listed, no entry of anyone else is overwritten: the file is then listed anew,
/// and what was meant for a line goes to where that line is now. All other bytes of the file stay.
/// One writer serves from start to end of the program; backups are kept once for each file.
///
/// All operations fail with what the system says, and then the file is as it was. The listing is
/// brought up to date by each of them, whether it fails or not.
class TableWriter {
 public:
  TableWriter(platform::FileLayer& files, Backups backups) : files_(files), backups_(backups) {}

  /// Puts the entry's line in the place of the mark's; the mark is then that of the new line.
  /// Fails with kEntryChanged when no line holds what the mark's did.
  [[nodiscard]] std::error_code ReplaceEntry(const std::filesystem::path& file,
                                             TableListing& listing, EntryMark& mark,
                                             const CurveTableEntry& entry);

  /// Takes the mark's line out of the file; as above. The mark keeps the place that it had.
  [[nodiscard]] std::error_code RemoveEntry(const std::filesystem::path& file,
                                            TableListing& listing, EntryMark& mark);

  /// Adds the entry's line at the end of the file, which is created when it is missing. A last
  /// line without a line end gets one first. Fails with std::errc::file_exists when the file has
  /// got an entry of that name since it was listed.
  [[nodiscard]] std::error_code AppendEntry(const std::filesystem::path& file,
                                            TableListing& listing, const CurveTableEntry& entry);

  /// Adds what `write` writes, whole lines of `source`, in the same way. Where the source is the
  /// backup itself, it is left as it is.
  [[nodiscard]] std::error_code AppendLines(const std::filesystem::path& file,
                                            const std::filesystem::path& source,
                                            const platform::ContentWriter& write);

  /// Makes a change again that has been taken back, or takes it back when it is a reversed one, in
  /// the same guarded way. Fails with kEntryChanged when the lines that it replaces no longer stand
  /// anywhere in the file, or an entry that it puts back has got a successor of the same name.
  [[nodiscard]] std::error_code Make(const LineChange& change, TableListing& listing);

  /// From now on `tell` hears of every change of a file, once it is made.
  void OnChange(std::function<void(const LineChange&)> tell) { onChange_ = std::move(tell); }

  /// Whether the last operation failed because the former file could not be kept as a backup; it
  /// is not changed without one.
  [[nodiscard]] bool LacksBackup() const { return lacksBackup_; }

  /// Whether the last operation found no table file but only what another program had left as
  /// FILE.new, which is now FILE.bak (and a backup with entries FILE.bak.old).
  [[nodiscard]] bool HasKeptLeftover() const { return hasKeptLeftover_; }

  /// Whether there is no file, but a FILE.new with entries.
  [[nodiscard]] bool FindsLeftover(const std::filesystem::path& file) const;

  /// Gives FILE.new, which another program has left, the name FILE if there is none. Fails with
  /// std::errc::file_exists when there is.
  [[nodiscard]] std::error_code TakeLeftover(const std::filesystem::path& file);

  /// The files that it works on.
  [[nodiscard]] platform::FileLayer& Files() const { return files_; }
  /// Keeps what they belong to alive.
  [[nodiscard]] KeepAlive Alive() const;

 private:
  [[nodiscard]] std::error_code ChangeLine(const std::filesystem::path& file, TableListing& listing,
                                           EntryMark& mark, std::string_view replacement);
  void ListChanged(const std::filesystem::path& file, TableListing& listing);
  [[nodiscard]] std::error_code CopyChanged(const std::filesystem::path& file,
                                            TableListing& listing, EntryMark& mark,
                                            std::string_view replacement,
                                            platform::OutputFile& output);
  [[nodiscard]] std::error_code CopyAround(const LineChange& change, TableListing& listing,
                                           platform::OutputFile& output);
  [[nodiscard]] std::error_code CopyComplete(const std::filesystem::path& file,
                                             const std::filesystem::path& spared,
                                             platform::OutputFile& output);
  [[nodiscard]] std::error_code Append(const std::filesystem::path& file,
                                       const std::filesystem::path& spared,
                                       const platform::ContentWriter& write,
                                       platform::FileStamp& written);
  [[nodiscard]] std::error_code Rewrite(const std::filesystem::path& file,
                                        const platform::ContentWriter& write,
                                        platform::FileStamp& written);
  [[nodiscard]] std::error_code KeepLeftover(const std::filesystem::path& leftover);
  [[nodiscard]] std::error_code KeepBackup(const std::filesystem::path& file,
                                           const std::filesystem::path& spared);

  platform::FileLayer& files_;
  Backups backups_;
  std::set<std::filesystem::path> written_;  // the files changed since the start
  std::function<void(const LineChange&)> onChange_;
  LineChange change_;  // the one that is being made
  bool lacksBackup_ = false;
  bool hasKeptLeftover_ = false;
};

}  // namespace zentab::tables
