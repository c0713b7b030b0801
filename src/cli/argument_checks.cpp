#include "cli/argument_checks.h"

#include <limits>

#include "texts/number_text.h"

namespace zentab::cli {

double NumberOf(const std::string& text) { return texts::WholeNumber(text).value_or(0.0); }

const CLI::Validator kNumber(
    [](const std::string& text) {
      return texts::WholeNumber(text) ? std::string() : "'" + text + "' is no decimal number";
    },
    "NUMBER");

char SeparatorOf(const std::string& text) { return text == "tab" ? '\t' : text.front(); }

const CLI::Validator kSeparator(
    [](const std::string& text) {
      const bool isSign = text.size() == 1 && text.find_first_of("\"\r\n") == std::string::npos &&
                          static_cast<unsigned char>(text.front()) < 0x80u;
      return isSign || text == "tab" ? std::string() : "'" + text + "' is no separator";
    },
    "C");

const CLI::Validator kCount(
    [](const std::string& text) {
      const bool isCount = !text.empty() && text.size() < std::numeric_limits<int>::digits10 &&
                           text.find_first_not_of("0123456789") == std::string::npos;
      return isCount ? std::string() : "'" + text + "' is no whole number from 0";
    },
    "N");

const CLI::Validator kWrittenFile(
    [](const std::string& text) {
      return text == "-" ? "- is standard input, which is only read; ./- is a file of that name"
                         : std::string();
    },
    "");

}  // namespace zentab::cli
