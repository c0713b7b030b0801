#include "texts/apply_texts.h"

#include <map>

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
  void SetPlaceholder(std::string_view, std::string_view) override {}
  void SetSpokenName(std::string_view, std::string_view) override {}
  std::string Caption(std::string_view control) const override {
    const auto found = captions.find(control);
    return found == captions.end() ? "" : found->second;
  }
};

class ApplyTextsTest : public test::TemporaryFolder {
 protected:
  void Apply(std::string_view bytes) {
    const auto error =
        ApplyTexts(platform::SystemFiles(), Write("catalogue.txt", bytes), target, texts,
                   [](std::string_view text) { return "<" + std::string(text) + ">"; });
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
      "F1.COMMAND1.TEXT {&Lesen}\nF1.COMMAND1.TIP {liest}\n"
      "F1.CURRENT.BUTTON.TEXT {early}\nF1.INSTRUMENT1.TEXT {St&rom}\n"
      "F1.COMMAND6.TEXT {Import}\nF1.CHECK1.TIP {tip only}\nTIME.MS.TIP {shows too}\n"
      "F1.INSTRUMENT2.UNIT {V}\nF1.COMMAND5.TEXT2 {two}\nF1.TEXT2.TIP3 {three}\n"
      "F1.MSGBOX6.HEAD {head}\nLAST.Y2 {9}\nFIRST.X {1}\nLOAD.LABEL.ABS.TEXT {%V}\n"
      "F2.EXPORT.LIST.TIP {list}\nDIFF.EQUATION.10 { t0 }\nTIMEOUT.VALUE { 5 }\n"
      "F1.LOGGFILE {on}\nF1.HEADING.TEXT {title}\n");
  EXPECT_EQ(target.captions["Command1"], "<&Lesen>");
  EXPECT_EQ(target.tips["Command1"], "<liest>");
  EXPECT_EQ(target.captions["Option1"], "<St&rom>");
  EXPECT_EQ(target.captions["Form1"], "<title>");
  EXPECT_EQ(texts.instruments[1].name, "<Strom>");
  EXPECT_EQ(target.shown, (decltype(target.shown){{"Command6", true}, {"Check2", true}}));
  EXPECT_EQ(texts.instruments[2].unit, "<V>");
  EXPECT_EQ(texts.instruments[2].setGraphCaption, "two");
  EXPECT_EQ(texts.instruments[3].pickupTip, "three");
  EXPECT_EQ(texts.messages[6].title, "head");
  EXPECT_EQ(texts.instruments[2].lastY, "9");
  EXPECT_EQ(texts.instruments[1].firstX, "1");
  EXPECT_EQ(texts.labels.loadAbsolute, "%V");
  EXPECT_EQ(texts.exporting.listTip, "list");
  EXPECT_EQ(texts.equations[0][10], "t0");
  EXPECT_EQ(texts.equations[0][1], "t0");  // the line of slot 10 comes first
  EXPECT_EQ(texts.equations[1][10], "");
  EXPECT_EQ(texts.import.timeout, " 5 ");
  EXPECT_TRUE(texts.logSwitch);
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
      {"VALUE.MEAN.OVER {3}", "Text6", std::nullopt},
  };
  for (const Case& c : cases) {
    target.shown.clear();
    Apply(c.line);
    const auto found = target.shown.find(c.control);
    EXPECT_EQ(found == target.shown.end() ? std::nullopt : std::optional(found->second), c.shown)
        << c.line;
  }
  Apply("DIFF.TYPE { 2.5 }\nFILTER.TYPE {4}\nVALUE.MEAN.OVER {x}\nTABLE.PRINT {no}");
  EXPECT_EQ(target.captions["Text4"], "2.5");
  EXPECT_EQ(texts.import.differenceType, 2);
  EXPECT_EQ(texts.import.filterTypeText, "4");
  EXPECT_EQ(texts.import.filterType, 4);
  EXPECT_EQ(target.captions["Text6"], "x");
  EXPECT_EQ(texts.import.meanOver, 3);
  EXPECT_TRUE(texts.import.printTable);
  Apply("DIFF.TYPE {40000}\nTABLE.PRINT {0}");
  EXPECT_EQ(texts.import.differenceType, 2);
  EXPECT_FALSE(texts.import.printTable);
}

TEST(InstrumentFrame, BlanksHideIt) {
  RecordingTarget target;
  CatalogueTexts texts;
  const auto file = std::filesystem::temp_directory_path() / "zentab-frame-test.txt";
  std::ofstream(file) << "F1.INSTRUMENTS.TEXT {  }\n";
  EXPECT_FALSE(ApplyTexts(platform::SystemFiles(), file, target, texts,
                          [](std::string_view text) { return std::string(text); }));
  std::filesystem::remove(file);
  EXPECT_FALSE(target.shown.at("Frame1"));
}

TEST(ShippedCatalogues, HaveEveryKeyOnceAndNoneBehindALongerOne) {
  for (const char* const name : {"Zentab.txt", "Zentab.de.txt", "Zentab.zh_CN.txt"}) {
    const std::string file = std::string(CATALOGUES) + "/" + name;
    const std::string all = "\n" + test::BytesOf(file);
    for (const std::string& key : CatalogueKeys()) {
      const std::size_t line = all.find("\n" + key + " {");
      ASSERT_NE(line, std::string::npos) << name << " lacks " << key;
      EXPECT_EQ(all.find("\n" + key + " {", line + 1), std::string::npos) << name << ": " << key;
      EXPECT_EQ(all.find(key), line + 1) << name << ": another line is found for " << key;
      const std::size_t begin = line + key.size() + 3;
      std::string text;
      EXPECT_FALSE(LookupText(platform::SystemFiles(), key, file, text));
      EXPECT_EQ(text, all.substr(begin, all.find('}', begin) - begin));
    }
  }
}

}  // namespace
}  // namespace zentab::texts
