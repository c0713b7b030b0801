#pragma once

namespace zentab::platform {

/// Lets a write beyond the size that this process's files may have fail with
/// std::errc::file_too_large instead of ending the program. Called first by every program.
void ReportFileSizeLimit();

}  // namespace zentab::platform
