#pragma once

#include <QByteArray>
#include <QPageSize>

#include "app/report_content.h"
#include "app/report_settings.h"

class QPrinter;

namespace zentab::app {

/// What a file names as its maker.
inline constexpr const char* kProgram = "Zentab";

[[nodiscard]] QPageSize PageSizeOf(Paper paper);
/// The paper that is usual where the user lives.
[[nodiscard]] Paper UsualPaper();

/// A report as a PDF file, its fonts embedded.
[[nodiscard]] QByteArray ReportPdf(const Report& report, Paper paper);

/// Prints a report on the printer's paper: all of it, or the pages that were chosen. False when
/// the printer does not take it.
[[nodiscard]] bool PrintReport(const Report& report, QPrinter& printer);

}  // namespace zentab::app
