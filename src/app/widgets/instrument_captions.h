#pragma once

#include "app/session.h"

namespace zentab::app {

class ChartPanel;
class TablePanel;

/// Gives the captions and tips that name an instrument's quantities the texts of the instrument in
/// use. What it has no text for stays as it was.
void ShowInstrumentCaptions(const Session& session, TablePanel& table, ChartPanel& chart);

}  // namespace zentab::app
