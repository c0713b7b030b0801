#pragma once

#include <cstddef>
#include <variant>

#include "app/form_values.h"
#include "app/session.h"
#include "app/standard_curve.h"

namespace zentab::app {

// The grid's curve by other points. Lines are straight on the chart's axes, logarithmic or not.

/// `count` of the grid's points, with the deviation of the lines between them.
[[nodiscard]] std::variant<CurveProposal, FormFault> ProposeThinned(const Session& session,
                                                                    std::size_t count,
                                                                    bool logarithmic);

/// The values at first of the form for other loads: from the first to the last one of the grid.
[[nodiscard]] FormValues FirstResampleValues(const Session& session);

/// The grid's curve at the loads that a form gives.
[[nodiscard]] std::variant<CurveProposal, FormFault> ProposeResampled(const FormValues& values,
                                                                      const Session& session,
                                                                      bool logarithmic);

}  // namespace zentab::app
