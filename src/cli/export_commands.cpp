#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/entries.h"
#include "cli/input_file.h"
#include "cli/table_file.h"
#include "interchange/curve_csv.h"
#include "interchange/curve_file.h"
#include "interchange/entry_addition.h"
#include "interchange/entry_meaning.h"
#include "interchange/library_export.h"
#include "interchange/library_json.h"
#include "interchange/library_text.h"
#include "platform/file_text.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"
#include "tables/entry_line.h"

namespace zentab::cli {
namespace {

namespace fs = std::filesystem;
using interchange::LibraryText;

// export

struct ExportOptions {
  std::string file;
  std::vector<std::string> entries;
  std::string format;
  std::string output;
  std::string decimal = ".";
  std::string separator = ",";
};

void DeclareExport(CLI::App& command, ExportOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY", options.entries,
                     "Names, or #N for line number N from 0; all entries unless given");
  command
      .add_option("--format", options.format,
                  "csv: of each entry a heading with its name and units, then a point a row; json: "
                  "one object from which add-all makes the same lines")
      ->required()
      ->check(CLI::IsMember({"csv", "json"}));
  command.add_option("-o,--output", options.output, "File to write; standard output unless given")
      ->check(kWrittenFile);
  command.add_option("--decimal", options.decimal, "Decimal sign of csv, . or ,")
      ->check(CLI::IsMember({".", ","}))
      ->capture_default_str();
  command.add_option("--separator", options.separator, "Separator of csv, a character or \"tab\"")
      ->check(kSeparator)
      ->capture_default_str();
}

// Which lines are meant; nothing when one is missing, which was said.
std::optional<std::vector<bool>> ChosenLines(const ExportOptions& options, const LibraryText& text,
                                             const std::string& name, const Console& console) {
  tables::TableListing listing;
  for (std::size_t line = 0; line < text.LineCount(); ++line) {
    if (auto entry = tables::ParseEntryName(text.Line(line))) {
      listing.names.push_back(*std::move(entry));
    } else {
      listing.nameless.push_back(line);
    }
  }
  std::vector<bool> chosen(text.LineCount(), options.entries.empty());
  for (const std::size_t line : listing.nameless) chosen[line] = false;
  const auto found = FindEntries(listing, options.entries);
  for (std::size_t place = 0; place < found.size(); ++place) {
    if (!found[place]) {
      console.Warn(name + ": no entry '" + options.entries[place] + "'");
      return std::nullopt;
    }
    chosen[found[place]->line] = true;
  }
  return chosen;
}

Exit Export(const ExportOptions& options, Console& console) {
  if (options.decimal == options.separator) {
    return console.Misused("export: one sign cannot be both decimal sign and separator");
  }
  const InputFile file(options.file);
  LibraryText text;
  std::error_code error = file.Error();
  if (!error) error = LibraryText::Read(platform::SystemFiles(), file.Path(), text);
  if (error) return console.Fail(file.Name() + ": " + error.message());
  const fs::path output = platform::ToPath(options.output);
  if (!options.output.empty() && AreOneFile(file.Path(), output)) {
    return console.Fail(options.output + ": is the table file");
  }
  const auto chosen = ChosenLines(options, text, file.Name(), console);
  if (!chosen) return Exit::Failed;
  const auto format =
      options.format == "json" ? interchange::ExportFormat::Json : interchange::ExportFormat::Csv;
  const std::string exported = interchange::Exported(
      text, *chosen, format, {SeparatorOf(options.separator), options.decimal.front()});
  if (options.output.empty()) {
    console.Write(exported);
    return Exit::Done;
  }
  error = platform::ReplaceFile(
      platform::SystemFiles(), output,
      [&exported](platform::OutputFile& written) { return written.Write(exported); });
  return error ? NotWritten(console, options.output, error) : Exit::Done;
}

// add-all

struct AddAllOptions {
  std::string source;
  std::string target;
};

void DeclareAddAll(CLI::App& command, AddAllOptions& options) {
  command
      .add_option("FILE", options.source,
                  "Library as export writes it in json, - for standard input")
      ->required();
  command.add_option("TARGET", options.target, "Table file; a missing one is created")
      ->required()
      ->check(kWrittenFile);
}

Exit AddAll(const AddAllOptions& options, Console& console) {
  const InputFile file(options.source);
  std::string text;
  std::error_code error = file.Error();
  if (!error) {
    error = platform::ReadWholeFile(platform::SystemFiles(), file.Path(), interchange::kLargestText,
                                    text);
  }
  if (error) return console.Fail(file.Name() + ": " + error.message());
  const auto read = interchange::ReadJson(text);
  if (const interchange::Fault* const fault = interchange::FaultOf(read)) {
    return console.Fail(file.Name() + ": " + interchange::FaultText(*fault, {}));
  }
  const auto& library = std::get<interchange::JsonLibrary>(read);
  if (library.entries.empty()) return Exit::Done;
  const fs::path target = platform::ToPath(options.target);
  std::string taken;
  tables::TableWriter writer = Writer();
  error = interchange::AddEntries(writer, target, file.Path(), library, taken);
  if (!taken.empty()) {
    return console.Fail(options.target + ": has an entry '" + taken + "' already");
  }
  return error ? NotWritten(console, options.target, error) : Exit::Done;
}

}  // namespace

void AddExportCommands(Commands& commands) {
  AddCommand(commands, "export", "Entries as rows of a spreadsheet or as JSON", DeclareExport,
             Export);
  AddCommand(commands, "add-all",
             "Adds all entries of a JSON library, with the lines that they had", DeclareAddAll,
             AddAll);
}

}  // namespace zentab::cli
