#pragma once

namespace zentab::mathparser {

/// e^x K_nu(x) for 1 <= x <= 25, nu at most 2.
[[nodiscard]] double ScaledBesselK(double nu, double x);

}  // namespace zentab::mathparser
