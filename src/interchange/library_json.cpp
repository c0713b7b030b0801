#include "interchange/library_json.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "interchange/entry_meaning.h"
#include "platform/ansi_code_page.h"
#include "platform/line_reader.h"
#include "tables/entry_line.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"

namespace zentab::interchange {
namespace {

using nlohmann::json;
using Written = nlohmann::ordered_json;
using tables::Instrument;

constexpr std::string_view kFormat = "zentab-library";
constexpr int kVersion = 1;
constexpr std::string_view kSingleByte = "single-byte";

struct InstrumentName {
  Instrument instrument;
  std::string_view name;
};
constexpr std::array kInstruments = {InstrumentName{Instrument::None, "none"},
                                     InstrumentName{Instrument::Current, "current"},
                                     InstrumentName{Instrument::Voltage, "voltage"}};

// A number where the text is one, else the text.
Written CellOf(const std::string& text) {
  const std::optional<double> number = texts::WholeNumber(text);
  return number ? Written(*number) : Written(text);
}

std::string Canonical(const std::string& text) {
  const std::optional<double> number = texts::WholeNumber(text);
  return number ? NumberCell(*number) : text;
}

std::string FormattedLine(const tables::CurveTableEntry& entry) {
  return texts::EncodeLine(tables::FormatEntryLine(entry));
}

// What would be written for the entry as it is read back.
std::string CanonicalLine(tables::CurveTableEntry entry) {
  for (tables::CurvePoint& point : entry.points) {
    point = {Canonical(point.load), Canonical(point.time)};
  }
  return FormattedLine(entry);
}

std::string_view NameOf(Instrument instrument) {
  const auto* const row = std::ranges::find(kInstruments, instrument, &InstrumentName::instrument);
  return row == kInstruments.end() ? kInstruments.front().name : row->name;
}

// Takes fields of one object and remembers the first that is not what it should be.
class Fields {
 public:
  Fields(const json& object, std::string place) : object_(object), place_(std::move(place)) {}

  template <class T>
  T Take(const char* name, json::value_t kind) {
    const auto field = object_.find(name);
    if (field != object_.end() && field->type() == kind) return field->get<T>();
    Fail(name);
    return T();
  }
  std::string Text(const char* name) { return Take<std::string>(name, json::value_t::string); }
  bool Flag(const char* name) { return Take<bool>(name, json::value_t::boolean); }
  [[nodiscard]] bool Has(const char* name) const { return object_.contains(name); }

  void Fail(const std::string& name) {
    if (!fault_) fault_ = Fault{FaultKind::BadField, place_ + name};
  }
  [[nodiscard]] const std::optional<Fault>& FirstFault() const { return fault_; }

 private:
  const json& object_;
  std::string place_;
  std::optional<Fault> fault_;
};

std::optional<std::string> CellText(const json& cell) {
  if (cell.is_string()) return cell.get<std::string>();
  if (cell.is_number()) return NumberCell(cell.get<double>());
  return std::nullopt;
}

void TakePoints(const json& object, Fields& fields, tables::CurveTableEntry& entry) {
  const auto points = object.find("points");
  if (points == object.end() || !points->is_array() || points->size() > tables::kMaxPoints) {
    fields.Fail("points");
    return;
  }
  for (const json& point : *points) {
    const bool isPair = point.is_array() && point.size() == 2;
    const auto load = isPair ? CellText(point[0]) : std::nullopt;
    const auto time = isPair ? CellText(point[1]) : std::nullopt;
    if (!load || !time) {
      fields.Fail("points[" + std::to_string(entry.points.size()) + "]");
      return;
    }
    entry.points.push_back({*load, *time});
  }
}

// The bytes that the entry was written from; nothing when it has none, or says something else now.
std::optional<std::string> FormerLine(Fields& fields, const tables::CurveTableEntry& entry) {
  if (!fields.Has("line")) return std::nullopt;
  std::optional<std::string> line = fields.Text("line");
  if (fields.Has("encoding") && fields.Text("encoding") == kSingleByte) {
    line = platform::ToAnsi(*line);
  }
  const bool isLine = line && line->find_first_of("\r\n") == std::string::npos;
  return isLine && SayTheSame(EntryOf(*line), entry) ? line : std::nullopt;
}

Outcome<JsonEntry> TakeEntry(const json& object, const std::string& place) {
  if (!object.is_object()) return Fault{FaultKind::BadField, place};
  Fields fields(object, place + '.');
  JsonEntry result;
  tables::CurveTableEntry& entry = result.entry;
  entry.name = fields.Text("name");
  entry.milliseconds = fields.Flag("milliseconds");
  entry.absoluteValues = fields.Flag("absolute");
  const std::string instrument = fields.Text("instrument");
  const auto* const row = std::ranges::find(kInstruments, instrument, &InstrumentName::name);
  if (row == kInstruments.end()) {
    fields.Fail("instrument");
  } else {
    entry.instrument = row->instrument;
  }
  TakePoints(object, fields, entry);
  result.ending = fields.Has("ending") ? fields.Text("ending") : std::string(platform::kLineEnd);
  constexpr std::array<std::string_view, 4> kEndings = {platform::kLineEnd, "\n", "\r", ""};
  if (std::ranges::find(kEndings, result.ending) == kEndings.end()) fields.Fail("ending");
  const std::optional<std::string> former = FormerLine(fields, entry);
  if (fields.FirstFault()) return *fields.FirstFault();
  result.line = former ? *former : FormattedLine(entry);
  // A name that its line does not give back would be another entry's.
  const bool isName = tables::ParseEntryName(result.line) == entry.name;
  return isName ? Outcome<JsonEntry>(std::move(result))
                : Outcome<JsonEntry>(Fault{FaultKind::BadField, place + ".name"});
}

Fault SyntaxFault(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(text.size(), byte == 0 ? 0 : byte - 1));
  const std::size_t lineStart = before.rfind('\n') + 1;  // 0 where there is none
  const auto isFirstByte = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; };
  return {
      FaultKind::NoJson,
      {},
      static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1,
      static_cast<std::size_t>(std::ranges::count_if(before.substr(lineStart), isFirstByte)) + 1};
}

}  // namespace

std::string JsonBegin(bool hasByteOrderMark) {
  std::string begin = "{\"format\":\"" + std::string(kFormat) + "\",\"version\":";
  begin += std::to_string(kVersion);
  if (hasByteOrderMark) begin += ",\"byteOrderMark\":true";
  return begin + ",\"entries\":[\n";
}

std::string JsonEnd() { return "\n]}\n"; }

std::string JsonOfLine(std::string_view line, std::string_view ending) {
  const tables::CurveTableEntry entry = EntryOf(line);
  Written points = Written::array();
  for (const tables::CurvePoint& point : entry.points) {
    points.push_back({CellOf(point.load), CellOf(point.time)});
  }
  Written object = {{"name", entry.name},
                    {"milliseconds", entry.milliseconds},
                    {"absolute", entry.absoluteValues},
                    {"instrument", NameOf(entry.instrument)},
                    {"points", std::move(points)}};
  if (CanonicalLine(entry) != line) {
    const std::string text = texts::DecodeLine(line);
    object["line"] = text;
    if (text != line) object["encoding"] = kSingleByte;
  }
  if (ending != platform::kLineEnd) object["ending"] = ending;
  return object.dump(-1, ' ', false, json::error_handler_t::replace);
}

Outcome<JsonLibrary> ReadJson(std::string_view text) {
  json document;
  try {
    document = json::parse(text);
  } catch (const json::parse_error& error) {
    return SyntaxFault(text, error.byte);
  } catch (const json::exception&) {
    return Fault{FaultKind::NoJson};  // a number beyond the range of a double
  }
  if (!document.is_object()) return Fault{FaultKind::OtherJson};
  Fields fields(document, {});
  if (!fields.Has("format") || fields.Text("format") != kFormat) return Fault{FaultKind::OtherJson};
  const auto version = document.find("version");
  if (version == document.end() || *version != kVersion) {
    return Fault{FaultKind::OtherVersion, version == document.end() ? "-" : version->dump()};
  }
  JsonLibrary library;
  if (fields.Has("byteOrderMark")) library.hasByteOrderMark = fields.Flag("byteOrderMark");
  const auto entries = document.find("entries");
  if (entries == document.end() || !entries->is_array()) fields.Fail("entries");
  if (fields.FirstFault()) return *fields.FirstFault();
  for (const json& object : *entries) {
    Outcome<JsonEntry> entry =
        TakeEntry(object, "entries[" + std::to_string(library.entries.size()) + "]");
    if (const Fault* const fault = FaultOf(entry)) return *fault;
    library.entries.push_back(std::get<JsonEntry>(std::move(entry)));
  }
  return library;
}

}  // namespace zentab::interchange
