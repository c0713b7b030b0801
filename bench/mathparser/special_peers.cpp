#include "special_peers.h"

#include <boost/math/distributions/binomial.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/poisson.hpp>
#include <boost/math/special_functions.hpp>
#include <boost/math/special_functions/chebyshev.hpp>
#include <boost/math/special_functions/hypergeometric_pFq.hpp>
#include <cmath>
#include <map>

namespace zentab::mathparser::bench {
namespace {

namespace bm = boost::math;
namespace bp = boost::math::policies;

// The default policy but for its exceptions, which would be timed instead of the functions.
using Policy =
    bp::policy<bp::domain_error<bp::ignore_error>, bp::pole_error<bp::ignore_error>,
               bp::overflow_error<bp::ignore_error>, bp::underflow_error<bp::ignore_error>,
               bp::denorm_error<bp::ignore_error>, bp::rounding_error<bp::ignore_error>,
               bp::evaluation_error<bp::ignore_error>,
               bp::indeterminate_result_error<bp::ignore_error>>;
using Normal = bm::normal_distribution<double, Policy>;
using Binomial = bm::binomial_distribution<double, Policy>;
using Poisson = bm::poisson_distribution<double, Policy>;

constexpr Policy kPolicy;
constexpr double kDegree = 3.14159265358979323846 / 180.0;

int Order(double n) { return static_cast<int>(n); }
unsigned Count(double n) { return static_cast<unsigned>(n); }

double BoostSeries(const double* a) {
  double error = 0.0;
  return bm::hypergeometric_pFq({a[1], a[2]}, {a[3]}, a[0], &error, kPolicy);
}

const std::map<std::string, Peer>& BoostPeers() {
  static const std::map<std::string, Peer> peers = {
      {"gamma", [](const double* a) { return bm::tgamma(a[0], kPolicy); }},
      {"gammaln", [](const double* a) { return bm::lgamma(a[0], kPolicy); }},
      {"digamma", [](const double* a) { return bm::digamma(a[0], kPolicy); }},
      {"beta", [](const double* a) { return bm::beta(a[0], a[1], kPolicy); }},
      {"comb",
       [](const double* a) {
         return a[0] > 4e9 ? std::nan("")
                           : bm::binomial_coefficient<double>(Count(a[0]), Count(a[1]), kPolicy);
       }},
      {"perm", [](const double* a) { return bm::falling_factorial(a[0], Count(a[1]), kPolicy); }},
      {"erf", [](const double* a) { return bm::erf(a[0], kPolicy); }},
      {"gammai", [](const double* a) { return bm::gamma_p(a[0], a[1], kPolicy); }},
      {"betai", [](const double* a) { return bm::ibeta(a[1], a[2], a[0], kPolicy); }},
      {"dnorm", [](const double* a) { return bm::pdf(Normal(a[1], a[2]), a[0]); }},
      {"cnorm", [](const double* a) { return bm::cdf(Normal(a[1], a[2]), a[0]); }},
      {"dbinom", [](const double* a) { return bm::pdf(Binomial(a[1], a[2]), a[0]); }},
      {"cbinom", [](const double* a) { return bm::cdf(Binomial(a[1], a[2]), a[0]); }},
      {"dpoisson", [](const double* a) { return bm::pdf(Poisson(a[1]), a[0]); }},
      {"cpoisson", [](const double* a) { return bm::cdf(Poisson(a[1]), a[0]); }},
      {"j0", [](const double* a) { return bm::cyl_bessel_j(0, a[0], kPolicy); }},
      {"y0", [](const double* a) { return bm::cyl_neumann(0, a[0], kPolicy); }},
      {"i0", [](const double* a) { return bm::cyl_bessel_i(0, a[0], kPolicy); }},
      {"k0", [](const double* a) { return bm::cyl_bessel_k(0, a[0], kPolicy); }},
      {"besselj", [](const double* a) { return bm::cyl_bessel_j(Order(a[1]), a[0], kPolicy); }},
      {"bessely", [](const double* a) { return bm::cyl_neumann(Order(a[1]), a[0], kPolicy); }},
      {"besseli", [](const double* a) { return bm::cyl_bessel_i(Order(a[1]), a[0], kPolicy); }},
      {"besselk", [](const double* a) { return bm::cyl_bessel_k(Order(a[1]), a[0], kPolicy); }},
      {"airya", [](const double* a) { return bm::airy_ai(a[0], kPolicy); }},
      {"airyb", [](const double* a) { return bm::airy_bi(a[0], kPolicy); }},
      {"elli1", [](const double* a) { return bm::ellint_1(a[1], a[0] * kDegree, kPolicy); }},
      {"elli2", [](const double* a) { return bm::ellint_2(a[1], a[0] * kDegree, kPolicy); }},
      {"ei", [](const double* a) { return bm::expint(a[0], kPolicy); }},
      {"ein", [](const double* a) { return bm::expint(Count(a[1]), a[0], kPolicy); }},
      {"zeta", [](const double* a) { return bm::zeta(a[0], kPolicy); }},
      {"polyle", [](const double* a) { return bm::legendre_p(Order(a[1]), a[0], kPolicy); }},
      {"polyla", [](const double* a) { return bm::laguerre(Count(a[1]), a[0], kPolicy); }},
      {"polyhe", [](const double* a) { return bm::hermite(Count(a[1]), a[0], kPolicy); }},
      {"polych", [](const double* a) { return bm::chebyshev_t(Count(a[1]), a[0]); }},
      {"hypgeom", BoostSeries},
  };
  return peers;
}

const std::map<std::string, Peer>& StandardPeers() {
  static const std::map<std::string, Peer> peers = {
      {"gamma", [](const double* a) { return std::tgamma(a[0]); }},
      {"gammaln", [](const double* a) { return std::lgamma(a[0]); }},
      {"beta", [](const double* a) { return std::beta(a[0], a[1]); }},
      {"erf", [](const double* a) { return std::erf(a[0]); }},
      {"j0", [](const double* a) { return std::cyl_bessel_j(0.0, a[0]); }},
      {"y0", [](const double* a) { return std::cyl_neumann(0.0, a[0]); }},
      {"i0", [](const double* a) { return std::cyl_bessel_i(0.0, a[0]); }},
      {"k0", [](const double* a) { return std::cyl_bessel_k(0.0, a[0]); }},
      {"besselj", [](const double* a) { return std::cyl_bessel_j(a[1], a[0]); }},
      {"bessely", [](const double* a) { return std::cyl_neumann(a[1], a[0]); }},
      {"besseli", [](const double* a) { return std::cyl_bessel_i(a[1], a[0]); }},
      {"besselk", [](const double* a) { return std::cyl_bessel_k(a[1], a[0]); }},
      {"elli1", [](const double* a) { return std::ellint_1(a[1], a[0] * kDegree); }},
      {"elli2", [](const double* a) { return std::ellint_2(a[1], a[0] * kDegree); }},
      {"ei", [](const double* a) { return std::expint(a[0]); }},
      {"zeta", [](const double* a) { return std::riemann_zeta(a[0]); }},
      {"polyle", [](const double* a) { return std::legendre(Count(a[1]), a[0]); }},
      {"polyla", [](const double* a) { return std::laguerre(Count(a[1]), a[0]); }},
      {"polyhe", [](const double* a) { return std::hermite(Count(a[1]), a[0]); }},
  };
  return peers;
}

Peer FindIn(const std::map<std::string, Peer>& peers, const std::string& keyword) {
  const auto found = peers.find(keyword);
  return found == peers.end() ? nullptr : found->second;
}

}  // namespace

Peer BoostPeer(const std::string& keyword) { return FindIn(BoostPeers(), keyword); }
Peer StandardPeer(const std::string& keyword) { return FindIn(StandardPeers(), keyword); }

}  // namespace zentab::mathparser::bench
