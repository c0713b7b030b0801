#include "tools/demo_curves.h"

#include <cmath>
#include <span>
#include <string_view>

#include "tables/entry_line.h"
#include "texts/line_encoding.h"
#include "texts/number_text.h"

namespace zentab::tools {
namespace {

using tables::Instrument;

// Trip time = setting * (k / |M^alpha - 1| + c) at the multiple M of the pickup value.
struct Law {
  double k;
  double alpha;
  double c;
};

// IEC 60255-151, annex A: curves A, B and C. Long-time and short-time inverse carry the constants
// that relay makers use for them in the same formula (BS 142 lineage).
constexpr Law kIecSi = {0.14, 0.02, 0.0};
constexpr Law kIecVi = {13.5, 1.0, 0.0};
constexpr Law kIecEi = {80.0, 2.0, 0.0};
constexpr Law kIecLti = {120.0, 1.0, 0.0};
constexpr Law kIecSti = {0.05, 0.04, 0.0};
// IEEE C37.112-1996, table 1 (the same as curves D, E and F of IEC 60255-151).
constexpr Law kIeeeMi = {0.0515, 0.02, 0.114};
constexpr Law kIeeeVi = {19.61, 2.0, 0.491};
constexpr Law kIeeeEi = {28.2, 2.0, 0.1217};
// IEC 60255-127, curve A of over- and undervoltage: TMS / |U/Us - 1|.
constexpr Law kInverseVoltage = {1.0, 1.0, 0.0};
constexpr Law kDefinite = {0.0, 1.0, 1.0};

constexpr double kWide[] = {1.05, 1.1, 1.2, 1.3, 1.4, 1.5, 1.75, 2,  2.25, 2.5, 3,  3.5, 4,
                            4.5,  5,   6,   7,   8,   9,   10,   12, 14,   16,  18, 20,  30};
constexpr double kUsual[] = {1.1, 1.2, 1.3, 1.5, 1.75, 2,  2.5, 3,  3.5,
                             4,   5,   6,   7,   8,    10, 12,  15, 20};
constexpr double kStage[] = {1.05, 1.5, 2, 3, 5, 10, 20};
constexpr double kOvervoltage[] = {1.05, 1.075, 1.1, 1.125, 1.15, 1.175, 1.2,
                                   1.25, 1.3,   1.4, 1.5,   1.6,  1.8,   2};
constexpr double kUndervoltage[] = {0.05, 0.1, 0.2,  0.3, 0.4,   0.5, 0.6,
                                    0.7,  0.8, 0.85, 0.9, 0.925, 0.95};

struct Curve {
  std::string_view name;
  Law law;
  double setting;  // time multiplier, time dial, or the delay in s
  std::span<const double> levels;
  bool milliseconds = false;
  double pickup = 0.0;  // loads are amperes or volts at this pickup value; 0: multiples of it
  Instrument instrument = Instrument::Current;
};

constexpr bool kMs = true;
constexpr auto kVolts = Instrument::Voltage;

constexpr Curve kCurves[] = {
    {"IEC SI TMS 0.05", kIecSi, 0.05, kWide},
    {"IEC SI TMS 0.10", kIecSi, 0.1, kWide},
    {"IEC SI TMS 0.30", kIecSi, 0.3, kWide},
    {"IEC SI TMS 1.00", kIecSi, 1.0, kWide},
    {"IEC VI TMS 0.10", kIecVi, 0.1, kWide},
    {"IEC VI TMS 0.25", kIecVi, 0.25, kWide},
    {"IEC VI TMS 1.00", kIecVi, 1.0, kWide},
    {"IEC EI TMS 0.10", kIecEi, 0.1, kWide},
    {"IEC EI TMS 0.50", kIecEi, 0.5, kWide},
    {"IEC EI TMS 1.00", kIecEi, 1.0, kWide},
    {"IEC LTI TMS 0.10", kIecLti, 0.1, kUsual},
    {"IEC LTI TMS 1.00", kIecLti, 1.0, kUsual},
    {"IEC STI TMS 0.10 ms", kIecSti, 0.1, kUsual, kMs},
    {"IEC STI TMS 1.00", kIecSti, 1.0, kUsual},
    {"IEEE MI TD 1.0", kIeeeMi, 1.0, kUsual},
    {"IEEE MI TD 5.0", kIeeeMi, 5.0, kUsual},
    {"IEEE VI TD 0.5 51N Feeder 12", kIeeeVi, 0.5, kUsual},
    {"IEEE VI TD 2.0 51P Feeder 12", kIeeeVi, 2.0, kUsual},
    {"IEEE VI TD 8.0", kIeeeVi, 8.0, kUsual},
    {"IEEE EI TD 1.0 51P Recloser R-204", kIeeeEi, 1.0, kUsual},
    {"IEEE EI TD 3.0", kIeeeEi, 3.0, kUsual},
    {"Line 3 51P SI TMS 0.20, 1.2 A sec.", kIecSi, 0.2, kUsual, false, 1.2},
    {"Motor M7 EI TMS 0.80, 4.5 A sec.", kIecEi, 0.8, kUsual, false, 4.5},
    {"Trafo T1 110/20 kV Überstrom EI", kIecEi, 0.35, kUsual, false, 2.0},
    {"Départ Orléans SI", kIecSi, 0.15, kUsual},
    {"Łódź GPZ feeder 7 VI", kIecVi, 0.2, kUsual},
    {"变电站 10kV 馈线 NI", kIecSi, 0.12, kUsual},
    {"50-1 Feeder 12 DT 300 ms", kDefinite, 0.3, kStage, kMs},
    {"50N Feeder 12 DT 0.50 s", kDefinite, 0.5, kStage},
    {"50-2 Trafo T1 DT 60 ms, 25 A", kDefinite, 0.06, kStage, kMs, 25.0},
    {"59-2 U>> DT 0.20 s", kDefinite, 0.2, kOvervoltage, false, 0.0, kVolts},
    {"59 IDMT TMS 1.0", kInverseVoltage, 1.0, kOvervoltage, false, 0.0, kVolts},
    {"Überspannung U> 59-1", kInverseVoltage, 0.5, kOvervoltage, false, 100.0, kVolts},
    {"27 IDMT TMS 0.5", kInverseVoltage, 0.5, kUndervoltage, false, 0.0, kVolts},
    {"27-1 U< DT 1500 ms, 80 V", kDefinite, 1.5, kUndervoltage, kMs, 80.0, kVolts},
    {"59N U0> IDMT TMS 0.2 ms", kInverseVoltage, 0.2, kOvervoltage, kMs, 0.0, kVolts},
};

std::string FourDigits(double value) {
  const double scale = std::pow(10.0, 3.0 - std::floor(std::log10(value)));
  return texts::NumberText(std::round(value * scale) / scale, ".");
}

tables::CurveTableEntry EntryOf(const Curve& curve) {
  const bool absolute = curve.pickup > 0.0;
  tables::CurveTableEntry entry = {
      std::string(curve.name), {}, curve.milliseconds, absolute, curve.instrument};
  for (const double level : curve.levels) {
    const auto& [k, alpha, c] = curve.law;
    const double seconds = curve.setting * (k / std::abs(std::pow(level, alpha) - 1.0) + c);
    entry.points.push_back({FourDigits(absolute ? level * curve.pickup : level),
                            FourDigits(curve.milliseconds ? seconds * 1000.0 : seconds)});
  }
  return entry;
}

}  // namespace

std::vector<tables::CurveTableEntry> DemoCurves() {
  std::vector<tables::CurveTableEntry> entries;
  for (const Curve& curve : kCurves) entries.push_back(EntryOf(curve));
  return entries;
}

std::string DemoLibrary() {
  std::string bytes;
  for (const tables::CurveTableEntry& entry : DemoCurves()) {
    bytes += texts::EncodeLine(tables::FormatEntryLine(entry)) + "\r\n";
  }
  return bytes;
}

}  // namespace zentab::tools
