#include "texts/template_text.h"

#include <algorithm>

namespace zentab::texts {
namespace {

std::string TimeText(const std::tm& time, const char* format) {
  std::array<char, 32> buffer{};
  return std::string(buffer.data(), std::strftime(buffer.data(), buffer.size(), format, &time));
}

struct FieldRow {
  char code;
  std::string (*text)(const TemplateFields&, const TemplateArguments&);
};

using F = const TemplateFields&;
using A = const TemplateArguments&;

constexpr FieldRow kFields[] = {
    {'%', [](F, A) { return std::string("%"); }},
    {'1', [](F, A a) { return std::string(a[0]); }},
    {'2', [](F, A a) { return std::string(a[1]); }},
    {'3', [](F, A a) { return std::string(a[2]); }},
    {'D', [](F f, A) { return TimeText(f.now, "%Y%m%d"); }},
    {'E', [](F f, A) { return TimeText(f.now, "%H:%M"); }},
    {'S', [](F f, A) { return TimeText(f.now, "%H:%M:%S"); }},
    {'F', [](F f, A) { return f.tablePath; }},
    {'G', [](F f, A) { return f.exchangeFile; }},
    {'N', [](F, A) { return std::string("\n"); }},
    {'X', [](F f, A) { return f.timeUnit; }},
    {'T', [](F f, A) { return f.loadLevels; }},
    {'U', [](F f, A) { return f.instrumentName; }},
    {'V', [](F f, A) { return f.instrumentUnit; }},
    {'A', [](F, A) { return std::string(); }},
    {'B', [](F, A) { return std::string(); }},
    {'C', [](F, A) { return std::string(); }},
    {'H', [](F, A) { return std::string(); }},
    {'I', [](F, A) { return std::string(); }},
    {'J', [](F, A) { return std::string(); }},
    {'K', [](F, A) { return std::string(); }},
};

}  // namespace

std::string ExpandTemplate(std::string_view text, const TemplateFields& fields,
                           const TemplateArguments& arguments) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t mark = std::min(text.find('%', at), text.size());
    result += text.substr(at, mark - at);
    if (mark + 1 >= text.size()) {
      result += text.substr(mark);
      break;
    }
    const auto* const row =
        std::find_if(std::begin(kFields), std::end(kFields),
                     [code = text[mark + 1]](const FieldRow& r) { return r.code == code; });
    if (row != std::end(kFields)) {
      result += row->text(fields, arguments);
    } else {
      result += text.substr(mark, 2);
    }
    at = mark + 2;
  }
  return result;
}

std::string AsTemplate(std::string_view text) {
  std::string result;
  for (const char c : text) result.append(c == '%' ? 2 : 1, c);
  return result;
}

}  // namespace zentab::texts
