#include "app/site_equations.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/file_text.h"
#include "platform/line_reader.h"
#include "platform/safe_file_replacement.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"
#include "texts/text_catalogue.h"

namespace zentab::app {
namespace {

constexpr std::size_t kSiteCatalogues = 2;
constexpr std::size_t kLargestCatalogue = 64u << 20;
constexpr std::string_view kUsualLineEnd = "\r\n";
constexpr std::array<std::string_view, texts::kEquationStages> kKeys = {
    "DIFF.EQUATION.", "VALUE.EQUATION.", "FILTER.EQUATION."};  // as of texts::EquationStage

std::string KeyOf(EquationId id) {
  return std::string(kKeys[static_cast<std::size_t>(id.stage)]) + std::to_string(id.number);
}

// A catalogue in memory, for the one who looks a text up.
class CatalogueBytes final : public platform::InputFile {
 public:
  explicit CatalogueBytes(std::string_view bytes) : bytes_(bytes) {}
  std::error_code ReadAt(std::uint64_t offset, char* to, std::size_t size,
                         std::size_t& count) override {
    const auto begin = static_cast<std::size_t>(std::min<std::uint64_t>(offset, bytes_.size()));
    count = bytes_.copy(to, size, begin);
    return {};
  }
  std::error_code Stamp(platform::FileStamp& stamp) override {
    stamp.size = bytes_.size();
    return {};
  }

 private:
  std::string_view bytes_;
};

// A line of a catalogue, by its place among the bytes.
struct Line {
  std::size_t begin = 0;
  std::size_t end = 0;  // of the text, without the line's end
};

std::vector<Line> LinesOf(std::string_view catalogue) {
  std::vector<Line> lines;
  CatalogueBytes file(catalogue);
  // Bytes in memory cannot fail, and no line of them is too long.
  [[maybe_unused]] const std::error_code dropped =
      platform::ReadLines(file, [&lines](const platform::RawLine& line) {
        const auto begin = static_cast<std::size_t>(line.offset);
        lines.push_back({begin, begin + line.text.size()});
        return true;
      });
  return lines;
}

std::string_view TextOf(std::string_view catalogue, const Line& line) {
  return catalogue.substr(line.begin, line.end - line.begin);
}

// Where a line has a key, which is in capitals, in either case; npos: nowhere.
std::size_t PlaceOfKey(std::string_view text, std::string_view key) {
  const auto found =
      std::search(text.begin(), text.end(), key.begin(), key.end(), [](char a, char b) {
        return (a >= 'a' && a <= 'z' ? static_cast<char>(a - 'a' + 'A') : a) == b;
      });
  return found == text.end() ? std::string_view::npos
                             : static_cast<std::size_t>(found - text.begin());
}

// The first line that has the key, as a catalogue is searched; the number of lines: none.
std::size_t FindKey(std::string_view catalogue, const std::vector<Line>& lines,
                    std::string_view key) {
  const auto found = std::ranges::find_if(lines, [&](const Line& line) {
    return PlaceOfKey(TextOf(catalogue, line), key) != std::string_view::npos;
  });
  return static_cast<std::size_t>(found - lines.begin());
}

// Whether the text of a line with the key is the key's: not that of a longer key, nor one that
// only speaks of it.
bool IsOwnLine(std::string_view text, std::string_view key) {
  const std::size_t behind = PlaceOfKey(text, key) + key.size();
  const bool isLonger = behind < text.size() && text[behind] >= '0' && text[behind] <= '9';
  const std::size_t open = text.find('{');
  const std::size_t close = text.find('}');
  return !isLonger && open != std::string_view::npos && close != std::string_view::npos &&
         behind <= open && open < close;
}

std::string_view LineEndOf(std::string_view catalogue) {
  const std::size_t end = catalogue.find_first_of("\r\n");
  if (end == std::string_view::npos) return kUsualLineEnd;
  const bool isPair = catalogue.substr(end).starts_with(kUsualLineEnd);
  return catalogue.substr(end, isPair ? 2 : 1);
}

std::string NewLine(std::string_view key, std::string_view equation) {
  return std::string(key) + " {" + std::string(equation) + "}";
}

// The line with another text between its braces. A part that is not ASCII is read as the whole
// line is written.
std::string WithText(std::string_view line, std::string_view equation) {
  const bool isAscii =
      std::ranges::all_of(equation, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  const std::string text = isAscii ? std::string(line) : texts::DecodeLine(line);
  const std::size_t open = text.find('{') + 1;
  const std::string changed =
      text.substr(0, open) + std::string(equation) + text.substr(text.find('}'));
  return isAscii ? changed : texts::EncodeLine(changed);
}

std::string TextBetweenBraces(std::string_view line) {
  const std::size_t open = line.find('{');
  const std::size_t close = line.find('}');
  if (open == std::string_view::npos || close == std::string_view::npos || close < open) return {};
  return std::string(line.substr(open + 1, close - open - 1));
}

// The bytes with a further line in front of one, or at the end.
void Insert(std::string& catalogue, const std::vector<Line>& lines, std::size_t before,
            const std::string& line) {
  const std::string end(LineEndOf(catalogue));
  if (before < lines.size()) {
    catalogue.insert(lines[before].begin, line + end);
    return;
  }
  const bool isOpen =
      !catalogue.empty() && !catalogue.ends_with('\n') && !catalogue.ends_with('\r');
  catalogue += (isOpen ? end : "") + line + end;
}

// "…EQUATION.1" is a part of "…EQUATION.10" and would be found in its line: a line of its own
// comes first, with what the catalogue gave for it.
void KeepFirstApart(std::string& catalogue, EquationId tenth) {
  const std::string first = KeyOf({tenth.stage, 1});
  const std::vector<Line> lines = LinesOf(catalogue);
  const std::size_t place = FindKey(catalogue, lines, first);
  if (place < lines.size() && FindKey(catalogue, lines, KeyOf(tenth)) != place) return;
  const std::string text =
      place < lines.size() ? TextBetweenBraces(TextOf(catalogue, lines[place])) : std::string();
  Insert(catalogue, lines, place, NewLine(first, text));
}

std::error_code LookUp(platform::FileLayer& files, const std::filesystem::path& catalogue,
                       EquationId id, std::string& text) {
  const std::error_code error = texts::LookupText(files, KeyOf(id), catalogue, text);
  text = texts::TrimBlanks(text);
  return error;
}

}  // namespace

const std::string& EquationOf(const texts::EquationTexts& equations, EquationId id) {
  return equations[static_cast<std::size_t>(id.stage)][id.number];
}

bool CanBeKept(std::string_view equation) {
  return equation.find_first_of("}\r\n") == std::string_view::npos;
}

std::optional<std::string> WithEquation(std::string_view catalogue, EquationId id,
                                        std::string_view equation) {
  if (!CanBeKept(equation)) return std::nullopt;
  std::string changed(catalogue);
  if (id.number == texts::kEquations) KeepFirstApart(changed, id);
  const std::string key = KeyOf(id);
  const std::vector<Line> lines = LinesOf(changed);
  const std::size_t place = FindKey(changed, lines, key);
  if (place < lines.size() && IsOwnLine(TextOf(changed, lines[place]), key)) {
    const Line& line = lines[place];
    changed.replace(line.begin, line.end - line.begin, WithText(TextOf(changed, line), equation));
    return changed;
  }
  Insert(changed, lines, place, texts::EncodeLine(NewLine(key, equation)));
  return changed;
}

std::filesystem::path SiteCatalogueFor(platform::FileLayer& files,
                                       std::span<const std::filesystem::path> catalogues,
                                       EquationId id) {
  const auto site = catalogues.last(kSiteCatalogues);
  std::filesystem::path chosen = site.front();
  for (const std::filesystem::path& catalogue : site) {
    std::string text;
    if (!LookUp(files, catalogue, id, text) && !text.empty()) chosen = catalogue;
  }
  return chosen;
}

std::error_code WriteEquation(platform::FileLayer& files, const std::filesystem::path& catalogue,
                              EquationId id, std::string_view equation) {
  return platform::ReplaceFile(files, catalogue, [&](platform::OutputFile& output) {
    std::string bytes;
    const std::error_code error =
        platform::ReadWholeFile(files, catalogue, kLargestCatalogue, bytes);
    if (error && error != std::errc::no_such_file_or_directory) return error;
    const std::optional<std::string> changed = WithEquation(bytes, id, equation);
    return changed ? output.Write(*changed) : std::make_error_code(std::errc::invalid_argument);
  });
}

std::string EquationInUse(platform::FileLayer& files,
                          std::span<const std::filesystem::path> catalogues, EquationId id) {
  std::string inUse;
  for (const std::filesystem::path& catalogue : catalogues) {
    std::string text;
    // Most places for a catalogue have none.
    if (!LookUp(files, catalogue, id, text) && !text.empty()) inUse = text;
  }
  return inUse;
}

}  // namespace zentab::app
