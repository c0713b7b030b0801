#include "texts/apply_texts.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/character_case.h"
#include "texts/key_table.h"
#include "texts/number_text.h"
#include "texts/text_catalogue.h"

namespace zentab::texts {
namespace {

std::optional<double> NumberOf(const std::string& text) {
  return WholeNumber(SetDecimalSeparator(text, "."));
}

std::optional<bool> TruthOf(const std::string& text) {
  const std::string word = platform::LowerCase(TrimBlanks(text));
  if (word == "true" || word == "false") return word == "true";
  const std::optional<double> number = NumberOf(text);
  return number ? std::optional(*number != 0.0) : std::nullopt;
}

// What of an instrument no language has a word for.
constexpr std::array kSettings = {&InstrumentTexts::unit, &InstrumentTexts::firstX,
                                  &InstrumentTexts::firstY, &InstrumentTexts::lastX,
                                  &InstrumentTexts::lastY};

// Carries out the effect of one row; `text` is the key's text, expanded where its row says so.
class Applier {
 public:
  Applier(const std::string& text, TextTarget& target, CatalogueTexts& texts, Extent extent)
      : text_(text), target_(target), texts_(texts), isAll_(extent == Extent::WordsAndSettings) {}

  void operator()(const Caption& caption) const {
    target_.SetCaption(caption.control, text_);
    if (caption.shows) Show(caption.control, true);
  }
  void operator()(const Tooltip& tooltip) const {
    target_.SetTooltip(tooltip.control, text_);
    if (tooltip.shows) Show(tooltip.control, true);
  }
  void operator()(const Placeholder& field) const { target_.SetPlaceholder(field.control, text_); }
  void operator()(const SpokenName& name) const { target_.SetSpokenName(name.control, text_); }
  void operator()(const FrameCaption& frame) const {
    target_.SetCaption(frame.control, text_);
    Show(frame.control, !TrimBlanks(text_).empty());
  }
  void operator()(const NamesFromCaptions&) const {
    for (std::size_t kind = 1; kind < texts_.instruments.size(); ++kind) {
      const std::string choice = "Option" + std::to_string(kind);
      texts_.instruments[kind].name = StripAmpersands(target_.Caption(choice));
    }
  }
  void operator()(const InstrumentField& field) const {
    const bool isSetting = std::ranges::find(kSettings, field.field) != kSettings.end();
    if (isAll_ || !isSetting) texts_.instruments[field.instrument].*field.field = text_;
  }
  void operator()(const MessageField& field) const {
    texts_.messages[field.box].*field.field = text_;
  }
  void operator()(const LabelField& field) const { texts_.labels.*field.field = text_; }
  void operator()(const ProgramField& field) const { texts_.program.*field.field = text_; }
  void operator()(const PointField& field) const { texts_.points.*field.field = text_; }
  void operator()(const ToolField& field) const { texts_.tools.*field.field = text_; }
  void operator()(const GraphField& field) const { texts_.graph.*field.field = text_; }
  void operator()(const HistoryField& field) const { texts_.history.*field.field = text_; }
  void operator()(const StepName& name) const { texts_.history.steps[name.step] = text_; }
  void operator()(const ChartField& field) const { texts_.chart.*field.field = text_; }
  void operator()(const InterchangeField& field) const { texts_.interchange.*field.field = text_; }
  void operator()(const CurveImportField& field) const { texts_.curveImport.*field.field = text_; }
  void operator()(const ComparisonField& field) const { texts_.comparison.*field.field = text_; }
  void operator()(const CurveField& field) const { texts_.curve.*field.field = text_; }
  void operator()(const CurveDialogField& field) const { texts_.curveDialogs.*field.field = text_; }
  void operator()(const LibraryField& field) const { texts_.library.*field.field = text_; }
  void operator()(const HelpField& field) const { texts_.help.*field.field = text_; }
  void operator()(const WorkbenchField& field) const { texts_.workbench.*field.field = text_; }
  void operator()(const ReportField& field) const { texts_.report.*field.field = text_; }
  void operator()(const OutputField& field) const { texts_.output.*field.field = text_; }
  void operator()(const ExchangeField& field) const {
    texts_.*field.direction.*field.field = text_;
  }
  void operator()(const EquationSlot& slot) const {
    if (!isAll_) return;
    texts_.equations[static_cast<std::size_t>(slot.stage)][slot.slot] = TrimBlanks(text_);
  }
  void operator()(const ImportField& field) const {
    if (!isAll_) return;
    if (text_ == "-") {
      Show(field.field, true);
      Show(field.label, true);
      return;
    }
    const std::string content(TrimBlanks(text_));
    target_.SetContent(field.field, content);
    if (field.text != nullptr) texts_.import.*field.text = content;
    if (const std::optional<std::int16_t> number = ShortInteger(content)) {
      texts_.import.*field.number = *number;
    }
  }
  void operator()(const TimeoutText&) const {
    if (isAll_) texts_.import.timeout = text_;
  }
  void operator()(const SwitchOn& switched) const {
    if (isAll_) texts_.*switched.flag = true;
  }
  void operator()(const TraceSwitch&) const {
    if (isAll_) texts_.import.printTable = text_ != "0";
  }
  void operator()(const ShownIfTrue& shown) const {
    const std::optional<bool> truth = TruthOf(text_);
    if (!truth) return;
    Show(shown.control, *truth);
    Show(shown.label, *truth);
  }
  void operator()(const ShownIfAboveZero& shown) const { Show(shown.control, text_ > "0"); }

 private:
  void Show(const char* control, bool shown) const {
    if (isAll_) target_.SetShown(control, shown);
  }

  const std::string& text_;
  TextTarget& target_;
  CatalogueTexts& texts_;
  bool isAll_;
};

}  // namespace

std::error_code ApplyTexts(platform::FileLayer& files, const std::filesystem::path& file,
                           TextTarget& target, CatalogueTexts& texts, const TextExpander& expand,
                           Extent extent) {
  std::vector<std::string> found;
  const std::error_code error = LookupTexts(files, CatalogueKeys(), file, found);
  auto next = found.begin();
  for (const KeyRow& row : KeyTable()) {
    std::string text = row.key.empty() ? std::string() : std::move(*next++);
    if (text.empty() && !row.key.empty()) continue;
    if (row.expanded) text = expand(text);
    std::visit(Applier(text, target, texts, extent), row.effect);
  }
  return error;
}

void ForgetWords(CatalogueTexts& texts) {
  CatalogueTexts builtIn;
  for (std::size_t kind = 0; kind < texts.instruments.size(); ++kind) {
    for (const auto setting : kSettings) {
      builtIn.instruments[kind].*setting = std::move(texts.instruments[kind].*setting);
    }
  }
  builtIn.equations = std::move(texts.equations);
  builtIn.import = std::move(texts.import);
  builtIn.logSwitch = texts.logSwitch;
  texts = std::move(builtIn);
}

std::span<const std::string> CatalogueKeys() {
  static const std::vector<std::string> keys = [] {
    std::vector<std::string> all;
    for (const KeyRow& row : KeyTable()) {
      if (!row.key.empty()) all.push_back(row.key);
    }
    return all;
  }();
  return keys;
}

}  // namespace zentab::texts
