#include "app/widgets/report/pdf_text.h"

#include <QFontDatabase>
#include <QHash>
#include <QRawFont>

#include "app/widgets/report/paper_look.h"

namespace zentab::app {
namespace {

constexpr char16_t kFirstRadical = 0x2E80;  // blocks CJK Radicals Supplement and Kangxi Radicals
constexpr char16_t kLastRadical = 0x2FDF;
constexpr char16_t kFirstIdeograph = 0x4E00;  // CJK Unified Ideographs
constexpr char16_t kLastIdeograph = 0x9FFF;
constexpr int kFontSize = 12;

QString Range(char16_t first, char16_t last) {
  QString characters;
  for (char16_t character = first; character <= last; ++character) characters += character;
  return characters;
}

QByteArray Code(char16_t character) {
  return '<' + QByteArray::number(character, 16).rightJustified(4, '0').toUpper() + '>';
}

// As they stand in the file: what is named by what was meant.
QHash<QByteArray, QByteArray> MakeCorrections() {
  QHash<QByteArray, QByteArray> corrections = {{Code('\t'), Code(' ')}};
  const QRawFont font = QRawFont::fromFont(PaperFont(kFontSize), QFontDatabase::SimplifiedChinese);
  const QString radicals = Range(kFirstRadical, kLastRadical);
  const QString ideographs = Range(kFirstIdeograph, kLastIdeograph);
  const QList<quint32> glyphs = font.glyphIndexesForString(ideographs);
  QHash<quint32, char16_t> byGlyph;
  for (qsizetype at = 0; at < glyphs.size(); ++at) {
    if (glyphs[at] != 0) byGlyph.insert(glyphs[at], ideographs[at].unicode());
  }
  const QList<quint32> shapes = font.glyphIndexesForString(radicals);
  for (qsizetype at = 0; at < shapes.size(); ++at) {
    const auto meant = byGlyph.constFind(shapes[at]);
    if (meant != byGlyph.constEnd()) corrections[Code(radicals[at].unicode())] = Code(*meant);
  }
  return corrections;
}

}  // namespace

QByteArray WithTextAsWritten(QByteArray pdf) {
  static const QHash<QByteArray, QByteArray> corrections = MakeCorrections();
  constexpr qsizetype kCodeLength = 6;
  for (qsizetype begin = pdf.indexOf("begincmap"); begin >= 0;
       begin = pdf.indexOf("begincmap", begin + 1)) {
    // Behind the "[" stand the characters, one for each glyph.
    const qsizetype list = pdf.indexOf('[', begin);
    const qsizetype end = pdf.indexOf("endcmap", begin);
    for (qsizetype at = pdf.indexOf('<', list); list >= 0 && at >= 0 && at < end;
         at = pdf.indexOf('<', at + 1)) {
      const auto correction = corrections.constFind(pdf.mid(at, kCodeLength));
      if (correction != corrections.constEnd()) pdf.replace(at, kCodeLength, *correction);
    }
  }
  return pdf;
}

}  // namespace zentab::app
