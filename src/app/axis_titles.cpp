#include "app/axis_titles.h"

namespace zentab::app {

AxisTitles AxisTitlesFor(const Session& session) {
  std::string load = "Load level (× pickup)";
  if (session.modes.absoluteValues) {
    switch (session.instrument) {
      case tables::Instrument::Current:
        load = "Load level (A)";
        break;
      case tables::Instrument::Voltage:
        load = "Load level (V)";
        break;
      case tables::Instrument::None:
        load = "Load level (absolute)";
        break;
    }
  }
  return {load, session.modes.milliseconds ? "Trip time (ms)" : "Trip time (s)"};
}

}  // namespace zentab::app
