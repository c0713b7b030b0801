#include "app/widgets/report/svg_fonts.h"

#include <hb-subset.h>

#include <QRawFont>
#include <QTextLayout>
#include <QXmlStreamReader>
#include <array>
#include <map>
#include <memory>
#include <set>

#include "app/widgets/report/paper_look.h"

namespace zentab::app {
namespace {

constexpr int kSvgFontSize = 12;

template <class Object, void (*destroy)(Object*)>
struct Destroyer {
  void operator()(Object* object) const { destroy(object); }
};
template <class Object, void (*destroy)(Object*)>
using Owned = std::unique_ptr<Object, Destroyer<Object, destroy>>;

using Blob = Owned<hb_blob_t, hb_blob_destroy>;
using Face = Owned<hb_face_t, hb_face_destroy>;
using SubsetInput = Owned<hb_subset_input_t, hb_subset_input_destroy>;

// A font with the characters that it draws.
struct UsedFont {
  QRawFont font;
  std::set<char32_t> characters;
};

struct Texts {
  QString family;  // which all of them name
  QString characters;
};

Texts TextsOf(const QByteArray& svg) {
  Texts texts;
  QXmlStreamReader reader(svg);
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    if (reader.name() != QLatin1String("text")) continue;
    texts.family = reader.attributes().value(QLatin1String("font-family")).toString();
    texts.characters += reader.readElementText();
  }
  return texts;
}

// By the name of the font: one may come in several sizes.
std::map<QString, UsedFont> FontsOf(const QString& characters) {
  std::map<QString, UsedFont> fonts;
  for (const char32_t character : characters.toUcs4()) {
    QTextLayout layout(QString::fromUcs4(&character, 1), PaperFont(kSvgFontSize));
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    for (const QGlyphRun& run : layout.glyphRuns()) {
      UsedFont& used = fonts[run.rawFont().familyName()];
      used.font = run.rawFont();
      used.characters.insert(character);
    }
  }
  return fonts;
}

// The tables of a font; what makes a subset looks into one that it has given back.
struct FontTables {
  QRawFont font;
  std::map<hb_tag_t, QByteArray> taken;
};

hb_blob_t* TableOf(hb_face_t*, hb_tag_t tag, void* tables) {
  constexpr std::size_t kTagLength = 4;
  std::array<char, kTagLength + 1> name{};
  hb_tag_to_string(tag, name.data());
  auto& [font, taken] = *static_cast<FontTables*>(tables);
  const QByteArray& table = taken.try_emplace(tag, font.fontTable(name.data())).first->second;
  return hb_blob_create(table.constData(), static_cast<unsigned>(table.size()),
                        HB_MEMORY_MODE_READONLY, nullptr, nullptr);
}

// The font with those characters alone; empty where it cannot be taken apart.
QByteArray Reduced(const UsedFont& used) {
  FontTables tables{used.font, {}};
  const Face whole(hb_face_create_for_tables(TableOf, &tables, nullptr));
  const SubsetInput input(hb_subset_input_create_or_fail());
  if (!input) return {};
  for (const char32_t character : used.characters) {
    hb_set_add(hb_subset_input_unicode_set(input.get()), character);
  }
  const Face reduced(hb_subset_or_fail(whole.get(), input.get()));
  if (!reduced) return {};
  const Blob blob(hb_face_reference_blob(reduced.get()));
  unsigned length = 0;
  const char* const bytes = hb_blob_get_data(blob.get(), &length);
  return {bytes, static_cast<qsizetype>(length)};
}

// All fonts go by the name that the texts have, each for its own characters.
QByteArray RuleOf(const QString& family, const UsedFont& used) {
  const QByteArray font = Reduced(used);
  if (font.isEmpty()) return {};
  QByteArrayList ranges;
  for (const char32_t character : used.characters) {
    ranges += "U+" + QByteArray::number(static_cast<uint>(character), 16).toUpper();
  }
  return "@font-face{font-family:\"" + family.toUtf8() + "\";unicode-range:" + ranges.join(',') +
         ";src:url(data:font/ttf;base64," + font.toBase64() + ")}\n";
}

}  // namespace

QByteArray WithFonts(const QByteArray& svg) {
  const Texts texts = TextsOf(svg);
  QByteArray rules;
  for (const auto& [name, used] : FontsOf(texts.characters)) rules += RuleOf(texts.family, used);
  const qsizetype place = svg.indexOf("<defs>");
  if (rules.isEmpty() || place < 0) return svg;
  QByteArray result = svg;
  return result.insert(place, "<style type=\"text/css\">\n" + rules + "</style>\n");
}

}  // namespace zentab::app
