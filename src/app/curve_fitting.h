#pragma once

#include <set>
#include <string>
#include <variant>
#include <vector>

#include "app/session.h"
#include "app/standard_curve.h"
#include "curves/fit.h"

namespace zentab::app {

/// The characteristics that come closest to the grid's points, best first; `excluded` are rows of
/// the grid that do not count. A fault when none does.
[[nodiscard]] std::variant<std::vector<curves::FamilyFit>, FormFault> FitGrid(
    const Session& session, const std::set<int>& excluded, bool pickupFree);

/// A fit as the user sees it, numbers in his notation.
struct FitRow {
  std::string family;
  std::string multiplier;  // empty for own k, alpha and c
  std::string constants;   // for those alone
  std::string pickup;
  std::string rootMeanSquare;  // per cent
  std::string largest;         // per cent
  std::string remark;          // what the points leave open, and how sure they are of the rest
};
[[nodiscard]] FitRow RowOf(const curves::FamilyFit& fit, const Session& session);

/// The fitted characteristic at the loads of the grid, but for those where it does not operate.
struct FittedTable {
  CurveProposal proposal;
  std::size_t leftOut = 0;
};
[[nodiscard]] FittedTable TableOf(const curves::FamilyFit& fit, const Session& session);

}  // namespace zentab::app
