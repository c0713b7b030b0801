#include "platform/file_size_limit.h"

#include <csignal>

namespace zentab::platform {

void ReportFileSizeLimit() { std::signal(SIGXFSZ, SIG_IGN); }

}  // namespace zentab::platform
