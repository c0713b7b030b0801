#include "platform/file_size_limit.h"

namespace zentab::platform {

// There is no such limit.
void ReportFileSizeLimit() {}

}  // namespace zentab::platform
