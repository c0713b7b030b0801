#pragma once

#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_layer.h"
#include "texts/catalogue_texts.h"

namespace zentab::texts {

/// The window whose controls get their texts from a catalogue. Controls are named as everywhere;
/// a name that it does not know is passed over.
class TextTarget {
 public:
  virtual ~TextTarget() = default;

  virtual void SetCaption(std::string_view control, std::string_view text) = 0;
  /// What stands in a field that the user can change.
  virtual void SetContent(std::string_view control, std::string_view text) {
    SetCaption(control, text);
  }
  virtual void SetTooltip(std::string_view control, std::string_view text) = 0;
  virtual void SetShown(std::string_view control, bool shown) = 0;
  /// The text that an empty field shows in place of its content.
  virtual void SetPlaceholder(std::string_view control, std::string_view text) = 0;
  /// The name by which a screen reader calls a control that has no caption.
  virtual void SetSpokenName(std::string_view control, std::string_view text) = 0;
  [[nodiscard]] virtual std::string Caption(std::string_view control) const = 0;
};

/// Fills in the fields of a text; see ExpandTemplate.
using TextExpander = std::function<std::string(std::string_view)>;

/// What of a catalogue is applied. Words are what another language has other ones for; settings are
/// all else: what controls are shown, units, numbers, equations and switches.
enum class Extent { WordsAndSettings, Words };

/// Applies a catalogue file to the window and the tables: every key in the fixed order of the key
/// table, a key that is missing or empty changing nothing. A file that cannot be read changes
/// nothing but the instruments' names, which follow the captions of their choices, and gives the
/// error.
[[nodiscard]] std::error_code ApplyTexts(platform::FileLayer& files,
                                         const std::filesystem::path& file, TextTarget& target,
                                         CatalogueTexts& texts, const TextExpander& expand,
                                         Extent extent = Extent::WordsAndSettings);

/// The words are again those that are built in; the settings stay.
void ForgetWords(CatalogueTexts& texts);

/// The keys that ApplyTexts looks up, in its order.
[[nodiscard]] std::span<const std::string> CatalogueKeys();

}  // namespace zentab::texts
