#include "interchange/curve_file.h"

#include <algorithm>

#include "interchange/library_json.h"
#include "platform/ascii.h"
#include "texts/number_text.h"

namespace zentab::interchange {
namespace {

constexpr std::string_view kJsonEnd = ".json";

ImportedCurve CurveOf(JsonEntry read) {
  ImportedCurve curve;
  curve.name = read.entry.name;
  for (const tables::CurvePoint& point : read.entry.points) {
    curve.points.push_back({texts::LeadingNumber(point.load).value_or(0.0),
                            texts::LeadingNumber(point.time).value_or(0.0)});
  }
  curve.stored = std::move(read);
  return curve;
}

}  // namespace

bool IsJson(std::string_view name, std::string_view bytes) {
  const std::size_t first = bytes.find_first_not_of(" \t\r\n");
  if (first != std::string_view::npos && (bytes[first] == '{' || bytes[first] == '[')) return true;
  if (name.size() < kJsonEnd.size()) return false;
  return std::ranges::equal(name.substr(name.size() - kJsonEnd.size()), kJsonEnd, {},
                            platform::LowerAscii);
}

Outcome<ImportedText> ReadCurves(std::string_view name, std::string bytes,
                                 const ImportChoices& choices) {
  if (!IsJson(name, bytes)) return ImportCurves(std::move(bytes), choices);
  auto library = ReadJson(bytes);
  if (const Fault* const fault = FaultOf(library)) return *fault;
  ImportedText text;
  for (JsonEntry& read : std::get<JsonLibrary>(library).entries) {
    text.curves.push_back(CurveOf(std::move(read)));
  }
  if (text.curves.empty()) return Fault{FaultKind::NoCurve, "1"};
  text.isJson = true;
  return text;
}

}  // namespace zentab::interchange
