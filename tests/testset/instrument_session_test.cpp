#include "testset/instrument_session.h"

#include <algorithm>
#include <cfenv>
#include <clocale>
#include <csignal>

#include "support/simulated_modules.h"
#include "support/temporary_folder.h"

namespace zentab::testset {
namespace {

using tables::Instrument;
using Lines = std::vector<std::string>;

class InstrumentSessionTest : public test::TemporaryFolder {
 protected:
  InstrumentSessionTest() { test::InstallSimulators(Folder()); }

  OpenOutcome ChooseAndOpen(Instrument kind) {
    session.Choose(kind);
    return session.Open();
  }
  [[nodiscard]] Lines TakeLines() { return std::exchange(lines, {}); }

  Lines lines;
  InstrumentSession session{Folder(),
                            {[this](std::string_view line) { lines.emplace_back(line); },
                             [this] { lines.emplace_back("(events)"); }}};
};

TEST_F(InstrumentSessionTest, EveryChoiceClosesFirst) {
  EXPECT_TRUE(ChooseAndOpen(Instrument::Current).open);
  EXPECT_EQ(TakeLines(), (Lines{" %E Current selected ", " %E Close request ", " %E Open Current 1",
                                "(events)", " %E I pickup = 0.5", "(events)"}));
  EXPECT_TRUE(ChooseAndOpen(Instrument::Current).open);
  EXPECT_EQ(TakeLines(), (Lines{" %E Current selected ", " %E Close request ",
                                " %E Current is Open ", " %E Close Current 1", " %E Open Current 1",
                                "(events)", " %E I pickup = 0.5", "(events)"}));
  test::SetInstrument(Folder(), "current", "fail = close\n");
  EXPECT_TRUE(ChooseAndOpen(Instrument::Voltage).open);
  EXPECT_EQ(session.UsablePickup(), 110.25f);
  EXPECT_EQ(TakeLines(), (Lines{" %E Voltage selected ", " %E Close request ",
                                " %E Current is Open ", " %E Close Current 0", " %E Open Voltage 1",
                                "(events)", " %E U pickup = 110.25", "(events)"}));
  session.SetReferenceGraph("missing.grh");
  EXPECT_EQ(TakeLines(), (Lines{"(events)", "(events)", " %E SetRefgraph 0"}));
  EXPECT_FALSE(ChooseAndOpen(Instrument::Third).open);
  EXPECT_FALSE(session.IsOpen());
  session.CloseRequest();
  EXPECT_EQ(TakeLines(), (Lines{" %E  x selected ", " %E Close request ", " %E Voltage is Open ",
                                " %E Close Voltage 1", " %E Close request "}));
  EXPECT_EQ(session.UsablePickup(), 110.25f);
}

TEST_F(InstrumentSessionTest, FindsItsDataWhereverTheWorkingFolderWas) {
  std::filesystem::current_path(std::filesystem::temp_directory_path());
  EXPECT_TRUE(ChooseAndOpen(Instrument::Current).open);
}

volatile std::sig_atomic_t lastSignal = 0;

// What a module may change for the whole process; a trap ends the test.
std::string ProcessState() {
  volatile double zero = 0.0;
  std::string state = std::to_string(1.0 / zero) + std::to_string(std::fegetround());
  state += std::setlocale(LC_ALL, nullptr) + std::filesystem::current_path().string();
  for (const int signal : {SIGTERM, SIGINT}) {
    lastSignal = 0;
    std::raise(signal);
    // cppcheck-suppress unreachableCode
    state += ' ' + std::to_string(lastSignal);
    // One that arrived is not listened to any more by every system.
    std::signal(signal, [](int number) { lastSignal = number; });
  }
  return state;
}

TEST_F(InstrumentSessionTest, WhatAModuleLeavesChangedIsPutBack) {
  std::filesystem::current_path(Folder());
  const auto formerTerm = std::signal(SIGTERM, [](int number) { lastSignal = number; });
  const auto formerInt = std::signal(SIGINT, [](int number) { lastSignal = number; });
  const std::string before = ProcessState();
  test::SetInstrument(Folder(), "current",
                      "pickup = 0.5\nleave = folder arithmetic locale signals\n");
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_TRUE(ChooseAndOpen(Instrument::Current).open);
  EXPECT_EQ(std::fetestexcept(FE_UNDERFLOW), 0);
  EXPECT_EQ(ProcessState(), before) << "opened";
  session.SetReferenceGraph("data\\currtmp.grh");
  EXPECT_EQ(ProcessState(), before) << "given a graph";
  session.CloseRequest();
  EXPECT_EQ(ProcessState(), before) << "closed";
  std::signal(SIGTERM, formerTerm);
  std::signal(SIGINT, formerInt);
}

TEST_F(InstrumentSessionTest, AFailedOpenKeepsTheLastGoodPickup) {
  struct Case {
    std::string_view text;
    bool opens;
    float pickup;
  };
  // In one session, one after the other.
  const Case cases[] = {
      {"fail = open\n", false, 1.0f},
      {"pickup = 0.05\n", true, 1.0f},
      {"pickup = 0.1\n", true, 0.1f},
      {"pickup = 25\nfail = open\n", false, 0.1f},
      {"pickup = 25\nopened = 2\n", false, 0.1f},
      {"pickup = nan\n", true, 1.0f},
      {"pickup = inf\n", true, 1.0f},
      {"pickup = 7\n", true, 7.0f},
      {"pickup = -7\n", true, 1.0f},
      {"pickup = 7\nfail = pickup\n", true, 1.0f},
  };
  for (const Case& row : cases) {
    test::SetInstrument(Folder(), "current", row.text);
    EXPECT_EQ(ChooseAndOpen(Instrument::Current).open, row.opens) << row.text;
    EXPECT_EQ(session.IsOpen(), row.opens) << row.text;
    EXPECT_EQ(session.UsablePickup(), row.pickup) << row.text;
  }
  std::filesystem::remove_all(Folder() / "data");
  const OpenOutcome outcome = ChooseAndOpen(Instrument::Current);
  EXPECT_FALSE(outcome.open);
  EXPECT_EQ(outcome.failure, "") << "the module itself is there";
  EXPECT_EQ(lines.back(), " %E Open Current 0");
}

TEST_F(InstrumentSessionTest, TheDemoInstallationHasBothInstruments) {
  std::filesystem::copy(
      DEMO_INSTALLATION, Folder(),
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
  EXPECT_TRUE(ChooseAndOpen(Instrument::Current).open);
  EXPECT_EQ(session.UsablePickup(), 1.0f);
  EXPECT_TRUE(ChooseAndOpen(Instrument::Voltage).open);
  EXPECT_EQ(session.UsablePickup(), 110.0f);
}

// A module's file with a text replaced by another of the same length.
std::string Renamed(std::string bytes, std::string_view text, std::string_view by) {
  for (std::size_t at = 0; (at = bytes.find(text, at)) != std::string::npos; at += by.size()) {
    bytes.replace(at, text.size(), by);
  }
  return bytes;
}

// The same module for another processor, told by the header of an ELF or a PE file.
std::string ForOtherProcessor(std::string bytes) {
  std::size_t machine = 18;
  if (bytes.starts_with("MZ")) {
    machine = 4;
    for (std::size_t byte = 4; byte-- > 0;) {
      machine += static_cast<std::size_t>(static_cast<unsigned char>(bytes[0x3C + byte]))
                 << (8 * byte);
    }
  }
  bytes[machine] = static_cast<char>(bytes[machine] ^ 0x55);
  return bytes;
}

TEST_F(InstrumentSessionTest, WhatIsNoModuleIsAFailedOpen) {
  const std::string module = test::BytesOf(Folder() / test::kCurrentModule);
  struct Case {
    std::string what, bytes;
  };
  std::vector<Case> cases = {{"a text file", "pickup = 0.5\n"},
                             {"an empty file", ""},
                             {"another processor", ForOtherProcessor(module)}};
  for (const std::string_view name : {"CURRENT__openFiles", "CURRENT__getIstartUp",
                                      "CURRENT__closeFiles", "CURRENT__setRefgraph"}) {
    std::string other(name);
    other.back() = 'X';
    cases.push_back({"without " + std::string(name), Renamed(module, name, other)});
  }
  const auto expectFailure = [this](const std::string& what) {
    const OpenOutcome outcome = ChooseAndOpen(Instrument::Current);
    EXPECT_FALSE(outcome.open || session.IsOpen()) << what;
    EXPECT_NE(outcome.failure, "") << what;
    EXPECT_EQ(lines.back(), " %E Open Current 0") << what;
    EXPECT_EQ(session.UsablePickup(), 1.0f) << what;
    session.SetReferenceGraph("data\\currtmp.grh");
    EXPECT_EQ(lines.back(), " %E SetRefgraph 0") << what;
  };
  for (const Case& row : cases) {
    Write(test::kCurrentModule, row.bytes);
    expectFailure(row.what);
  }
  std::filesystem::remove(Folder() / test::kCurrentModule);
  expectFailure("missing");
  std::filesystem::create_directory(Folder() / test::kCurrentModule);
  expectFailure("a folder");
  std::filesystem::remove(Folder() / test::kCurrentModule);
  // It is looked for anew, under a name that differs in case as well.
  std::string lower(test::kCurrentModule);
  std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
  Write(lower, module);
  EXPECT_TRUE(ChooseAndOpen(Instrument::Current).open);
}

}  // namespace
}  // namespace zentab::testset
