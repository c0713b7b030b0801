#pragma once

#include <QByteArray>

namespace zentab::app {

/// A PDF file as Qt writes it, with the characters that a reader finds and copies corrected: where
/// two of them look the same, Qt names the one of the lower number, so a blank becomes a tab and a
/// Chinese word one of radicals. Nothing changes its place in the file.
[[nodiscard]] QByteArray WithTextAsWritten(QByteArray pdf);

}  // namespace zentab::app
