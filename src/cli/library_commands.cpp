#include <nlohmann/json.hpp>

#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/input_file.h"
#include "cli/reason.h"
#include "cli/table_file.h"
#include "interchange/library_comparison.h"
#include "interchange/library_merge.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"

namespace zentab::cli {
namespace {

using interchange::LibraryText;

// What version control names where a side has no file: an empty library.
constexpr std::string_view kNoFile = "/dev/null";

bool TakeLibrary(const std::string& name, LibraryText& library, const Console& console) {
  if (name == kNoFile) return true;
  const InputFile file(name);
  std::error_code error = file.Error();
  if (!error) error = LibraryText::Read(platform::SystemFiles(), file.Path(), library);
  if (error) console.Warn(file.Name() + ": " + error.message());
  return !error;
}

// diff

struct DiffOptions {
  std::string before;
  std::string after;
  std::string format = "text";
};

void DeclareDiff(CLI::App& command, DiffOptions& options) {
  command.add_option("A", options.before, "Table file, - for standard input")->required();
  command.add_option("B", options.after, "The other one")->required();
  command
      .add_option(
          "--format", options.format,
          "text: a line + NAME for each entry that B alone has, - NAME for one that A alone "
          "has, ~ NAME for one that both have with other points or settings; json: one "
          "object with the names as added, removed and changed")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
}

// A file that is not there, in the place of none.
std::filesystem::path PathOf(const InputFile& file) {
  return file.Name() == kNoFile ? std::filesystem::path() : file.Path();
}

std::string JsonOf(const std::vector<interchange::EntryDifference>& differences) {
  nlohmann::ordered_json object = {{"added", nlohmann::ordered_json::array()},
                                   {"removed", nlohmann::ordered_json::array()},
                                   {"changed", nlohmann::ordered_json::array()}};
  constexpr std::array kNames = {"added", "removed", "changed"};  // in the order of Difference
  for (const interchange::EntryDifference& difference : differences) {
    object[kNames[static_cast<std::size_t>(difference.kind)]].push_back(difference.name);
  }
  return object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

Exit Diff(const DiffOptions& options, Console& console) {
  if (options.before == "-" && options.after == "-") {
    return console.Misused("diff: standard input can be read once");
  }
  const InputFile one(options.before);
  const InputFile two(options.after);
  for (const InputFile* const file : {&one, &two}) {
    const bool isNone = file->Name() == kNoFile;
    if (file->Error() && !isNone)
      return console.Fail(file->Name() + ": " + file->Error().message());
  }
  interchange::ComparedFile before = {PathOf(one), {}};
  interchange::ComparedFile after = {PathOf(two), {}};
  std::vector<interchange::EntryDifference> differences;
  if (const std::error_code error =
          interchange::Compare(platform::SystemFiles(), before, after, differences)) {
    return console.Fail(one.Name() + ", " + two.Name() + ": " + Reason(error));
  }
  if (options.format == "json") {
    console.Write(JsonOf(differences));
  } else {
    constexpr std::array kSigns = {"+ ", "- ", "~ "};  // in the order of Difference
    for (const interchange::EntryDifference& difference : differences) {
      console.WriteLine(kSigns[static_cast<std::size_t>(difference.kind)] + difference.name);
    }
  }
  return differences.empty() ? Exit::Done : Exit::Failed;
}

// merge

struct MergeOptions {
  std::string base;
  std::string ours;
  std::string theirs;
  std::string output;
};

void DeclareMerge(CLI::App& command, MergeOptions& options) {
  command.add_option("BASE", options.base, "Table file that both others were made from")
      ->required();
  command.add_option("OURS", options.ours, "One of them")->required();
  command.add_option("THEIRS", options.theirs, "The other one")->required();
  command.add_option("-o,--output", options.output, "Table file to write; may be one of the three")
      ->required()
      ->check(kWrittenFile);
}

Exit MergeThree(const MergeOptions& options, Console& console) {
  const int inputs = static_cast<int>(options.base == "-") + static_cast<int>(options.ours == "-") +
                     static_cast<int>(options.theirs == "-");
  if (inputs > 1) return console.Misused("merge: standard input can be read once");
  LibraryText base;
  LibraryText ours;
  LibraryText theirs;
  for (const auto& [name, library] :
       {std::pair(&options.base, &base), std::pair(&options.ours, &ours),
        std::pair(&options.theirs, &theirs)}) {
    if (!TakeLibrary(*name, *library, console)) return Exit::Failed;
  }
  const interchange::MergedLibrary merged = interchange::Merge(base, ours, theirs);
  const std::error_code error = platform::ReplaceFile(
      platform::SystemFiles(), platform::ToPath(options.output),
      [&merged](platform::OutputFile& output) { return output.Write(merged.bytes); });
  if (error) return NotWritten(console, options.output, error);
  for (const std::string& name : merged.conflicts) console.Tell("conflict: " + name + '\n');
  return merged.conflicts.empty() ? Exit::Done : Exit::Failed;
}

}  // namespace

void AddLibraryCommands(Commands& commands) {
  AddCommand(commands, "diff",
             "What became of library A in library B; exit code 0 when nothing did, else 1",
             DeclareDiff, Diff);
  AddCommand(commands, "merge",
             "Two libraries made from one, put together again by their entries' names; a line "
             "conflict: NAME on standard error for each entry that both changed differently, of "
             "which OUT holds ours, and exit code 1",
             DeclareMerge, MergeThree);
}

}  // namespace zentab::cli
