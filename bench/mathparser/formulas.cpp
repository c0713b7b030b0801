#include "formulas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zentab::mathparser::bench {
namespace {

double SecondDifference(const double* v) { return (v[0] - v[1]) - (v[1] - v[2]); }

double SlopeDifference(const double* v) {
  return std::abs((v[0] - v[1]) / (v[2] - v[3]) - (v[1] - v[4]) / (v[3] - v[5]));
}

double Mean(const double* v) { return (v[0] + v[1] + v[2]) / 3.0; }

double Smaller(const double* v) {
  return static_cast<double>(v[0] < v[1]) * v[0] + static_cast<double>(v[0] >= v[1]) * v[1];
}

double InverseTime(const double* v) { return 0.14 / (std::pow(v[0] / v[1], 0.02) - 1.0); }

double Mixed(const double* v) {
  return std::sqrt(v[0] * v[0] + v[1] * v[1]) * std::sin(v[2] / v[3] * 6.283185307) +
         std::exp(-v[0] / v[4]) * std::log(v[1] + 1.0);
}

double Clamp(const double* v) { return std::max(std::min(v[0], v[1]), v[2]); }

double Cubic(const double* v) {
  const double x = v[0];
  return x * x * x - 2.0 * x * x + 3.0 * x - 4.0;
}

}  // namespace

std::span<const Formula> Formulas() {
  static const std::array kFormulas = {
      Formula{"(t2-t1)-(t1-t0)", "(t2-t1)-(t1-t0)", {"t2", "t1", "t0"}, SecondDifference, 0, 100},
      Formula{"abs((t2-t1)/(v2-v1)-(t1-t0)/(v1-v0))",
              "abs((t2-t1)/(v2-v1)-(t1-t0)/(v1-v0))",
              {"t2", "t1", "v2", "v1", "t0", "v0"},
              SlopeDifference,
              0,
              100},
      Formula{"(t0+t1+t2)/3", "(t0+t1+t2)/3", {"t0", "t1", "t2"}, Mean, 0, 100},
      Formula{"(t0<t1)*t0+(t0>=t1)*t1", "(t0<t1)*t0+(t0>=t1)*t1", {"t0", "t1"}, Smaller, 0, 100},
      Formula{"0.14/((v0/vMin)^0.02-1)",
              "0.14/((v0/vMin)^0.02-1)",
              {"v0", "vMin"},
              InverseTime,
              0.1,
              20},
      Formula{"sqr(t0*t0+v0*v0)*sin(y/z*6.283185307)+exp(-t0/tMax)*ln(v0+1)",
              "sqrt(t0*t0+v0*v0)*sin(y/z*6.283185307)+exp(-t0/tMax)*ln(v0+1)",
              {"t0", "v0", "y", "z", "tMax"},
              Mixed,
              0.1,
              20},
      Formula{"max(min(t0,tMax),tMin)",
              "max(min(t0,tMax),tMin)",
              {"t0", "tMax", "tMin"},
              Clamp,
              0,
              100},
      Formula{"x*x*x-2*x*x+3*x-4", "x*x*x-2*x*x+3*x-4", {"x"}, Cubic, -10, 10},
  };
  return kFormulas;
}

}  // namespace zentab::mathparser::bench
