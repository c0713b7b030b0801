#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/entries.h"
#include "cli/input_file.h"
#include "cli/table_file.h"
#include "tables/entry_rename.h"
#include "tables/line_order.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

void DeclareRenamed(CLI::App& command, std::string& file, std::string& entry) {
  command.add_option("FILE", file, "Table file")->required()->check(kWrittenFile);
  command.add_option("ENTRY", entry, "Name, or #N for line number N from 0")->required();
}

// Looks an entry up, makes the change that `find` finds for it, and says what went wrong.
template <class Find>
Exit Change(const std::string& name, const std::string& entry, const Console& console,
            const Find& find) {
  const InputFile file(name);
  if (file.Error()) return console.Fail(file.Name() + ": " + file.Error().message());
  EntryOfFile found;
  if (const std::error_code error = FindEntry(file.Path(), entry, found)) {
    return console.Fail(file.Name() + ": " + error.message());
  }
  if (!found.found) return NotFound(console, name, entry);
  tables::LineChange change;
  if (const std::optional<Exit> failed = find(file.Path(), found, change)) return *failed;
  if (change.before == change.after) return Exit::Done;
  const std::error_code error = Writer().Make(change, found.listing);
  return error ? NotWritten(console, name, error) : Exit::Done;
}

// rename

struct RenameOptions {
  std::string file;
  std::string entry;
  std::string name;
};

void DeclareRename(CLI::App& command, RenameOptions& options) {
  DeclareRenamed(command, options.file, options.entry);
  command.add_option("NAME", options.name, "The new name")->required();
}

Exit Rename(const RenameOptions& options, Console& console) {
  if (texts::TrimBlanks(options.name).starts_with('#')) {
    return console.Misused("a name that begins with # would be taken for a line number");
  }
  if (texts::TrimBlanks(options.name).empty()) return console.Misused("an entry needs a name");
  return Change(
      options.file, options.entry, console,
      [&](const auto& path, EntryOfFile& entry, auto& change) -> std::optional<Exit> {
        const std::error_code error = tables::RenameOf(platform::SystemFiles(), path, entry.listing,
                                                       entry.mark, options.name, change);
        if (!error) return std::nullopt;
        if (error == std::errc::file_exists) {
          return console.Fail(options.file + ": has an entry '" + options.name + "' already");
        }
        if (error == std::errc::invalid_argument) {
          return console.Fail("'" + options.name +
                              "' cannot be a name: a line of a table file would not give it back");
        }
        return NotWritten(console, options.file, error);
      });
}

// move

struct MoveOptions {
  std::string file;
  std::string entry;
  std::size_t position = 0;
};

void DeclareMove(CLI::App& command, MoveOptions& options) {
  DeclareRenamed(command, options.file, options.entry);
  command
      .add_option("POSITION", options.position,
                  "The line number, from 0, that the entry is to have")
      ->required()
      ->check(kCount);
}

Exit Move(const MoveOptions& options, Console& console) {
  return Change(
      options.file, options.entry, console,
      [&](const auto& path, EntryOfFile& entry, auto& change) -> std::optional<Exit> {
        const std::error_code error = tables::MoveOf(platform::SystemFiles(), path, entry.listing,
                                                     entry.mark, options.position, change);
        if (!error) return std::nullopt;
        if (error == std::errc::invalid_argument) {
          return console.Fail(options.file + ": no line " + std::to_string(options.position) +
                              ": the last is " + std::to_string(entry.listing.lines.size() - 1));
        }
        return NotWritten(console, options.file, error);
      });
}

}  // namespace

void AddRenameCommands(Commands& commands) {
  AddCommand(commands, "rename", "Gives an entry another name and leaves the rest of its line",
             DeclareRename, Rename);
  AddCommand(commands, "move", "Puts an entry in another place of the file", DeclareMove, Move);
}

}  // namespace zentab::cli
