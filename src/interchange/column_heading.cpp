#include "interchange/column_heading.h"

#include <algorithm>
#include <array>
#include <vector>

#include "interchange/curve_csv.h"
#include "platform/character_case.h"
#include "texts/number_text.h"

namespace zentab::interchange {
namespace {

struct RoleWord {
  std::string_view word;
  ColumnRole role;  // Unknown: says nothing of its own
};

constexpr auto kRoleWords = std::to_array<RoleWord>({
    {"load", ColumnRole::Load},
    {"current", ColumnRole::Load},
    {"voltage", ColumnRole::Load},
    {"multiple", ColumnRole::Load},
    {"multiples", ColumnRole::Load},
    {"i", ColumnRole::Load},
    {"u", ColumnRole::Load},
    {"v", ColumnRole::Load},
    {"psm", ColumnRole::Load},
    {"strom", ColumnRole::Load},
    {"spannung", ColumnRole::Load},
    {"last", ColumnRole::Load},
    {"laststufe", ColumnRole::Load},
    {"vielfaches", ColumnRole::Load},
    {"vielfache", ColumnRole::Load},
    {"电流", ColumnRole::Load},
    {"电压", ColumnRole::Load},
    {"倍数", ColumnRole::Load},
    {"负荷", ColumnRole::Load},
    {"负载", ColumnRole::Load},
    {"time", ColumnRole::Time},
    {"t", ColumnRole::Time},
    {"zeit", ColumnRole::Time},
    {"auslösezeit", ColumnRole::Time},
    {"zeiten", ColumnRole::Time},
    {"times", ColumnRole::Time},
    {"时间", ColumnRole::Time},
    {"动作时间", ColumnRole::Time},
    {"no", ColumnRole::Index},
    {"nr", ColumnRole::Index},
    {"index", ColumnRole::Index},
    {"point", ColumnRole::Index},
    {"punkt", ColumnRole::Index},
    {"序号", ColumnRole::Index},
    {"trip", ColumnRole::Unknown},
    {"tripping", ColumnRole::Unknown},
    {"operating", ColumnRole::Unknown},
    {"operate", ColumnRole::Unknown},
    {"in", ColumnRole::Unknown},
    {"of", ColumnRole::Unknown},
});

struct UnitWord {
  std::string_view word;
  std::optional<LoadUnit> load;
  std::optional<TimeUnit> time;
};

constexpr auto kUnitWords = std::to_array<UnitWord>({
    {"multiple", LoadUnit::Multiple, {}},
    {"multiples", LoadUnit::Multiple, {}},
    {"vielfaches", LoadUnit::Multiple, {}},
    {"vielfache", LoadUnit::Multiple, {}},
    {"倍数", LoadUnit::Multiple, {}},
    {"倍", LoadUnit::Multiple, {}},
    {"x", LoadUnit::Multiple, {}},
    {"pu", LoadUnit::Multiple, {}},
    {"is", LoadUnit::Multiple, {}},
    {"in", LoadUnit::Multiple, {}},
    {"un", LoadUnit::Multiple, {}},
    {"us", LoadUnit::Multiple, {}},
    {"a", LoadUnit::Ampere, {}},
    {"amp", LoadUnit::Ampere, {}},
    {"amps", LoadUnit::Ampere, {}},
    {"ampere", LoadUnit::Ampere, {}},
    {"amperes", LoadUnit::Ampere, {}},
    {"安", LoadUnit::Ampere, {}},
    {"v", LoadUnit::Volt, {}},
    {"volt", LoadUnit::Volt, {}},
    {"volts", LoadUnit::Volt, {}},
    {"伏", LoadUnit::Volt, {}},
    {"ka", LoadUnit::Kiloampere, {}},
    {"s", {}, TimeUnit::Second},
    {"sec", {}, TimeUnit::Second},
    {"secs", {}, TimeUnit::Second},
    {"second", {}, TimeUnit::Second},
    {"seconds", {}, TimeUnit::Second},
    {"sek", {}, TimeUnit::Second},
    {"sekunden", {}, TimeUnit::Second},
    {"秒", {}, TimeUnit::Second},
    {"ms", {}, TimeUnit::Millisecond},
    {"msec", {}, TimeUnit::Millisecond},
    {"milliseconds", {}, TimeUnit::Millisecond},
    {"millisekunden", {}, TimeUnit::Millisecond},
    {"毫秒", {}, TimeUnit::Millisecond},
    {"cycle", {}, TimeUnit::Cycle50},
    {"cycles", {}, TimeUnit::Cycle50},
    {"cyc", {}, TimeUnit::Cycle50},
    {"perioden", {}, TimeUnit::Cycle50},
    {"周波", {}, TimeUnit::Cycle50},
});

struct Word {
  std::string text;  // in lower case
  bool inBrackets;
  bool behindStroke;  // "A" in "I/A"
};

bool IsOfWord(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
         (static_cast<unsigned char>(c) & 0x80u);
}

std::vector<Word> WordsOf(std::string_view heading) {
  std::string text = platform::LowerCase(heading);
  for (const auto& [wide, plain] : {std::pair("\uFF08", "("), std::pair("\uFF09", ")")}) {
    for (std::size_t at = text.find(wide); at != std::string::npos; at = text.find(wide)) {
      text.replace(at, std::string_view(wide).size(), plain);
    }
  }
  std::vector<Word> words;
  int brackets = 0;
  char mark = ' ';
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (!IsOfWord(c)) {
      if (c == '(' || c == '[' || c == '{') ++brackets;
      if (c == ')' || c == ']' || c == '}') brackets = std::max(brackets - 1, 0);
      if (c != ' ') mark = c;
      ++at;
      continue;
    }
    const std::size_t begin = at;
    while (at < text.size() && IsOfWord(text[at])) ++at;
    words.push_back({text.substr(begin, at - begin), brackets > 0, mark == '/'});
    mark = ' ';
  }
  return words;
}

template <class Rows>
auto Find(const Rows& rows, std::string_view word) {
  const auto* const found = std::ranges::find(rows, word, [](const auto& row) { return row.word; });
  return found == rows.end() ? nullptr : found;
}

// "t2" is a time as "t" is.
const RoleWord* RoleRow(std::string_view word) {
  const std::size_t end = word.find_last_not_of("0123456789");
  return end == std::string_view::npos ? nullptr : Find(kRoleWords, word.substr(0, end + 1));
}

ColumnRole RoleOf(const std::vector<Word>& words) {
  for (const ColumnRole role : {ColumnRole::Time, ColumnRole::Load, ColumnRole::Index}) {
    for (const Word& word : words) {
      const RoleWord* const row =
          word.inBrackets || word.behindStroke ? nullptr : RoleRow(word.text);
      if (row != nullptr && row->role == role) return role;
    }
  }
  return ColumnRole::Unknown;
}

// The unit: in brackets, behind a stroke or "in", the heading as a whole, or last behind a word
// that names what is measured.
const UnitWord* UnitOf(const std::vector<Word>& words, ColumnRole role) {
  for (std::size_t at = words.size(); at-- > 0;) {
    const UnitWord* const unit = Find(kUnitWords, words[at].text);
    if (unit == nullptr) continue;
    const bool isBehindIn = at > 0 && words[at - 1].text == "in";
    const bool isLast = at + 1 == words.size() && at > 0 && role != ColumnRole::Unknown;
    if (words[at].inBrackets || words[at].behindStroke || isBehindIn || isLast ||
        words.size() == 1 || (unit->load == LoadUnit::Multiple && unit->word != "in")) {
      return unit;
    }
  }
  return nullptr;
}

std::string_view WithoutUnit(std::string_view heading) {
  const std::size_t bracket = heading.find_last_of("([{");
  const bool isLast =
      bracket != std::string_view::npos && heading.find_last_of(")]}") == heading.size() - 1;
  return texts::TrimBlanks(isLast ? heading.substr(0, bracket) : heading);
}

}  // namespace

ColumnHeading ReadHeading(std::string_view heading) {
  const std::vector<Word> words = WordsOf(heading);
  ColumnHeading result;
  result.role = RoleOf(words);
  const UnitWord* const unit = UnitOf(words, result.role);
  if (unit != nullptr) {
    result.loadUnit = unit->load;
    result.timeUnit = unit->time;
    const bool is60 = std::ranges::any_of(
        words, [](const Word& word) { return word.text == "60" || word.text == "60hz"; });
    if (unit->time == TimeUnit::Cycle50 && is60) result.timeUnit = TimeUnit::Cycle60;
    // "Feeder 1 load [s]" is a time whatever its words.
    if (unit->time) result.role = ColumnRole::Time;
    if (unit->load && result.role == ColumnRole::Unknown) result.role = ColumnRole::Load;
  }
  const bool isPlain = std::ranges::all_of(words, [](const Word& word) {
    return word.inBrackets || RoleRow(word.text) != nullptr ||
           Find(kUnitWords, word.text) != nullptr;
  });
  if (!isPlain) result.name = PlainText(unit != nullptr ? WithoutUnit(heading) : heading);
  return result;
}

}  // namespace zentab::interchange
