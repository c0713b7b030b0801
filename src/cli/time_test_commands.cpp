#include "cli/argument_checks.h"
#include "cli/command.h"
#include "cli/input_file.h"
#include "cli/numbers.h"
#include "cli/reason.h"
#include "platform/paths.h"
#include "texts/apply_texts.h"
#include "texts/number_text.h"
#include "timetest/import_pipeline.h"
#include "timetest/section_lines.h"

namespace zentab::cli {
namespace {

// entry

struct EntryOptions {
  std::string result;
  std::string heading;
  std::string number;
};

void DeclareEntry(CLI::App& command, EntryOptions& options) {
  command.add_option("RESULT", options.result, "Result file, - for standard input")->required();
  command.add_option("HEADING", options.heading, "Beginning of the section's heading")->required();
  command.add_option("NUMBER", options.number, "Number of the entry")->required();
}

Exit Entry(const EntryOptions& options, Console& console) {
  const InputFile result(options.result);
  if (result.Error()) return console.Fail(result.Name() + ": " + result.Error().message());
  std::string secondKey;
  const timetest::SectionEntry entry = timetest::ReadSectionEntry(
      platform::SystemFiles(), options.number, options.heading, secondKey, result.Path(),
      timetest::kSeparator, timetest::kEndMarker);
  if (entry.error) return console.Fail(result.Name() + ": " + entry.error.message());
  if (entry.value.empty()) return console.Fail(result.Name() + ": no entry " + options.number);
  console.WriteLine(entry.value);
  return Exit::Done;
}

// import

struct ImportArguments {
  std::string result;
  std::string heading;
  std::string install;
  std::string instrument;
  std::string catalogue;
  std::string trace;
  std::string pickup;
  std::string timeout;
  std::string difference;
  std::string filter;
  std::string mean;
  bool absolute = false;
  bool milliseconds = false;
};

const CLI::Validator kShortInteger(
    [](const std::string& text) {
      // No "," here, which the catalogue may have.
      return texts::WholeNumber(text) && texts::ShortInteger(text)
                 ? std::string()
                 : "'" + text + "' is no 16-bit integer";
    },
    "INTEGER");

void DeclareImport(CLI::App& command, ImportArguments& options) {
  CLI::Option* const result =
      command.add_option("RESULT", options.result, "Result file, - for standard input");
  CLI::Option* const heading =
      command.add_option("--heading", options.heading, "Beginning of the section's heading");
  CLI::Option* const install = command.add_option(
      "--install", options.install,
      "Installation folder, in place of RESULT and --heading, which are found in it");
  CLI::Option* const instrument = command
                                      .add_option("--instrument", options.instrument,
                                                  "Whose results in the installation folder")
                                      ->check(CLI::IsMember({"current", "voltage"}));
  result->needs(heading)->excludes(install);
  heading->needs(result)->excludes(install);
  install->needs(instrument);
  instrument->needs(install);
  command.add_option("--catalogue", options.catalogue,
                     "Text catalogue with equations and defaults for the options below");
  command.add_flag("--absolute", options.absolute,
                   "Loads stay as read, else they are divided by the pickup value");
  command.add_flag("--ms", options.milliseconds, "Times stay milliseconds, else seconds");
  command.add_option("--pickup", options.pickup, "Pickup value; 0 or none leaves loads as read")
      ->check(kNumber);
  command
      .add_option("--diff", options.difference,
                  "Number of the difference equation; built in where there is none")
      ->check(kShortInteger);
  command
      .add_option("--filter", options.filter,
                  "Number of the filter or its equation: 0 none, 1 to 6 built in; from 7 on points "
                  "that did "
                  "not trip stay")
      ->check(kShortInteger);
  command
      .add_option("--mean", options.mean,
                  "Width of the running mean, and the value equation's number")
      ->check(kShortInteger);
  command
      .add_option("--timeout", options.timeout, "Timeout level; below 1: 99 % of the longest time")
      ->check(kNumber);
  command.add_option("--trace", options.trace, "File that gets the stages of the import")
      ->check(kWrittenFile);
}

// A catalogue is applied to no window.
class NoWindow : public texts::TextTarget {
 public:
  void SetCaption(std::string_view, std::string_view) override {}
  void SetTooltip(std::string_view, std::string_view) override {}
  void SetShown(std::string_view, bool) override {}
  void SetPlaceholder(std::string_view, std::string_view) override {}
  void SetSpokenName(std::string_view, std::string_view) override {}
  [[nodiscard]] std::string Caption(std::string_view) const override { return {}; }
};

timetest::ImportOptions Options(const ImportArguments& options,
                                const texts::ImportSettings& settings) {
  return {{options.absolute, options.milliseconds, NumberOf(options.pickup)},
          texts::ShortInteger(options.difference).value_or(settings.differenceType),
          texts::ShortInteger(options.filter).value_or(settings.filterType),
          texts::ShortInteger(options.mean).value_or(settings.meanOver),
          options.timeout.empty() ? settings.timeout : options.timeout};
}

// The trace takes the place of a file of that name, which must be none that somebody still needs.
std::string ErrorOfTrace(const ImportArguments& arguments, const std::filesystem::path& result) {
  const std::filesystem::path trace = platform::ToPath(arguments.trace);
  if (AreOneFile(trace, result)) return "is the result file";
  if (AreOneFile(trace, platform::ToPath(arguments.catalogue))) return "is the catalogue";
  std::error_code missing;
  return std::filesystem::is_directory(trace, missing) ? "is a folder" : "";
}

Exit RunImport(const ImportArguments& arguments, const timetest::ResultSource& source,
               const std::string& name, Console& console) {
  const std::string traceError = ErrorOfTrace(arguments, source.file);
  if (!traceError.empty()) return console.Fail(arguments.trace + ": " + traceError);
  texts::CatalogueTexts texts;
  if (!arguments.catalogue.empty()) {
    const InputFile catalogue(arguments.catalogue);
    if (catalogue.Error()) {
      return console.Fail(catalogue.Name() + ": " + catalogue.Error().message());
    }
    NoWindow window;
    const auto error = texts::ApplyTexts(platform::SystemFiles(), catalogue.Path(), window, texts,
                                         [](std::string_view text) { return std::string(text); });
    if (error) return console.Fail(catalogue.Name() + ": " + error.message());
  }
  timetest::ImportTrace trace;
  const timetest::ImportResult result =
      timetest::ImportCurve(platform::SystemFiles(), source, Options(arguments, texts.import),
                            texts, arguments.trace.empty() ? nullptr : &trace, nullptr);
  const std::error_code traceFailure =
      trace.Save(platform::SystemFiles(), platform::ToPath(arguments.trace));
  if (traceFailure) console.Warn(arguments.trace + ": not written: " + Reason(traceFailure));
  if (result.readError) return console.Fail(name + ": " + result.readError.message());
  if (result.outcome == timetest::ImportOutcome::NoEntries) {
    return console.Fail(name + ": no entries");
  }
  if (result.outcome != timetest::ImportOutcome::Imported) return console.Fail(result.error);
  if (traceFailure) return Exit::Failed;
  if (result.selectedByRank) console.Warn(name + ": " + texts::ProgramTexts().selectedByRank);
  for (const timetest::MeasuredPoint& point : result.points) {
    console.WriteLine(ShortestText(point.load) + '\t' + ShortestText(point.time));
  }
  return Exit::Done;
}

Exit Import(const ImportArguments& arguments, Console& console) {
  if (!arguments.install.empty()) {
    const auto instrument = arguments.instrument == "current" ? tables::Instrument::Current
                                                              : tables::Instrument::Voltage;
    timetest::ResultSource source;
    const auto error = timetest::FindResultSource(
        platform::SystemFiles(), platform::ToPath(arguments.install), instrument, source);
    if (error) return console.Fail(arguments.install + ": fo.txt: " + error.message());
    const InputFile result(platform::ToText(source.file));
    if (result.Error()) return console.Fail(result.Name() + ": " + result.Error().message());
    return RunImport(arguments, source, result.Name(), console);
  }
  if (arguments.result.empty()) {
    return console.Misused("import: RESULT and --heading, or --install and --instrument");
  }
  const InputFile result(arguments.result);
  if (result.Error()) return console.Fail(result.Name() + ": " + result.Error().message());
  return RunImport(arguments, {result.Path(), arguments.heading}, result.Name(), console);
}

}  // namespace

void AddTimeTestCommands(Commands& commands) {
  AddCommand(commands, "entry", "The value text of one entry of a result file", DeclareEntry,
             Entry);
  AddCommand(commands, "import", "The points of a time test as a curve: LOAD, tab, TIME a line",
             DeclareImport, Import);
}

}  // namespace zentab::cli
