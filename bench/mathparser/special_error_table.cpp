// Prints for each special function the largest and the median error over the reference values,
// beside those of the standard library where it has the function. With "worst" as the second
// argument also the points of the largest errors.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "special_reference.h"

namespace {

using namespace zentab::mathparser;
using Arguments = std::vector<double>;
using Standard = std::function<double(const Arguments&)>;

const std::map<std::string, Standard>& StandardLibrary() {
  static const std::map<std::string, Standard> functions = {
      {"gamma", [](const Arguments& a) { return std::tgamma(a[0]); }},
      {"gammaln", [](const Arguments& a) { return std::lgamma(a[0]); }},
      {"erf", [](const Arguments& a) { return std::erf(a[0]); }},
      {"beta", [](const Arguments& a) { return std::beta(a[0], a[1]); }},
      {"ei", [](const Arguments& a) { return std::expint(a[0]); }},
      {"zeta", [](const Arguments& a) { return std::riemann_zeta(a[0]); }},
      {"besselj", [](const Arguments& a) { return std::cyl_bessel_j(a[1], a[0]); }},
      {"bessely", [](const Arguments& a) { return std::cyl_neumann(a[1], a[0]); }},
      {"besseli", [](const Arguments& a) { return std::cyl_bessel_i(a[1], a[0]); }},
      {"besselk", [](const Arguments& a) { return std::cyl_bessel_k(a[1], a[0]); }},
      {"polyle",
       [](const Arguments& a) { return std::legendre(static_cast<unsigned>(a[1]), a[0]); }},
      {"polyla",
       [](const Arguments& a) { return std::laguerre(static_cast<unsigned>(a[1]), a[0]); }},
      {"polyhe",
       [](const Arguments& a) { return std::hermite(static_cast<unsigned>(a[1]), a[0]); }},
      {"elli1",
       [](const Arguments& a) { return std::ellint_1(a[1], a[0] * 3.14159265358979323846 / 180); }},
      {"elli2",
       [](const Arguments& a) { return std::ellint_2(a[1], a[0] * 3.14159265358979323846 / 180); }},
  };
  return functions;
}

std::optional<double> StandardValue(const ReferenceValue& reference) {
  const auto found = StandardLibrary().find(reference.keyword);
  if (found == StandardLibrary().end()) return std::nullopt;
  try {
    return found->second(reference.arguments);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

// Relative, but near zeros as a share of 0.1, so that 1e-13 is the aim everywhere.
double ErrorOf(const ReferenceValue& reference, double value) {
  return 1e-13 * ErrorInTolerances(reference, value);
}

struct Errors {
  std::vector<double> all;
  std::string worst;

  void Add(double error, const ReferenceValue& reference) {
    if (all.empty() || error > Largest()) worst = reference.Text();
    all.push_back(error);
  }
  [[nodiscard]] double Largest() const { return *std::max_element(all.begin(), all.end()); }
  [[nodiscard]] double Median() const {
    std::vector<double> sorted = all;
    std::nth_element(sorted.begin(), sorted.begin() + static_cast<long>(sorted.size() / 2),
                     sorted.end());
    return sorted[sorted.size() / 2];
  }
};

}  // namespace

int main(int count, char** words) {
  if (count < 2) return 1;
  const bool showWorst = count > 2;
  std::map<std::string, std::pair<Errors, Errors>> table;
  for (const ReferenceValue& reference : ReadReferenceValues(words[1])) {
    auto& [own, standard] = table[reference.keyword];
    own.Add(ErrorOf(reference, Computed(reference)), reference);
    if (const auto value = StandardValue(reference); value && std::isfinite(*value)) {
      standard.Add(ErrorOf(reference, *value), reference);
    }
  }
  std::printf(
      "| keyword | values | largest | median | std largest | std median |\n"
      "|---|---|---|---|---|---|\n");
  for (const auto& [keyword, errors] : table) {
    const auto& [own, standard] = errors;
    std::printf("| %s | %zu | %.1e | %.1e |", keyword.c_str(), own.all.size(), own.Largest(),
                own.Median());
    if (standard.all.empty()) {
      std::printf(" - | - |");
    } else {
      std::printf(" %.1e | %.1e |", standard.Largest(), standard.Median());
    }
    std::printf("%s%s\n", showWorst ? " " : "", showWorst ? own.worst.c_str() : "");
  }
  return 0;
}
