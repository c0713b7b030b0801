// The module of the current time test.
#include "module_export.h"
#include "simulated_instrument.h"

namespace {

simulator::SimulatedInstrument& Instrument() {
  static simulator::SimulatedInstrument instrument;
  return instrument;
}

}  // namespace

MODULE_EXPORT std::int32_t MODULE_CALL CURRENT__openFiles(const char* dataFolder) {
  return Instrument().Left(Instrument().OpenFiles(dataFolder));
}

MODULE_EXPORT float MODULE_CALL CURRENT__getIstartUp() {
  return Instrument().Left(Instrument().GetStartUp());
}

MODULE_EXPORT std::int32_t MODULE_CALL CURRENT__closeFiles() {
  return Instrument().Left(Instrument().CloseFiles());
}

MODULE_EXPORT std::int32_t MODULE_CALL CURRENT__setRefgraph(std::int32_t graph, const char* file) {
  return Instrument().Left(Instrument().SetRefgraph(graph, file));
}
