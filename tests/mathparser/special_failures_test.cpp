#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "mathparser/function_catalogue.h"
#include "mathparser/math_parser.h"
#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

TEST(SpecialFunctions, RefuseWithTheirMessages) {
  struct Case {
    const char* text;
    const char* message;
  };
  constexpr const char* kDivergent = "The hypergeometric series is divergent";
  constexpr const char* kTooLarge = "a and/or x too large";
  const Case cases[] = {
      {"hypgeom(1.5,1,1,2)", kDivergent},
      {"hypgeom(-1.5,1,1,2)", kDivergent},
      {"hypgeom(1,1,1,2)", kDivergent},
      {"hypgeom(-1,1,2,2)", kDivergent},
      {"hypgeom(0.7,-80.5,90,1.5)", "Warning! You should check the accuracy"},
      {"hypgeom(-0.25,330,46,10)", "Warning! You should check the accuracy"},
      {"hypgeom(1,1,1,1E20)", "Warning! You should check the accuracy"},
      {"gammai(170.5,1)", kTooLarge},
      {"gammai(1,700.5)", kTooLarge},
      {"gamma(0)", "Evaluation error < gamma(0) >"},
      {"gamma(-3)", "Evaluation error < gamma(-3) >"},
      {"gamma(172)", "Evaluation error < gamma(172) >"},
      {"gammaln(-0.5)", "Evaluation error < gammaln(-0.5) >"},
      {"1+digamma(-2)", "Evaluation error < digamma(-2) >"},
      {"beta(-1,2.5)", "Evaluation error < beta(-1;2.5) >"},
      {"zeta(1)", "Evaluation error < zeta(1) >"},
      {"elli1(90,1)", "Evaluation error < elli1(90;1) >"},
      {"elli2(90,1.5)", "Evaluation error < elli2(90;1.5) >"},
      {"bessely(0,1)", "Evaluation error < bessely(0;1) >"},
      {"besselj(1,0.5)", "Evaluation error < besselj(1;0.5) >"},
      {"hypgeom(0.5,1,1,-2)", "Evaluation error < hypgeom(0.5;1;1;-2) >"},
      {"wtri(1,0)", "Evaluation error < wtri(1;0) >"},
      {"wsteps(1,1,1.5)", "Evaluation error < wsteps(1;1;1.5) >"},
  };
  for (const Case& tried : cases) {
    SCOPED_TRACE(tried.text);
    MathParser parser;
    ASSERT_TRUE(parser.StoreExpression(tried.text)) << parser.ErrorDescription();
    try {
      ADD_FAILURE() << parser.Eval();
    } catch (const EvaluationError& error) {
      EXPECT_TRUE(std::string_view(error.what()).starts_with(tried.message)) << error.what();
    }
  }
}

// What the value of a keyword can be; the infinities stand for no bound.
std::array<double, 2> BoundsOf(const FunctionEntry& entry) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr std::array kProbabilities = {78, 79, 94, 202, 203, 204, 206};
  if (std::ranges::count(kProbabilities, entry.code) > 0) return {0.0, 1.0};
  const bool isWave = entry.keyword.front() == 'w' && entry.keyword != "wam";
  return isWave ? std::array{-1.0, 1.0} : std::array{-kInfinity, kInfinity};
}

// Every keyword at every combination of hostile numbers: back soon (or the test times out), and
// where there is a value, one that the function can have.
TEST(SpecialFunctions, EndForAnyNumbers) {
  constexpr double kMost = std::numeric_limits<double>::max();
  constexpr std::array kHostile = {0.0,   5e-324, 1e-300, 1e-9, 0.5,  1.0,    2.0,
                                   60.25, 999.5,  1e5,    1e9,  1e17, kMost,  -1e300,
                                   -1e9,  -1e5,   -99.5,  -0.5, -1.0, 25000.0};
  for (const FunctionFamily family :
       {GammaFunctions(), ErrorFunctions(), IncompleteGammaFunctions(), IncompleteBetaFunctions(),
        DistributionFunctions(), BesselFunctions(), ModifiedBesselFunctions(), AiryFunctions(),
        EllipticFunctions(), ExponentialIntegralFunctions(), SineIntegralFunctions(),
        FresnelFunctions(), ZetaFunctions(), PolynomialFunctions(), HypergeometricFunctions(),
        WaveformFunctions()}) {
    for (const FunctionEntry& entry : family) {
      EXPECT_EQ(StandardCatalogue().Find(entry.keyword), &entry);
      const auto [least, most] = BoundsOf(entry);
      const std::size_t combinations = [&] {
        std::size_t product = 1;
        for (int i = 0; i < entry.arguments; ++i) product *= kHostile.size();
        return product;
      }();
      // A step of 7 keeps four arguments short and still meets every number in every place.
      for (std::size_t at = 0; at < combinations; at += entry.arguments == 4 ? 7 : 1) {
        std::array<double, 4> arguments{};
        for (std::size_t i = 0, rest = at; i < 4; ++i, rest /= kHostile.size()) {
          arguments[i] = kHostile[rest % kHostile.size()];
        }
        CallContext context;
        const double value = entry.kernel(arguments.data(), context);
        EXPECT_FALSE(value < least || value > most)
            << entry.keyword << ' ' << value << " at " << at;
      }
    }
  }
}

}  // namespace
}  // namespace zentab::mathparser
