#pragma once

#include <QByteArray>

namespace zentab::app {

/// An SVG picture as Qt writes it, with the letters of its texts embedded: of each font that draws
/// any of them those that are used, so that it looks the same where the fonts are missing.
[[nodiscard]] QByteArray WithFonts(const QByteArray& svg);

}  // namespace zentab::app
