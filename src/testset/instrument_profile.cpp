#include "testset/instrument_profile.h"

#include <array>

namespace zentab::testset {
namespace {

constexpr std::array<InstrumentProfile, 4> kProfiles = {{
    {},
    {"CURR_API",
     "data\\current\\",
     {"_CURRENT__openFiles@4", "_CURRENT__getIstartUp@0", "_CURRENT__closeFiles@0",
      "_CURRENT__setRefgraph@8"},
     " %E Current selected ",
     " %E Open Current ",
     " %E I pickup = ",
     " %E Current is Open ",
     " %E Close Current "},
    {"VOLT_API",
     "data\\voltage\\",
     {"_VOLTAGE__openFiles@4", "_VOLTAGE__getUstartUp@0", "_VOLTAGE__closeFiles@0",
      "_VOLTAGE__setRefgraph@8"},
     " %E Voltage selected ",
     " %E Open Voltage ",
     " %E U pickup = ",
     " %E Voltage is Open ",
     " %E Close Voltage "},
    {{}, {}, {}, " %E  x selected ", {}, {}, " %E is Open ", {}},
}};

}  // namespace

const InstrumentProfile& ProfileOf(tables::Instrument kind) {
  return kProfiles.at(static_cast<std::size_t>(kind));
}

}  // namespace zentab::testset
