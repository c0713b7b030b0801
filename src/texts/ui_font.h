#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zentab::texts {

/// The one font of the window and its controls.
struct UiFont {
  std::string face;
  std::int16_t size = 0;          // points; 0: not chosen
  std::int16_t characterSet = 0;  // a Windows character-set number
};

/// What the choice needs to know of the system.
class FontSystem {
 public:
  virtual ~FontSystem() = default;
  /// The system's and the user's locale identifier (Windows numbers).
  [[nodiscard]] virtual std::uint32_t SystemLocale() const = 0;
  /// The character set of the user's locale; nothing when the system does not tell.
  [[nodiscard]] virtual std::optional<int> UserCharacterSet() const = 0;
  /// The face that a font object of this face name resolves to.
  [[nodiscard]] virtual std::string ResolvedFace(const std::string& face) const = 0;
};

/// Whether the face is installed: a font of that name resolves to the same name, letters compared
/// without case. `face` becomes the resolved name.
[[nodiscard]] bool FontIsInstalled(const FontSystem& system, std::string& face);

/// Chooses the font by the system's locale, the first time; later calls give the same again
/// without asking the system, as long as a face was found.
class UiFontChoice {
 public:
  [[nodiscard]] const UiFont& ChooseUiFont(const FontSystem& system);

 private:
  UiFont cached_;
};

}  // namespace zentab::texts
