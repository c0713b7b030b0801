#pragma once

#include <QColor>

namespace zentab::editor {

/// How well two colours can be told apart, 1 to 21: (L1 + 0.05) / (L2 + 0.05) by their relative
/// luminances, as the Web Content Accessibility Guidelines 2.1 define both.
[[nodiscard]] double ContrastOf(const QColor& a, const QColor& b);

/// The chart's own colour for its curve: a blue, lighter or darker as far as a contrast of 4.5 to
/// the background takes, which every background allows.
[[nodiscard]] QColor AccentOn(const QColor& background);
/// The same for a curve that is only proposed, an orange, and for what is wrong, a red.
[[nodiscard]] QColor ProposalOn(const QColor& background);
[[nodiscard]] QColor FailureOn(const QColor& background);

/// A colour, made lighter or darker as far as that contrast takes.
[[nodiscard]] QColor ReadableOn(const QColor& wanted, const QColor& background);

/// The faintest colour between background and text that has a contrast to the background, from 1 to
/// 4.5; beyond the text's own, on the way to white or black.
[[nodiscard]] QColor LineOn(const QColor& background, const QColor& text, double contrast);

/// The colour nearest to the given one that has a contrast to the background, from 1 to 4.5: on the
/// way to white or black.
[[nodiscard]] QColor Contrasting(const QColor& colour, const QColor& background, double contrast);

/// The colour between two, at a share of 0 (the first) to 1 (the second).
[[nodiscard]] QColor Mix(const QColor& a, const QColor& b, double share);

}  // namespace zentab::editor
