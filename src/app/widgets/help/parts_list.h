#pragma once

#include <QStringList>
#include <vector>

namespace zentab::app {

/// The program and what it is made of: name, version and licence of each part. `compiler` is what
/// the compiler's row is called.
[[nodiscard]] std::vector<QStringList> PartsOfProgram(const QString& compiler);

}  // namespace zentab::app
