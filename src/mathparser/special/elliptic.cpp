#include <array>
#include <numbers>

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kSpread = 0.003;  // the rest of the series below is of its eighth power

// The part that Carlson's two integrals share (DLMF 19.36.1 and 19.36.2): arguments are brought
// together by duplication until series in their relative differences do.
struct Carlson {
  double x, y, z;
  double sum = 0.0;  // what RD collects on the way
  double scale = 1.0;

  void BringTogether(double weightOfZ) {
    for (int step = 0; step < 600; ++step) {
      const double mean = (x + y + weightOfZ * z) / (2.0 + weightOfZ);
      const double spread =
          std::fmax(std::fmax(std::abs(mean - x), std::abs(mean - y)), std::abs(mean - z));
      if (!(spread > kSpread * mean)) return;
      const double root = std::sqrt(x * y) + std::sqrt(y * z) + std::sqrt(z * x);
      sum += scale / (std::sqrt(z) * (z + root));
      scale *= 0.25;
      x = (x + root) * 0.25;
      y = (y + root) * 0.25;
      z = (z + root) * 0.25;
    }
  }
};

double CarlsonRF(double x, double y, double z) {
  Carlson c{x, y, z};
  c.BringTogether(1.0);
  const double mean = (c.x + c.y + c.z) / 3.0;
  const double dx = 1.0 - c.x / mean;
  const double dy = 1.0 - c.y / mean;
  const double dz = -dx - dy;
  const double e2 = dx * dy - dz * dz;
  const double e3 = dx * dy * dz;
  const double series = 1.0 - e2 / 10.0 + e3 / 14.0 + e2 * e2 / 24.0 - 3.0 * e2 * e3 / 44.0 -
                        5.0 * e2 * e2 * e2 / 208.0 + 3.0 * e3 * e3 / 104.0 + e2 * e2 * e3 / 16.0;
  return series / std::sqrt(mean);
}

double CarlsonRD(double x, double y, double z) {
  Carlson c{x, y, z};
  c.BringTogether(3.0);
  const double mean = (c.x + c.y + 3.0 * c.z) / 5.0;
  const double dx = 1.0 - c.x / mean;
  const double dy = 1.0 - c.y / mean;
  const double dz = -(dx + dy) / 3.0;
  const double xy = dx * dy;
  const double zz = dz * dz;
  const double e2 = xy - 6.0 * zz;
  const double e3 = (3.0 * xy - 8.0 * zz) * dz;
  const double e4 = 3.0 * (xy - zz) * zz;
  const double e5 = xy * zz * dz;
  const double series = 1.0 - 3.0 * e2 / 14.0 + e3 / 6.0 + 9.0 * e2 * e2 / 88.0 - 3.0 * e4 / 22.0 -
                        9.0 * e2 * e3 / 52.0 + 3.0 * e5 / 26.0 - e2 * e2 * e2 / 16.0 +
                        3.0 * e3 * e3 / 40.0 + 3.0 * e2 * e4 / 20.0 + 45.0 * e2 * e2 * e3 / 272.0 -
                        9.0 * (e3 * e4 + e2 * e5) / 68.0;
  return 3.0 * c.sum + c.scale * series / (mean * std::sqrt(mean));
}

// phi = turns * 180 + rest, the sine and cosine of the rest.
struct Angle {
  double turns, sine, cosine;
  explicit Angle(double phi) {
    const double rest = std::remainder(phi, 180.0);
    turns = std::round((phi - rest) / 180.0);
    sine = std::sin(rest * kDegree);
    cosine = std::sin((90.0 - std::abs(rest)) * kDegree);
  }
};

// 1 - k^2 sin^2, without cancellation for |k| <= 1.
double DeltaSquared(const Angle& angle, double k) {
  if (std::abs(k) > 1.0) return (1.0 - k * angle.sine) * (1.0 + k * angle.sine);
  const double s = angle.sine;
  return angle.cosine * angle.cosine + (1.0 - k) * (1.0 + k) * s * s;
}

double FirstPart(const Angle& angle, double k) {
  const double c = angle.cosine;
  return angle.sine * CarlsonRF(c * c, DeltaSquared(angle, k), 1.0);
}

double SecondPart(const Angle& angle, double k) {
  const double s = angle.sine;
  const double c = angle.cosine;
  if (std::abs(k) == 1.0) return s;
  const double delta = DeltaSquared(angle, k);
  if (std::abs(k) > 1.0) {  // DLMF 19.25.9
    return FirstPart(angle, k) - k * k * s * s * s / 3.0 * CarlsonRD(c * c, delta, 1.0);
  }
  // DLMF 19.25.10, where nothing cancels.
  const double other = (1.0 - k) * (1.0 + k);
  return other * (FirstPart(angle, k) + k * k * s * s * s / 3.0 * CarlsonRD(c * c, 1.0, delta)) +
         (c == 0.0 ? 0.0 : k * k * s * c / std::sqrt(delta));
}

const Angle kQuarter(90.0);

// Whether the integrand stays real, and finite if it must, all the way to the angle. A sine that
// rounds to 1 does not tell whether k = 1 has reached its pole.
bool IsInside(const Angle& angle, double k, bool mayEndInPole) {
  const double size = std::abs(k);
  if (angle.turns != 0.0) return mayEndInPole ? size <= 1.0 : size < 1.0;
  if (size == 1.0) return mayEndInPole || angle.cosine > 0.0;
  return size < 1.0 || std::abs(k * angle.sine) <= 1.0;
}

// Legendre's integral F(phi, k), the angle in degrees. Domain: |k sin(phi)| <= 1, all angles for
// |k| < 1. Method: Carlson's RF (DLMF 19.25.5, 19.36.1), turns by the complete integral. Error:
// measured up to 4.7e-16 relative.
double Elli1(double phi, double k) {
  const Angle angle(phi);
  if (!IsInside(angle, k, false)) return kNoNumber;
  const double part = FirstPart(angle, k);
  return angle.turns == 0.0 ? part : 2.0 * angle.turns * FirstPart(kQuarter, k) + part;
}

// Legendre's integral E(phi, k), the angle in degrees. Domain: |k sin(phi)| <= 1, all angles for
// |k| <= 1. Method: Carlson's RF and RD (DLMF 19.25.9 and 19.25.10). Error: measured up to 5.2e-16
// relative.
double Elli2(double phi, double k) {
  const Angle angle(phi);
  if (!IsInside(angle, k, true)) return kNoNumber;
  const double part = SecondPart(angle, k);
  return angle.turns == 0.0 ? part : 2.0 * angle.turns * SecondPart(kQuarter, k) + part;
}

constexpr std::array kFunctions = {Special<Elli1>("elli1", 101), Special<Elli2>("elli2", 102)};

}  // namespace

FunctionFamily EllipticFunctions() { return kFunctions; }

}  // namespace zentab::mathparser
