// A text catalogue: lookup, its texts applied to a window, and templates.

#include <map>

#include "fuzz/fuzzing.h"
#include "texts/apply_texts.h"
#include "texts/template_text.h"
#include "texts/text_catalogue.h"

namespace zentab::fuzz {
namespace {

class Captions final : public texts::TextTarget {
 public:
  void SetCaption(std::string_view control, std::string_view text) override {
    captions_[std::string(control)] = text;
  }
  void SetTooltip(std::string_view, std::string_view) override {}
  void SetShown(std::string_view, bool) override {}
  void SetPlaceholder(std::string_view, std::string_view) override {}
  void SetSpokenName(std::string_view, std::string_view) override {}
  [[nodiscard]] std::string Caption(std::string_view control) const override {
    const auto found = captions_.find(control);
    return found == captions_.end() ? std::string() : found->second;
  }

 private:
  std::map<std::string, std::string, std::less<>> captions_;
};

void CheckTemplate(std::string_view text) {
  const texts::TemplateFields fields = {{}, "%F%1", "%G", "mS", "1%N2", "%U", "%%"};
  // A pair becomes the date, the time or a field, none of them longer.
  constexpr std::size_t kLongestField = 8;
  const std::string expanded = texts::ExpandTemplate(text, fields, {"%1", "%2%3", ""});
  Require(expanded.size() <= text.size() / 2 * kLongestField + 1, "a field is filled in once");
  Require(texts::ExpandTemplate(texts::AsTemplate(text), fields) == text,
          "percent signs can be kept");
  const std::string stripped = texts::StripAmpersands(text);
  Require(stripped.find('&') == std::string::npos && stripped.size() <= text.size(),
          "access keys are taken off");
}

void CheckLookup(const std::filesystem::path& file, std::size_t chosen) {
  const auto keys = texts::CatalogueKeys();
  std::vector<std::string> found;
  Require(!texts::LookupTexts(platform::SystemFiles(), keys, file, found), "the file is read");
  chosen %= keys.size();
  std::string text;
  Require(!texts::LookupText(platform::SystemFiles(), keys[chosen], file, text) &&
              text == found[chosen],
          "one lookup finds what all together do");
}

void CheckApplied(const std::filesystem::path& file) {
  Captions captions;
  texts::CatalogueTexts all;
  const auto error =
      texts::ApplyTexts(platform::SystemFiles(), file, captions, all, [](std::string_view text) {
        CheckTemplate(text);
        return texts::ExpandTemplate(text, {});
      });
  Require(!error, "the file is read");
}

void CheckCatalogue(std::string_view bytes) {
  static const Folder folder;
  const std::filesystem::path file = folder.Write("catalogue.txt", bytes);
  // Either takes long; which one it is depends on the input alone.
  const std::size_t chosen = std::hash<std::string_view>()(bytes);
  if (chosen % 2 == 0) {
    CheckLookup(file, chosen / 2);
  } else {
    CheckApplied(file);
  }
}

}  // namespace
}  // namespace zentab::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = zentab::fuzz::InputOf(data, size);
  zentab::fuzz::CheckTemplate(bytes);
  zentab::fuzz::CheckCatalogue(bytes);
  return 0;
}
