#include "platform/locale_queries.h"

#include <langinfo.h>
#include <locale.h>

#include <cstdlib>
#include <string_view>

#include <utf8.h>

#include "platform/ansi_code_page.h"

namespace zentab::platform {
namespace {

struct LocaleRow {
  std::string_view name;
  std::uint32_t identifier;
  int characterSet;
};

// Windows locale identifiers, with the character set that belongs to the language's code page:
// 0 for 1252, 238 for 1250, 204 for 1251, 161 for 1253, 162 for 1254, 177 for 1255, 178 for 1256,
// 186 for 1257, 163 for 1258, 222 for 874, 128 for 932, 134 for 936, 129 for 949, 136 for 950.
constexpr LocaleRow kLocales[] = {
    {"zh_TW", 0x0404, 136}, {"zh_CN", 0x0804, 134}, {"zh_HK", 0x0C04, 136}, {"zh_SG", 0x1004, 134},
    {"ja_JP", 0x0411, 128}, {"ko_KR", 0x0412, 129}, {"en_US", 0x0409, 0},   {"en_GB", 0x0809, 0},
    {"en_AU", 0x0C09, 0},   {"en_CA", 0x1009, 0},   {"en_IN", 0x4009, 0},   {"de_DE", 0x0407, 0},
    {"de_CH", 0x0807, 0},   {"de_AT", 0x0C07, 0},   {"fr_FR", 0x040C, 0},   {"fr_BE", 0x080C, 0},
    {"fr_CA", 0x0C0C, 0},   {"fr_CH", 0x100C, 0},   {"it_IT", 0x0410, 0},   {"es_ES", 0x0C0A, 0},
    {"es_MX", 0x080A, 0},   {"pt_BR", 0x0416, 0},   {"pt_PT", 0x0816, 0},   {"nl_NL", 0x0413, 0},
    {"nl_BE", 0x0813, 0},   {"sv_SE", 0x041D, 0},   {"nb_NO", 0x0414, 0},   {"da_DK", 0x0406, 0},
    {"fi_FI", 0x040B, 0},   {"is_IS", 0x040F, 0},   {"pl_PL", 0x0415, 238}, {"cs_CZ", 0x0405, 238},
    {"sk_SK", 0x041B, 238}, {"hu_HU", 0x040E, 238}, {"ro_RO", 0x0418, 238}, {"hr_HR", 0x041A, 238},
    {"sl_SI", 0x0424, 238}, {"ru_RU", 0x0419, 204}, {"uk_UA", 0x0422, 204}, {"bg_BG", 0x0402, 204},
    {"sr_RS", 0x0C1A, 204}, {"el_GR", 0x0408, 161}, {"tr_TR", 0x041F, 162}, {"he_IL", 0x040D, 177},
    {"ar_SA", 0x0401, 178}, {"fa_IR", 0x0429, 178}, {"et_EE", 0x0425, 186}, {"lv_LV", 0x0426, 186},
    {"lt_LT", 0x0427, 186}, {"vi_VN", 0x042A, 163}, {"th_TH", 0x041E, 222},
};

// The first of the variables that is set decides, as for every program.
std::string_view EnvironmentLocale() {
  for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

const LocaleRow* FindLocale() {
  const std::string_view full = EnvironmentLocale();
  const std::string_view name = full.substr(0, full.find_first_of(".@"));
  for (const LocaleRow& row : kLocales) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

}  // namespace

// Read from a locale object: the process keeps its "C" locale, so that no library call starts to
// read and write numbers differently.
std::optional<std::string> UserDecimalSeparator() {
  const locale_t locale = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (locale == nullptr) return std::nullopt;
  std::string separator = nl_langinfo_l(RADIXCHAR, locale);
  freelocale(locale);
  return separator;
}

std::string MonthAbbreviation(int month) {
  locale_t locale = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
  if (locale == nullptr) locale = newlocale(LC_TIME_MASK, "C", nullptr);
  if (locale == nullptr) return std::to_string(month);
  const std::string name = nl_langinfo_l(ABMON_1 + (month - 1), locale);
  freelocale(locale);
  return utf8::is_valid(name.begin(), name.end()) ? name : FromAnsi(name);
}

std::uint32_t SystemLocaleIdentifier() {
  constexpr std::uint32_t kEnglish = 0x0409;
  const LocaleRow* const row = FindLocale();
  return row == nullptr ? kEnglish : row->identifier;
}

std::optional<int> UserCharacterSet() {
  const LocaleRow* const row = FindLocale();
  return row == nullptr ? std::nullopt : std::optional(row->characterSet);
}

}  // namespace zentab::platform
