#include "cli/command.h"
#include "cli/entries.h"
#include "cli/input_file.h"
#include "editor/clipboard_text.h"
#include "texts/line_encoding.h"

namespace zentab::cli {
namespace {

struct CleanOptions {
  std::string decimal = ".";
};

void DeclareClean(CLI::App& command, CleanOptions& options) {
  command
      .add_option("--decimal", options.decimal, "Decimal separator of the user's locale: . or ,")
      ->check(CLI::IsMember({".", ","}))
      ->capture_default_str();
}

Exit Clean(const CleanOptions& options, Console& console) {
  const std::optional<std::string> text = StandardInput();
  if (!text) return console.Fail("standard input cannot be read");
  editor::WorkingTable table;
  const editor::CellArea firstCell = {editor::kFirstRow, editor::kLoadColumn, editor::kFirstRow,
                                      editor::kLoadColumn};
  editor::PasteText(table, firstCell, texts::DecodeLine(*text), options.decimal);
  console.Write(GridLines(table.grid));
  return Exit::Done;
}

}  // namespace

void AddCleanCommand(Commands& commands) {
  AddCommand(commands, "clean",
             "Pastes the rows of a spreadsheet from standard input into an empty grid, tidies it "
             "and prints LOAD, tab, TIME a row",
             DeclareClean, Clean);
}

}  // namespace zentab::cli
