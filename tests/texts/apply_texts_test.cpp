#include "texts/apply_texts.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "support/temporary_folder.h"
#include "texts/text_catalogue.h"

namespace zentab::texts {
namespace {

/// Keeps what was set, by control.
class RecordingTarget final : public TextTarget {
 public:
  std::map<std::string, std::string, std::less<>> captions{{"Option1", "&Current"}};
  std::map<std::string, std::string, std::less<>> tips;
  std::map<std::string, bool, std::less<>> shown;

  void SetCaption(std::string_view control, std::string_view text) override {
    captions[std::string(control)] = text;
  }
  void SetTooltip(std::string_view control, std::string_view text) override {
    tips[std::string(control)] = text;
  }
  void SetShown(std::string_view control, bool visible) override {
    shown[std::string(control)] = visible;
  }
  void SetPlaceholder(std::string_view control, std::string_view text) override {
    captions[std::string(control) + " empty"] = text;
  }
  void SetSpokenName(std::string_view control, std::string_view text) override {
    captions[std::string(control) + " spoken"] = text;
  }
  std::string Caption(std::string_view control) const override {
    const auto found = captions.find(control);
    return found == captions.end() ? "" : found->second;
  }
};

class ApplyTextsTest : public test::TemporaryFolder {
 protected:
  static std::string InBrackets(std::string_view text) { return "<" + std::string(text) + ">"; }
  static std::string Plain(std::string_view text) { return std::string(text); }
  void Apply(std::string_view bytes, const TextExpander& expand = InBrackets) {
    const auto error =
        ApplyTexts(platform::SystemFiles(), Write("catalogue.txt", bytes), target, texts, expand);
    EXPECT_FALSE(error);
  }
  RecordingTarget target;
  CatalogueTexts texts;
};

TEST_F(ApplyTextsTest, AMissingFileChangesNothingButTheInstrumentNames) {
  EXPECT_TRUE(ApplyTexts(platform::SystemFiles(), Folder() / "missing", target, texts, {}));
  EXPECT_EQ(target.captions.size(), 1u);
  EXPECT_TRUE(target.tips.empty() && target.shown.empty());
  EXPECT_EQ(texts.instruments[1].name, "Current");
  EXPECT_FALSE(texts.logSwitch);
}

TEST_F(ApplyTextsTest, KeysReachTheirControlsAndTablesInOrder) {
  Apply(
      "F1.COMMAND1.TEXT {&Lesen}\nF1.CURRENT.BUTTON.TEXT {early}\nF1.INSTRUMENT1.TEXT {St&rom}\n"
      "F1.COMMAND6.TEXT {Import}\nF1.CHECK1.TIP {tip only}\nTIME.MS.TIP {shows too}\n"
      "F1.INSTRUMENT2.UNIT {V}\nF1.COMMAND5.TEXT2 {two}\nLOAD.LABEL.ABS.TEXT {%V}\n"
      "F2.EXPORT.LIST.TIP {list}\nDIFF.EQUATION.10 { t0 }\nTIMEOUT.VALUE { 5 }\n"
      "F1.LOGGFILE {on}\nF1.FILTER.FIELD {find}\nF1.FILTER.SPOKEN {say}\n");
  EXPECT_EQ(target.captions["Command1"], "<&Lesen>");
  EXPECT_EQ(target.captions["Option1"], "<St&rom>");
  EXPECT_EQ(target.captions["TextFilter empty"] + target.captions["TextFilter spoken"],
            "<find><say>");
  EXPECT_EQ(texts.instruments[1].name, "<Strom>");
  EXPECT_EQ(target.shown, (decltype(target.shown){{"Command6", true}, {"Check2", true}}));
  EXPECT_EQ(texts.instruments[2].unit, "<V>");
  EXPECT_EQ(texts.instruments[2].setGraphCaption, "two");
  EXPECT_EQ(texts.labels.loadAbsolute, "%V");
  EXPECT_EQ(texts.exporting.listTip, "list");
  EXPECT_EQ(texts.equations[0][10], "t0");
  EXPECT_EQ(texts.equations[0][1], "t0");  // the line of slot 10 comes first
  EXPECT_EQ(texts.equations[1][10], "");
  EXPECT_EQ(texts.import.timeout, " 5 ");
  EXPECT_TRUE(texts.logSwitch);
}

TEST_F(ApplyTextsTest, KeysWithANumberReachTheirOwn) {
  std::map<std::string, std::string> text;
  std::string all;
  for (const std::string& key : CatalogueKeys()) {
    text[key] = "t" + std::to_string(text.size());
    all += key + " {" + text[key] + "}\n";
  }
  Apply(all, Plain);
  for (std::size_t box = 1; box <= 6; ++box) {
    const std::string key = "F1.MSGBOX" + std::to_string(box);
    EXPECT_EQ(texts.messages[box].title + texts.messages[box].text,
              text[key + ".HEAD"] + text[key + ".TXT"]);
  }
  for (std::size_t kind = 1; kind <= 3; ++kind) {
    const InstrumentTexts& instrument = texts.instruments[kind];
    const std::string number = kind == 1 ? "" : std::to_string(kind);
    EXPECT_EQ(instrument.unit, text["F1.INSTRUMENT" + std::to_string(kind) + ".UNIT"]);
    for (const auto& [key, field] : {std::pair("F1.COMMAND5.TEXT", instrument.setGraphCaption),
                                     {"F1.COMMAND5.TIP", instrument.setGraphTip},
                                     {"F1.TEXT2.TIP", instrument.pickupTip},
                                     {"F1.PICKUP.LABEL", instrument.pickupLabel},
                                     {"FIRST.X", instrument.firstX},
                                     {"FIRST.Y", instrument.firstY},
                                     {"LAST.X", instrument.lastX},
                                     {"LAST.Y", instrument.lastY}}) {
      EXPECT_EQ(field, text[key + number]) << key << number;
    }
  }
  for (const char* const button : {"1", "2", "3", "4", "6", "7", "8", "9"}) {
    const std::string key = std::string("F1.COMMAND") + button;
    EXPECT_EQ(target.captions[std::string("Command") + button], text[key + ".TEXT"]);
    EXPECT_EQ(target.tips[std::string("Command") + button], text[key + ".TIP"]);
  }
  EXPECT_EQ(target.captions["Frame1"], text["F1.INSTRUMENTS.TEXT"]);
  const std::string_view stages[] = {"DIFF", "VALUE", "FILTER"};
  for (std::size_t stage = 0; stage < 3; ++stage) {
    for (std::size_t slot = 1; slot <= 10; ++slot) {
      const std::string key = std::string(stages[stage]) + ".EQUATION." + std::to_string(slot);
      EXPECT_EQ(texts.equations[stage][slot], text[key]) << key;
    }
  }
}

TEST_F(ApplyTextsTest, ALaterFileOverridesWithWhatItHas) {
  Apply("F1.COMMAND1.TEXT {a}\nF1.COMMAND2.TEXT {b}\n");
  Apply("F1.COMMAND1.TEXT {}\nF1.COMMAND2.TEXT {c}\n");
  EXPECT_EQ(target.captions["Command1"], "<a>");
  EXPECT_EQ(target.captions["Command2"], "<c>");
}

TEST_F(ApplyTextsTest, SwitchesAndFieldsFollowTheirTexts) {
  struct Case {
    std::string_view line;
    const char* control;
    std::optional<bool> shown;
  };
  const Case cases[] = {
      {"F1.INSTRUMENTS.TEXT { x }", "Frame1", true},
      {"F1.INSTRUMENTS.TEXT {}", "Frame1", std::nullopt},
      {"TIME.MULT.ENABLE {True}", "Text3", true},
      {"TIME.MULT.ENABLE {-1}", "Text3", true},
      {"TIME.MULT.ENABLE {false}", "Text3", false},
      {"TIME.MULT.ENABLE {0}", "Text3", false},
      {"TIME.MULT.ENABLE {maybe}", "Text3", std::nullopt},
      {"F1.IMPORT.TIMETEST.BUTTON.ENABLE {1}", "Command10", true},
      {"F1.IMPORT.TIMETEST.BUTTON.ENABLE {0}", "Command10", false},
      {"DIFF.TYPE {-}", "LabelText4", true},
      {"FILTER.TYPE {-}", "Text5", true},
      {"VALUE.MEAN.OVER {32767}", "Text6", std::nullopt},
  };
  for (const Case& c : cases) {
    target.shown.clear();
    Apply(c.line);
    const auto found = target.shown.find(c.control);
    EXPECT_EQ(found == target.shown.end() ? std::nullopt : std::optional(found->second), c.shown)
        << c.line;
  }
  Apply("F1.INSTRUMENTS.TEXT {  }", Plain);
  EXPECT_FALSE(target.shown.at("Frame1"));
  EXPECT_FALSE(target.captions.contains("Text4")) << "the switch is no text of its field";
  Apply("DIFF.TYPE { 2.5 }\nFILTER.TYPE {3.5}\nVALUE.MEAN.OVER {x}\nTABLE.PRINT {no}");
  EXPECT_EQ(target.captions["Text4"], "2.5");
  EXPECT_EQ(texts.import.differenceType, 2);
  EXPECT_EQ(texts.import.filterTypeText, "3.5");
  EXPECT_EQ(texts.import.filterType, 4);
  EXPECT_EQ(target.captions["Text6"], "x");
  EXPECT_EQ(texts.import.meanOver, 32767);
  EXPECT_TRUE(texts.import.printTable);
  Apply("DIFF.TYPE {40000}\nTABLE.PRINT {0}");
  EXPECT_EQ(texts.import.differenceType, 2);
  EXPECT_FALSE(texts.import.printTable);
}

// What stands in front of the texts of a catalogue's lines.
std::vector<std::string> KeysIn(const std::string& catalogue) {
  std::vector<std::string> keys;
  std::istringstream lines(catalogue);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t end = line.find(" {");
    if (end != std::string::npos) keys.push_back(line.substr(0, end));
  }
  return keys;
}

TEST(ShippedCatalogues, HaveEveryKeyOnceAndNoneBehindALongerOne) {
  std::set<std::string> languages;
  for (const auto& entry : std::filesystem::directory_iterator(CATALOGUES)) {
    const std::filesystem::path& file = entry.path();
    const std::string name = file.filename().string();
    const std::string all = "\n" + test::BytesOf(file);
    for (const std::string& key : KeysIn(all)) {
      EXPECT_TRUE(std::ranges::count(CatalogueKeys(), key))
          << name << ": no text is called " << key;
    }
    for (const std::string& key : CatalogueKeys()) {
      const std::size_t line = all.find("\n" + key + " {");
      if (line == std::string::npos) ADD_FAILURE() << name << " lacks " << key;
      if (line == std::string::npos) continue;
      EXPECT_EQ(all.find("\n" + key + " {", line + 1), std::string::npos) << name << ": " << key;
      EXPECT_EQ(all.find(key), line + 1) << name << ": another line is found for " << key;
      const std::size_t begin = line + key.size() + 3;
      std::string text;
      EXPECT_FALSE(LookupText(platform::SystemFiles(), key, file, text));
      EXPECT_EQ(text, all.substr(begin, all.find('}', begin) - begin));
      if (key == "LANGUAGE.CODE") {
        EXPECT_TRUE(languages.insert(text).second) << name << ": " << text;
      }
    }
  }
  EXPECT_GE(languages.size(), 3u);
}

}  // namespace
}  // namespace zentab::texts
