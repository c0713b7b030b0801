#include "platform/end_signals.h"

namespace zentab::platform {

struct EndSignals::Caught {};

EndSignals::EndSignals() = default;
EndSignals::~EndSignals() = default;
int EndSignals::Descriptor() const { return -1; }

}  // namespace zentab::platform
