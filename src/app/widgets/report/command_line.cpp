#include "app/widgets/report/command_line.h"

#include <algorithm>
#include <sstream>

#include "app/languages.h"
#include "app/settings.h"
#include "app/widgets/report/chart_picture.h"
#include "app/widgets/report/report_document.h"
#include "app/windowless_session.h"
#include "cli/argument_checks.h"
#include "cli/assessment_arguments.h"
#include "cli/reason.h"
#include "platform/paths.h"
#include "platform/safe_file_replacement.h"
#include "texts/number_text.h"

namespace zentab::app {
namespace {

using cli::Console;
using cli::Exit;

struct Options {
  bool isReport = false;
  bool isChart = false;
  std::string file;
  std::vector<std::string> entries;
  std::string output;
  std::vector<std::string> headerLines;
  std::vector<std::string> catalogues;
  std::string paper;
  std::string size = "160x120";
  int dotsPerInch = 300;
  cli::AssessmentOptions assessment;
};

std::optional<QSizeF> SizeOf(const std::string& text) {
  const std::size_t cross = text.find('x');
  if (cross == std::string::npos) return std::nullopt;
  const auto width = texts::WholeNumber(text.substr(0, cross));
  const auto height = texts::WholeNumber(text.substr(cross + 1));
  const auto fits = [](const std::optional<double>& side) {
    return side && *side >= kShortestSide && *side <= kLongestSide;
  };
  return fits(width) && fits(height) ? std::optional(QSizeF(*width, *height)) : std::nullopt;
}

const CLI::Validator kSizeCheck(
    [](const std::string& text) {
      return SizeOf(text) ? std::string() : "'" + text + "' is not WIDTHxHEIGHT, each 20 to 2000";
    },
    "WIDTHxHEIGHT");

void Declare(CLI::App& program, Options& options) {
  CLI::Option* const report = program.add_flag("--report", options.isReport,
                                               "Write a report on entries, a page each, as PDF");
  CLI::Option* const chart = program.add_flag("--chart", options.isChart,
                                              "Write the chart of an entry as PNG, SVG or PDF");
  chart->excludes(report);
  program.add_option("FILE", options.file, "Table file, - for standard input")->required();
  program.add_option("ENTRY", options.entries, "Names, or #N for line number N from 0")->required();
  program
      .add_option("-o,--output", options.output,
                  "File to write; its name ends in .pdf, of a chart in .png or .svg as well")
      ->required()
      ->check(cli::kWrittenFile);
  program
      .add_option("--header", options.headerLines,
                  "A line above everything on each page, up to five times; those that the window "
                  "keeps unless given, an empty one for none")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->needs(report);
  program.add_option("--paper", options.paper, "a4 or letter; the window's unless given")
      ->check(CLI::IsMember({"a4", "letter"}, CLI::ignore_case))
      ->needs(report);
  program.add_option("--size", options.size, "Width and height of the chart in mm")
      ->check(kSizeCheck)
      ->capture_default_str()
      ->needs(chart);
  program.add_option("--dpi", options.dotsPerInch, "Dots per inch of a PNG")
      ->check(CLI::Range(kFewestDots, kMostDots))
      ->capture_default_str()
      ->needs(chart);
  program
      .add_option("--catalogue", options.catalogues,
                  "Text catalogue to apply after the window's; may be repeated")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  cli::DeclareAssessment(program, options.assessment);
}

// The entries' lines, in the order in which they were asked for.
Exit ReadLines(const cli::InputFile& file, const std::vector<std::string>& entries,
               const Console& console, std::vector<cli::EntryLine>& lines) {
  tables::TableListing listing;
  std::error_code error = file.Error();
  if (!error) error = tables::ListEntries(platform::SystemFiles(), file.Path(), listing);
  const auto found = cli::FindEntries(listing, entries);
  for (std::size_t at = 0; at < found.size() && !error; ++at) {
    if (!found[at]) return console.Fail(file.Name() + ": no entry '" + entries[at] + "'");
    tables::EntryMark mark = listing.MarkOf(found[at]->line);
    lines.push_back({found[at]->name, {}});
    error = tables::ReadEntryLine(platform::SystemFiles(), file.Path(), listing, mark,
                                  lines.back().line);
  }
  return error ? console.Fail(file.Name() + ": " + cli::Reason(error)) : Exit::Done;
}

std::string ReferenceName(const cli::AssessmentOptions& options, const Session& session) {
  if (!options.against.empty()) return options.against.back();
  const auto family = curves::FamilyOf(options.characteristic.family);
  return family ? session.texts.curve.*curves::RowOf(*family).name : std::string();
}

Exit Assess(const Options& options, const cli::InputFile& file, const cli::EntryLine& line,
            const Session& session, const Console& console, ReportedTable& table) {
  ReportAssessment assessment;
  const Exit exit = cli::AssessEntry(options.assessment, "--report", file, cli::PointsOf(line),
                                     console, assessment.result);
  if (exit != Exit::Done) return exit;
  assessment.limits = LimitLines(session, ReferenceName(options.assessment, session),
                                 cli::LimitsOf(options.assessment));
  table.assessment = std::move(assessment);
  return Exit::Done;
}

Exit MakeTables(const Options& options, const Session& session, const Console& console,
                std::vector<ReportedTable>& tables) {
  const cli::InputFile file(options.file);
  if (cli::AreOneFile(file.Path(), platform::ToPath(options.output))) {
    return console.Fail(options.output + ": is the table file");
  }
  std::vector<cli::EntryLine> lines;
  if (const Exit read = ReadLines(file, options.entries, console, lines); read != Exit::Done) {
    return read;
  }
  for (const cli::EntryLine& line : lines) {
    ReportedTable table = TableOfLine(line.name, line.line, session.localeDecimalSeparator);
    table.file = file.Name();
    table.modes.pickup = texts::SetDecimalSeparator(options.assessment.characteristic.pickup,
                                                    session.localeDecimalSeparator);
    if (options.isReport && options.assessment.HasReference()) {
      const Exit assessed = Assess(options, file, line, session, console, table);
      if (assessed != Exit::Done) return assessed;
    }
    tables.push_back(std::move(table));
  }
  return Exit::Done;
}

Exit WriteFile(const std::string& output, const QByteArray& bytes, const Console& console) {
  if (bytes.isEmpty()) return console.Fail(output + ": not written: not enough memory");
  const std::error_code error = platform::ReplaceFile(
      platform::SystemFiles(), platform::ToPath(output), [&bytes](platform::OutputFile& file) {
        return file.Write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
      });
  return error ? console.Fail(output + ": not written: " + cli::Reason(error)) : Exit::Done;
}

QByteArray ChartOf(const ReportPage& page, const Options& options, PictureFormat format,
                   const Session& session) {
  PaperChart chart(QString::fromStdString(session.localeDecimalSeparator));
  return ChartPicture(chart.Show(page.curve, QString::fromStdString(page.axes.load),
                                 QString::fromStdString(page.axes.time)),
                      format, {SizeOf(options.size).value_or(QSizeF()), options.dotsPerInch},
                      QString::fromStdString(page.title));
}

Exit Make(const Options& options, Console& console) {
  const std::optional<PictureFormat> format = FormatOf(QString::fromStdString(options.output));
  if (!format || (options.isReport && format != PictureFormat::Pdf)) {
    return console.Misused(options.output + (options.isReport
                                                 ? ": a report's name ends in .pdf"
                                                 : ": a chart's name ends in .png, .svg or .pdf"));
  }
  if (options.isChart && options.entries.size() > 1) {
    return console.Misused("--chart takes one entry");
  }
  const std::filesystem::path executable = platform::ExecutablePath();
  const auto store = platform::UserSettingsStore();
  Session session = WindowlessSession(
      LoadSettings(*store, platform::BaseName(executable), kProgram), *platform::SystemRegistry(),
      executable, KeptLanguage(*store, kProgram, executable));
  for (const std::string& catalogue : options.catalogues) {
    const std::error_code error = TakeTexts(session, platform::ToPath(catalogue));
    if (error) return console.Fail(catalogue + ": " + error.message());
  }
  std::vector<ReportedTable> tables;
  const Exit made = MakeTables(options, session, console, tables);
  if (made != Exit::Done) return made;
  ReportSettings settings = LoadReportSettings(*store, kProgram, {{}, UsualPaper(), true});
  if (!options.headerLines.empty()) {
    settings.headerLines.clear();
    for (const std::string& line : options.headerLines) {
      for (const std::string& part : HeaderLines(line)) settings.headerLines.push_back(part);
    }
    settings.headerLines.resize(std::min(settings.headerLines.size(), kMostHeaderLines));
  }
  if (!options.paper.empty()) {
    settings.paper =
        options.paper.front() == 'l' || options.paper.front() == 'L' ? Paper::Letter : Paper::A4;
  }
  const Report report = ReportOf(session, tables, settings.headerLines, LocalTime());
  if (options.isReport) {
    return WriteFile(options.output, ReportPdf(report, settings.paper), console);
  }
  const ReportPage& page = report.pages.front();
  if (!page.curve.IsShown())
    return console.Fail(tables.front().name + ": has no curve: two points are needed");
  return WriteFile(options.output, ChartOf(page, options, *format, session), console);
}

}  // namespace

bool IsWindowless(const std::vector<std::string>& arguments) {
  return std::any_of(arguments.begin(), arguments.end(), [](const std::string& argument) {
    return argument == "--report" || argument == "--chart";
  });
}

int RunWindowless(const std::vector<std::string>& arguments) {
  CLI::App program(
      "Charts and reports without a window.\nExit codes: 0 done, 1 the operation "
      "failed or found nothing, 2 wrong usage.",
      kProgram);
  Options options;
  Declare(program, options);
  Console console(kProgram);
  try {
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    std::ostringstream help;
    std::ostringstream failure;
    const bool isHelp = program.exit(error, help, failure) == 0;
    console.Write(help.str());
    if (!isHelp) console.Warn(error.what());
    if (!console.Finish()) return static_cast<int>(Exit::Failed);
    return static_cast<int>(isHelp ? Exit::Done : Exit::WrongUsage);
  }
  return static_cast<int>(Make(options, console));
}

}  // namespace zentab::app
