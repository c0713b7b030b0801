#include "texts/ui_font.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "platform/character_case.h"

namespace zentab::texts {
namespace {

constexpr std::uint32_t kPrimaryLanguageBits = 0x3FF;
constexpr int kAnySublanguage = -1;

struct FaceRow {
  std::uint32_t primaryLanguage;
  int sublanguage;  // the first row that fits decides
  std::string_view face;
  std::int16_t size;
  std::int16_t characterSet;
};

constexpr std::array<FaceRow, 7> kFaces = {{
    {4, 1, "新細明體", 9, 136},
    {4, 2, "宋体", 9, 134},
    {4, kAnySublanguage, "", 0, 0},
    {17, kAnySublanguage, "ＭＳ Ｐゴシック", 9, 128},
    {18, 1, "굴림", 9, 129},
    {18, 2, "굴림", 9, 129},
    {18, kAnySublanguage, "", 9, 129},
}};

UiFont WesternFont(const FontSystem& system) {
  constexpr std::int16_t kSize = 8;
  std::string face;
  for (const std::string_view wanted : {"Tahoma", "Arial", "System"}) {
    face = wanted;
    if (FontIsInstalled(system, face)) break;
  }
  return {face, kSize, static_cast<std::int16_t>(system.UserCharacterSet().value_or(0))};
}

UiFont FontForLocale(const FontSystem& system) {
  const std::uint32_t locale = system.SystemLocale();
  const std::uint32_t primary = locale & kPrimaryLanguageBits;
  const auto sublanguage = static_cast<int>(std::lround(locale / 1024.0));
  const auto* const row = std::find_if(kFaces.begin(), kFaces.end(), [&](const FaceRow& face) {
    return face.primaryLanguage == primary &&
           (face.sublanguage == kAnySublanguage || face.sublanguage == sublanguage);
  });
  if (row == kFaces.end()) return WesternFont(system);
  return {std::string(row->face), row->size, row->characterSet};
}

}  // namespace

bool FontIsInstalled(const FontSystem& system, std::string& face) {
  const std::string wanted = platform::LowerCase(face);
  face = system.ResolvedFace(face);
  return platform::LowerCase(face) == wanted;
}

const UiFont& UiFontChoice::ChooseUiFont(const FontSystem& system) {
  if (cached_.face.empty()) cached_ = FontForLocale(system);
  return cached_;
}

}  // namespace zentab::texts
