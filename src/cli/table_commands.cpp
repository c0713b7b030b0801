#include <nlohmann/json.hpp>

#include "app/library_commands.h"
#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/entries.h"
#include "cli/input_file.h"
#include "cli/numbers.h"
#include "cli/table_file.h"
#include "editor/grid_points.h"
#include "exchange/entry_copy.h"
#include "platform/line_reader.h"
#include "platform/paths.h"
#include "tables/entry_line.h"
#include "tables/table_writer.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"

namespace zentab::cli {
namespace {

namespace fs = std::filesystem;
using tables::Instrument;

const std::map<std::string, Instrument> kInstruments = {
    {"current", Instrument::Current}, {"voltage", Instrument::Voltage}, {"none", Instrument::None}};

std::string NameOf(Instrument instrument) {
  for (const auto& [name, kind] : kInstruments) {
    if (kind == instrument) return name;
  }
  return {};
}

std::string Digit(bool flag) { return flag ? "1" : "0"; }
std::string Digit(Instrument instrument) { return std::to_string(static_cast<int>(instrument)); }

// list

struct ListOptions {
  std::string file;
  bool isLong = false;
};

void DeclareList(CLI::App& command, ListOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_flag("--long", options.isLong,
                   "Line number (from 0), number of points, ms (0 or 1), absolute values (0 or 1), "
                   "instrument (0, 1 current, 2 voltage) and name, between tabs");
}

std::string LongLine(std::size_t number, const std::string& name, std::string_view bytes) {
  const tables::ParsedEntry entry = tables::ParseEntryLine(texts::DecodeLine(bytes));
  return std::to_string(number) + '\t' + std::to_string(entry.points.size()) + '\t' +
         Digit(entry.milliseconds.value_or(false)) + '\t' +
         Digit(entry.absoluteValues.value_or(false)) + '\t' +
         Digit(entry.instrument.value_or(Instrument::None)) + '\t' + name;
}

Exit List(const ListOptions& options, Console& console) {
  const InputFile file(options.file);
  if (file.Error()) return console.Fail(file.Name() + ": " + file.Error().message());
  std::size_t number = 0;
  const auto take = [&](const platform::RawLine& line) {
    const std::optional<std::string> name = tables::ParseEntryName(line.text);
    if (name) console.WriteLine(options.isLong ? LongLine(number, *name, line.text) : *name);
    ++number;
    return true;
  };
  const auto error = platform::ReadLines(platform::SystemFiles(), file.Path(), take);
  return error ? console.Fail(file.Name() + ": " + error.message()) : Exit::Done;
}

// show

struct ShowOptions {
  std::string file;
  std::string entry;
  std::string format = "tsv";
};

void DeclareShow(CLI::App& command, ShowOptions& options) {
  command.add_option("FILE", options.file, "Table file, - for standard input")->required();
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
  command
      .add_option(
          "--format", options.format,
          "tsv: a remark with name and settings, then LOAD, tab, TIME a line as the grid shows "
          "them; csv: the points with commas below a title; json: one object; the latter two "
          "with all digits of the numbers")
      ->check(CLI::IsMember({"tsv", "csv", "json"}))
      ->capture_default_str();
}

// The number of a point's text as the grid would take it, all its digits.
double PointNumber(const std::string& text) { return texts::LeadingNumber(text).value_or(0.0); }

std::string CsvOf(const tables::ParsedEntry& entry) {
  std::string lines = "load,time\n";
  for (const tables::CurvePoint& point : entry.points) {
    lines += ShortestText(PointNumber(point.load)) + ',' + ShortestText(PointNumber(point.time));
    lines += '\n';
  }
  return lines;
}

std::string JsonOfTable(const std::string& name, const tables::ParsedEntry& entry) {
  nlohmann::ordered_json points = nlohmann::ordered_json::array();
  for (const tables::CurvePoint& point : entry.points) {
    points.push_back({PointNumber(point.load), PointNumber(point.time)});
  }
  const nlohmann::ordered_json object = {
      {"name", name},
      {"milliseconds", entry.milliseconds.value_or(false)},
      {"absolute", entry.absoluteValues.value_or(false)},
      {"instrument", NameOf(entry.instrument.value_or(Instrument::None))},
      {"points", points}};
  return object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

Exit Show(const ShowOptions& options, Console& console) {
  const InputFile file(options.file);
  if (file.Error()) return console.Fail(file.Name() + ": " + file.Error().message());
  std::optional<EntryLine> read;
  if (const std::error_code error = ReadEntry(file.Path(), options.entry, read)) {
    return console.Fail(file.Name() + ": " + error.message());
  }
  if (!read) return NotFound(console, file.Name(), options.entry);
  const tables::ParsedEntry entry = tables::ParseEntryLine(read->line);
  if (options.format == "json") {
    console.Write(JsonOfTable(read->name, entry));
  } else if (options.format == "csv") {
    console.Write(CsvOf(entry));
  } else {
    console.WriteLine("# " + read->name + "\tms=" + Digit(entry.milliseconds.value_or(false)) +
                      "\tabsolute=" + Digit(entry.absoluteValues.value_or(false)) +
                      "\tinstrument=" + Digit(entry.instrument.value_or(Instrument::None)));
    editor::CurveGrid grid;
    editor::ShowPoints(grid, entry.points, ".");
    console.Write(GridLines(grid, "."));
  }
  return Exit::Done;
}

// add, update

struct StoreOptions {
  std::string file;
  std::string entry;  // the new name, or the entry to replace
  std::string points = "-";
  bool milliseconds = false;
  bool absolute = false;
  Instrument instrument = Instrument::None;
};

void DeclareStore(CLI::App& command, StoreOptions& options) {
  command
      .add_option(
          "--points", options.points,
          "File of at most 26 points, LOAD, tab, TIME a line, decimal point \".\"; empty lines and "
          "those that begin with # are passed over; - for standard input")
      ->capture_default_str();
  command.add_flag("--ms", options.milliseconds, "Times are milliseconds, not seconds");
  command.add_flag("--absolute", options.absolute,
                   "Loads are amperes or volts, not multiples of the pickup value");
  command.add_option("--instrument", options.instrument, "current, voltage or none")
      ->transform(CLI::CheckedTransformer(kInstruments, CLI::ignore_case).description(""));
}

void DeclareAdd(CLI::App& command, StoreOptions& options) {
  command.add_option("FILE", options.file, "Table file; a missing one is created")
      ->required()
      ->check(kWrittenFile);
  command.add_option("NAME", options.entry, "Name of the new entry")->required();
  DeclareStore(command, options);
}

void DeclareUpdate(CLI::App& command, StoreOptions& options) {
  command.add_option("FILE", options.file, "Table file")->required()->check(kWrittenFile);
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
  DeclareStore(command, options);
}

// The file's own path: names of the installation are not looked for.
std::string FullPath(const std::string& file) {
  return platform::ToText(fs::absolute(platform::ToPath(file)));
}

bool TakePoints(const StoreOptions& options, app::Session& session, Console& console) {
  const InputFile file(options.points);
  const PointLines lines = file.Error() ? PointLines() : ReadPointLines(file.Path());
  if (file.Error() || !lines.error.empty()) {
    console.Warn(file.Name() + ": " + (file.Error() ? file.Error().message() : lines.error));
    return false;
  }
  int row = editor::kFirstRow;
  for (const tables::CurvePoint& point : lines.points) {
    session.table.grid.SetCell(row, editor::kLoadColumn, point.load);
    session.table.grid.SetCell(row, editor::kTimeColumn, point.time);
    ++row;
  }
  session.tablePath = FullPath(options.file);
  session.modes.milliseconds = options.milliseconds;
  session.modes.absoluteValues = options.absolute;
  session.instrument = options.instrument;
  return true;
}

Exit Add(const StoreOptions& options, Console& console) {
  if (texts::TrimBlanks(options.entry).starts_with('#')) {
    return console.Misused("a name that begins with # would be taken for a line number");
  }
  app::Session session;
  if (!TakePoints(options, session, console)) return Exit::Failed;
  tables::TableWriter writer = Writer();
  app::LibraryCommands library(session, writer);
  if (const std::error_code error = library.FillEntryList()) {
    return console.Fail(options.file + ": " + error.message());
  }
  std::error_code error;
  switch (library.EnterName(options.entry, error)) {
    case app::NameResult::Added:
      return Exit::Done;
    case app::NameResult::Empty:
      return console.Misused("an entry needs a name");
    case app::NameResult::Duplicate:
      return console.Fail(options.file + ": has an entry '" + options.entry + "' already");
    case app::NameResult::NotWritten:
      break;
  }
  return NotWritten(console, options.file, error);
}

Exit Update(const StoreOptions& options, Console& console) {
  app::Session session;
  const InputFile file(options.file);
  if (file.Error()) return console.Fail(file.Name() + ": " + file.Error().message());
  EntryOfFile entry;
  if (const std::error_code error = FindEntry(file.Path(), options.entry, entry)) {
    return console.Fail(file.Name() + ": " + error.message());
  }
  if (!entry.found) return NotFound(console, options.file, options.entry);
  if (!TakePoints(options, session, console)) return Exit::Failed;
  const std::error_code error =
      Writer().ReplaceEntry(file.Path(), entry.listing, entry.mark,
                            {entry.found->name, editor::PointRows(session.table.grid, "."),
                             options.milliseconds, options.absolute, options.instrument});
  return error ? NotWritten(console, options.file, error) : Exit::Done;
}

// remove

struct RemoveOptions {
  std::string file;
  std::string entry;
};

void DeclareRemove(CLI::App& command, RemoveOptions& options) {
  command.add_option("FILE", options.file, "Table file")->required()->check(kWrittenFile);
  command.add_option("ENTRY", options.entry, "Name, or #N for line number N from 0")->required();
}

Exit Remove(const RemoveOptions& options, Console& console) {
  const InputFile file(options.file);
  if (file.Error()) return console.Fail(file.Name() + ": " + file.Error().message());
  EntryOfFile entry;
  if (const std::error_code error = FindEntry(file.Path(), options.entry, entry)) {
    return console.Fail(file.Name() + ": " + error.message());
  }
  if (!entry.found) return NotFound(console, options.file, options.entry);
  const std::error_code error = Writer().RemoveEntry(file.Path(), entry.listing, entry.mark);
  return error ? NotWritten(console, options.file, error) : Exit::Done;
}

// copy

struct CopyOptions {
  std::string source;
  std::string target;
  std::vector<std::string> entries;
};

void DeclareCopy(CLI::App& command, CopyOptions& options) {
  command.add_option("SOURCE", options.source, "Table file, - for standard input")->required();
  command.add_option("TARGET", options.target, "Table file; a missing one is created")
      ->required()
      ->check(kWrittenFile);
  command.add_option("ENTRY", options.entries, "Names, or #N for line number N from 0")->required();
}

Exit Copy(const CopyOptions& options, Console& console) {
  const InputFile source(options.source);
  if (source.Error()) return console.Fail(source.Name() + ": " + source.Error().message());
  tables::TableListing listing;
  if (const auto error = tables::ListEntries(platform::SystemFiles(), source.Path(), listing)) {
    return console.Fail(source.Name() + ": " + error.message());
  }
  const auto found = FindEntries(listing, options.entries);
  std::vector<bool> selected(listing.lines.size());
  for (std::size_t place = 0; place < found.size(); ++place) {
    if (!found[place]) return NotFound(console, source.Name(), options.entries[place]);
    selected[found[place]->line] = true;
  }
  tables::TableWriter writer = Writer();
  const exchange::CopyResult result = exchange::CopyEntries(
      writer, source.Path(), listing, selected, platform::ToPath(options.target));
  return result.error ? NotWritten(console, options.target, result.error) : Exit::Done;
}

}  // namespace

void AddTableCommands(Commands& commands) {
  AddCommand(commands, "list", "The names of a table file's entries, in file order", DeclareList,
             List);
  AddCommand(commands, "show", "The points and settings of an entry", DeclareShow, Show);
  AddCommand(commands, "add", "Adds an entry under a new name", DeclareAdd, Add);
  AddCommand(commands, "update", "Replaces an entry's points and settings, keeping its name",
             DeclareUpdate, Update);
  AddCommand(commands, "remove", "Takes an entry out of the file", DeclareRemove, Remove);
  AddCommand(commands, "copy", "Adds entries of one table file to another, unchanged", DeclareCopy,
             Copy);
}

}  // namespace zentab::cli
