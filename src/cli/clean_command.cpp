#include <cctype>

#include "cli/command.h"
#include "cli/entries.h"
#include "cli/input_file.h"
#include "editor/clipboard_text.h"
#include "platform/ascii.h"
#include "texts/characters.h"
#include "texts/line_encoding.h"

namespace zentab::cli {
namespace {

struct CleanOptions {
  std::string decimal = ".";
};

const CLI::Validator kDecimalSeparator(
    [](const std::string& text) {
      const bool isSign = text.size() == 1 &&
                          std::ispunct(static_cast<unsigned char>(text[0])) != 0 && text != "-" &&
                          text != "+";
      const bool isCharacter = texts::ToCharacters(text).size() == 1 && !platform::IsAscii(text);
      return isSign || isCharacter ? std::string() : "'" + text + "' is no decimal separator";
    },
    "SEPARATOR");

void DeclareClean(CLI::App& command, CleanOptions& options) {
  command
      .add_option("--decimal", options.decimal,
                  "Decimal separator of the user's locale; . and , are understood beside it")
      ->check(kDecimalSeparator)
      ->capture_default_str();
}

Exit Clean(const CleanOptions& options, Console& console) {
  const std::optional<std::string> text = StandardInput();
  if (!text) return console.Fail("standard input cannot be read");
  editor::WorkingTable table;
  const editor::CellArea firstCell = {editor::kFirstRow, editor::kLoadColumn, editor::kFirstRow,
                                      editor::kLoadColumn};
  editor::PasteText(table, firstCell, texts::DecodeLine(*text), options.decimal);
  console.Write(GridLines(table.grid, options.decimal));
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
