#include "platform/desktop.h"

namespace zentab::platform {

bool WantsDarkWindows() { return false; }

const char* DisplayForWindows() { return nullptr; }

const char* DisplayWithoutWindows() { return "offscreen"; }

}  // namespace zentab::platform
