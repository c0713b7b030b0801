#include "cli/argument_checks.h"

#include "texts/number_text.h"

namespace zentab::cli {

double NumberOf(const std::string& text) { return texts::WholeNumber(text).value_or(0.0); }

const CLI::Validator kNumber(
    [](const std::string& text) {
      return texts::WholeNumber(text) ? std::string() : "'" + text + "' is no decimal number";
    },
    "NUMBER");

const CLI::Validator kWrittenFile(
    [](const std::string& text) {
      return text == "-" ? "- is standard input, which is only read; ./- is a file of that name"
                         : std::string();
    },
    "");

}  // namespace zentab::cli
