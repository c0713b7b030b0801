#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

#include "curves/assessment.h"
#include "curves/fit.h"
#include "curves/least_squares.h"
#include "curves/polyline_choice.h"
#include "curves/sampling.h"
#include "curves/thinning.h"
#include "support/cases.h"
#include "texts/number_text.h"

namespace zentab::curves {
namespace {

using std::string;
using test::Cases;

double Number(const string& text) { return std::strtod(text.c_str(), nullptr); }

template <class T>
const T& Good(const Outcome<T>& outcome) {
  const Fault* const fault = FaultOf(outcome);
  EXPECT_EQ(fault, nullptr) << FaultText(fault != nullptr ? *fault : Fault{}, {}, ".");
  return std::get<T>(outcome);
}

template <class T>
void ExpectFault(const Outcome<T>& outcome, const string& beginning) {
  const Fault* const fault = FaultOf(outcome);
  ASSERT_NE(fault, nullptr) << beginning;
  EXPECT_EQ(FaultText(*fault, {}, ".").substr(0, beginning.size()), beginning);
}

// id, multiplier, and three constants as the family has them.
Characteristic SettingsOf(const std::vector<string>& row) {
  Characteristic settings;
  settings.family = FamilyOf(row[0]).value();
  settings.multiplier = Number(row[1]);
  const double constants[] = {Number(row[2]), Number(row[3]), Number(row[4])};
  if (settings.family == Family::Thermal) {
    settings.tau = constants[0];
    settings.previous = settings.tau > 1 ? constants[1] : 0;
    settings.factor = settings.tau > 1 ? constants[2] : 1;
  } else {
    settings.constants = {constants[0], constants[1], constants[2]};
    settings.seconds = constants[0] > 0 ? constants[0] : 1;
  }
  return settings;
}

CharacteristicCurve CurveOf(Family family, double multiplier = 1.0) {
  Characteristic settings;
  settings.family = family;
  settings.multiplier = multiplier;
  return Good(CharacteristicCurve::Of(settings));
}

std::vector<Point> PointsOf(const string& text) {
  std::vector<Point> points;
  std::istringstream stream(text);
  for (string pair; stream >> pair;) {
    points.push_back({Number(pair), Number(pair.substr(pair.find(',') + 1))});
  }
  return points;
}

TEST(Characteristics, AreThoseOfDecimalArithmetic) {
  for (const auto& row : Cases("characteristics.txt", "times")) {
    const double time = Good(Good(CharacteristicCurve::Of(SettingsOf(row))).TimeAt(Number(row[5])));
    const double expected = Number(row[6]);
    EXPECT_LE(std::abs(time - expected), 1e-12 * expected) << row[0] << " at " << row[5];
  }
  for (const auto& row : Cases("curves.txt", "printed")) {
    const CharacteristicCurve curve = CurveOf(FamilyOf(row[0]).value());
    EXPECT_NEAR(Good(curve.TimeAt(Number(row[1]))), Number(row[2]), Number(row[3])) << row[0];
  }
}

TEST(Characteristics, SayWhyThereIsNoTime) {
  for (const auto& row : Cases("curves.txt", "no time")) {
    const auto curve = CharacteristicCurve::Of(SettingsOf(row));
    if (FaultOf(curve) != nullptr) {
      ExpectFault(curve, row[6]);
    } else {
      ExpectFault(Good(curve).TimeAt(Number(row[5])), row[6]);
    }
  }
  for (const auto& row : Cases("curves.txt", "equations")) {
    Characteristic settings;
    settings.family = Family::Equation;
    settings.equation = row[0];
    settings.pickup = 5;
    settings.multiplier = 2;
    const auto curve = CharacteristicCurve::Of(settings);
    if (const double value = Number(row[1]); value > 0) {
      EXPECT_NEAR(Good(Good(curve).TimeAt(3)), value, 1e-3) << row[0];
    } else if (FaultOf(curve) != nullptr) {
      ExpectFault(curve, row[1]);
    } else {
      ExpectFault(Good(curve).TimeAt(3), row[1]);
    }
  }
}

TEST(Characteristics, AreBuiltAsRelaysAre) {
  Characteristic settings;
  settings.absoluteLoads = true;
  settings.pickup = 2;
  settings.minimumTime = 3;
  settings.maximumTime = 20;
  settings.step = DefiniteStep{10, 0.05};
  settings.start = 1.2;
  const CharacteristicCurve curve = Good(CharacteristicCurve::Of(settings));
  const double at[][2] = {{2.4, 0}, {2.41, 20}, {10, 4.2797}, {19.9, 3}, {20, 0.05}, {100, 0.05}};
  for (const auto& [load, time] : at) EXPECT_NEAR(curve.Time(load).value_or(0), time, 1e-4) << load;
  // The step costs the lines one line, and no other one shows it.
  const ChosenPoints best = Good(Sample(curve, {3, 40, 26, Spacing::Best}));
  EXPECT_NEAR(best.deviation, 0.000773643999669, 1e-12);
  EXPECT_TRUE(
      std::ranges::any_of(best.points, [](const Point& point) { return point.load == 20; }));
  settings.family = Family::Undervoltage;
  settings.step = DefiniteStep{0.5, 0.05};
  const CharacteristicCurve below = Good(CharacteristicCurve::Of(settings));
  EXPECT_EQ(below.Time(1.0), 0.05);
  EXPECT_EQ(below.Time(1.7), std::nullopt);
  const ChosenPoints bestBelow = Good(Sample(below, {0.0, 1.6, 26, Spacing::Best}));
  EXPECT_NEAR(bestBelow.deviation, 0.000205292583230, 1e-12);
}

TEST(Tables, AreStraightBetweenTheirPoints) {
  for (const auto& row : Cases("curves.txt", "points")) {
    ExpectFault(TableCurve::Of(PointsOf(row[0]), Axes::Chart), row[1]);
  }
  ExpectFault(TableCurve::Of(PointsOf("0,2 1,1"), Axes::Logarithmic), "The load 0 has no place");
  for (const auto& row : Cases("curves.txt", "lines")) {
    const Axes axes = row[1] == "linear" ? Axes::Linear : Axes::Chart;
    const auto time = Good(TableCurve::Of(PointsOf(row[0]), axes)).Time(Number(row[2]));
    EXPECT_EQ(time.has_value(), row[3] != "-") << row[0] << " at " << row[2];
    EXPECT_NEAR(time.value_or(0.0), Number(row[3]), 1e-9) << row[0] << " at " << row[2];
  }
  for (const auto& row : Cases("curves.txt", "margins")) {
    const TableCurve first = Good(TableCurve::Of(PointsOf(row[0]), Axes::Chart));
    const TableCurve second = Good(TableCurve::Of(PointsOf(row[1]), Axes::Chart));
    if (row[2] == "-") {
      ExpectFault(SmallestMargin(first, second), "The two curves");
      ExpectFault(Difference(first, second), "The two curves");
      continue;
    }
    const Point margin = Good(SmallestMargin(first, second));
    EXPECT_NEAR(margin.load, Number(row[2]), 1e-9) << row[0] << " and " << row[1];
    EXPECT_NEAR(margin.time, Number(row[3]), 1e-9) << row[0] << " and " << row[1];
    EXPECT_LE(margin.time, std::abs(Good(Difference(first, second)).front().time));
  }
}

// The least deviation that any choice of `count` points has, by trying all.
double LeastDeviation(const TableCurve& curve, std::size_t count,
                      const std::vector<Point>& chosen = {}, std::size_t next = 0) {
  const std::vector<Point>& points = curve.Points();
  double least = INFINITY;
  for (std::size_t at = next; at < points.size() && (next > 0 || at == 0); ++at) {
    std::vector<Point> more = chosen;
    more.push_back(points[at]);
    if (at + 1 == points.size() && more.size() >= 2) {
      const Axes axes = curve.IsLogarithmic() ? Axes::Logarithmic : Axes::Linear;
      least = std::min(least, LargestDeviation(Good(TableCurve::Of(more, axes)), points));
    } else if (more.size() < count) {
      least = std::min(least, LeastDeviation(curve, count, more, at + 1));
    }
  }
  return least;
}

TEST(Choosing, ThinsAsWellAsTryingAll) {
  std::mt19937 random(7);
  std::normal_distribution<double> noise(0.0, 0.05);
  for (const Axes axes : {Axes::Logarithmic, Axes::Linear}) {
    for (int trial = 0; trial < 12; ++trial) {
      std::vector<Point> points;
      for (int i = 0; i < 11; ++i) {
        const double load = 1.1 + 0.5 * i + 0.1 * (trial % 3);
        points.push_back({load, *CurveOf(Family::IecA).Time(load) * std::exp(noise(random))});
      }
      const TableCurve curve = Good(TableCurve::Of(points, axes));
      for (const std::size_t count : {2u, 4u, 7u}) {
        const ChosenPoints thinned = Thin(curve, count);
        EXPECT_LE(thinned.points.size(), count);
        EXPECT_LE(thinned.deviation, 1.01 * LeastDeviation(curve, count));
        EXPECT_NEAR(LargestDeviation(Good(TableCurve::Of(thinned.points, axes)), points),
                    thinned.deviation, 1e-12);
      }
    }
  }
  // Where fewer would do, the rest is spread; more than there are stay what they are.
  const TableCurve flat = Good(TableCurve::Of(PointsOf("1,5 2,5 3,5 4,5 5,5 6,5"), Axes::Chart));
  EXPECT_EQ(Thin(flat, 4).points.size(), 4u);
  EXPECT_EQ(Thin(flat, 26).points.size(), 6u);
  const string bent = "1,9 2,5 3,5 4,5 5,5 6,5 7,5 8,5";
  EXPECT_EQ(Thin(Good(TableCurve::Of(PointsOf(bent), Axes::Linear)), 4).points,
            PointsOf("1,9 2,5 5,5 8,5"));
}

TEST(Choosing, KeepsToThePlacesBetweenItsCorners) {
  std::mt19937 random(11);
  std::normal_distribution<double> noise(0.0, 0.1);
  const std::vector<std::size_t> corners = {0, 3, 6, 9, 12};
  for (int trial = 0; trial < 20; ++trial) {
    Places places{{}, {}, trial % 2 == 0};
    for (int i = 0; i <= 12; ++i) {
      places.x.push_back(i);
      places.y.push_back(30.0 - i + noise(random));
    }
    for (const std::size_t count : {2u, 3u, 4u}) {
      double least = INFINITY;
      for (unsigned inner = 0; inner < 16; inner += 2) {
        std::vector<std::size_t> some = {0};
        for (std::size_t at = 1; at <= 3; ++at) {
          if ((inner >> at & 1U) != 0) some.push_back(corners[at]);
        }
        some.push_back(12);
        if (some.size() <= count) least = std::min(least, DeviationOf(places, some));
      }
      const double found = DeviationOf(places, ChoosePolyline(places, corners, count));
      EXPECT_LE(found, 1.0002 * least) << trial << ", " << count;
    }
  }
}

TEST(Choosing, ThinsALongSeriesIntoTheMiddleOfItsScatter) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> noise(-0.01, 0.01);
  std::vector<Point> points;
  const CharacteristicCurve curve = CurveOf(Family::IecA);
  for (int i = 0; i < 40'000; ++i) {
    const double load = 1.05 + i * 4.7e-4;
    points.push_back({load, *curve.Time(load) * (1.0 + noise(random))});
  }
  const ChosenPoints thinned = Thin(Good(TableCurve::Of(points, Axes::Chart)), 26);
  EXPECT_EQ(thinned.points.size(), 26u);
  EXPECT_NEAR(thinned.deviation, 0.012030045201, 1e-12);
}

TEST(Choosing, FindsTheBestLoads) {
  const std::tuple<Family, double, double> corners[] = {{Family::IecA, 1.2122, 2.1368},
                                                        {Family::IeeeExtremely, 1.2677, 3.43},
                                                        {Family::Thermal, 1.2163, 1.9506}};
  for (const auto& [family, second, third] : corners) {
    const CharacteristicCurve curve = CurveOf(family);
    const ChosenPoints best = Good(Sample(curve, {1.05, 20, 4, Spacing::Best}));
    ASSERT_EQ(best.points.size(), 4u);
    // No other loads between the ends do better.
    const auto load = [](int i) { return 1.05 * std::pow(20 / 1.05, std::pow(i / 16.0, 2)); };
    for (int i = 1; i < 16; ++i) {
      for (int j = i + 1; j < 16; ++j) {
        const double loads[] = {1.05, load(i), load(j), 20};
        const ChosenPoints tried = Good(SampleAt(curve, loads));
        EXPECT_LE(best.deviation, 1.01 * DeviationOfLines(curve, tried.points, true)) << i << j;
      }
    }
    EXPECT_DOUBLE_EQ(best.points[1].load, second) << RowOf(family).id;
    EXPECT_DOUBLE_EQ(best.points[2].load, third) << RowOf(family).id;
  }
  EXPECT_EQ(Good(Sample(CurveOf(Family::Definite), {1.05, 20, 26, Spacing::Best})).points.size(),
            26u);
  const std::pair<Spacing, double> deviations[] = {{Spacing::Logarithmic, 0.202796971350},
                                                   {Spacing::Linear, 1.048341546125},
                                                   {Spacing::Best, 0.003149132870}};
  for (const auto& [spacing, deviation] : deviations) {
    const ChosenPoints sampled = Good(Sample(CurveOf(Family::IecB), {1.05, 20, 26, spacing}));
    EXPECT_EQ(sampled.points.front().load, 1.05);
    EXPECT_EQ(sampled.points.back().load, 20);
    EXPECT_NEAR(sampled.deviation, deviation, 1e-12);
    ExpectFault(Sample(CurveOf(Family::IecB), {0.9, 20, 26, spacing}), "The load 0.9 is at or");
    ExpectFault(Sample(CurveOf(Family::IecB), {2, 2, 26, spacing}), "The range of loads");
    ExpectFault(Sample(CurveOf(Family::IecB), {2, 3, 27, spacing}), "A table has 2 to 26");
  }
}

// What a fit says of one parameter.
FittedValue ValueOf(const FamilyFit& fit, FitParameter parameter) {
  for (const FittedValue& value : fit.values) {
    if (value.parameter == parameter) return value;
  }
  ADD_FAILURE() << "no such parameter";
  return {};
}

std::vector<Point> Measured(Family family, double pickup, double noise, unsigned seed) {
  Characteristic settings;
  settings.family = family;
  settings.multiplier = 0.3;
  settings.constants = family == Family::Own ? Constants{6.0, 1.4, 0.2} : RowOf(family).constants;
  settings.pickup = pickup;
  settings.absoluteLoads = true;
  const CharacteristicCurve curve = Good(CharacteristicCurve::Of(settings));
  ChosenPoints sampled = Good(Sample(curve, UsualSampling(settings)));
  std::mt19937 random(seed);
  std::normal_distribution<double> error(0.0, 1.0);
  for (Point& point : sampled.points) point.time *= 1.0 + noise * error(random);
  return sampled.points;
}

TEST(Fitting, FindsTheParametersOfCleanPoints) {
  for (const FamilyRow& row : Families()) {
    if (row.form == Form::Free) continue;
    const std::vector<Point> points = Measured(row.family, 1.0, 0.0, 0);
    const FitResult result = Fit(points, {}, {{row.family}});
    ASSERT_EQ(result.fits.size(), 1u) << row.id;
    const FamilyFit& fit = result.fits[0];
    EXPECT_LT(fit.largest, 1e-9) << row.id;
    if (row.family == Family::Own) {
      EXPECT_NEAR(fit.characteristic.constants.k, 0.3 * 6.0, 2e-6);
      EXPECT_NEAR(fit.characteristic.constants.alpha, 1.4, 1e-6);
      EXPECT_NEAR(fit.characteristic.constants.c, 0.3 * 0.2, 1e-6);
    } else {
      EXPECT_NEAR(fit.characteristic.multiplier, 0.3, 3e-7) << row.id;
    }
  }
  for (const Family family : {Family::IecA, Family::IecC, Family::IeeeVery, Family::Ri}) {
    FitOptions options = {{family}};
    options.pickup = std::nullopt;
    options.pickupFree = true;
    const FitResult result = Fit(Measured(family, 4.0, 0.0, 0), {}, options);
    EXPECT_NEAR(result.fits.at(0).characteristic.pickup, 4.0, 4e-6) << RowOf(family).id;
    EXPECT_NEAR(result.fits.at(0).characteristic.multiplier, 0.3, 3e-7) << RowOf(family).id;
  }
  const FitResult all = Fit(Measured(Family::IeeeVery, 1.0, 0.0, 0), {}, {});
  EXPECT_EQ(all.fits.at(0).characteristic.family, Family::IeeeVery);
}

TEST(Fitting, StatesHowFarOffItMayBe) {
  FitOptions pickupFree = {{Family::IecB}};
  pickupFree.pickupFree = true;
  for (unsigned seed = 1; seed <= 200; ++seed) {
    const auto expect = [&](const FamilyFit& fit, FitParameter parameter, double expected,
                            double uncertainty) {
      const FittedValue value = ValueOf(fit, parameter);
      EXPECT_NEAR(value.value, expected, value.uncertainty.value_or(0.0)) << "seed " << seed;
      EXPECT_LT(value.uncertainty.value_or(1e9), 0.5) << "seed " << seed;
      EXPECT_TRUE(seed > 1 || std::abs(*value.uncertainty - uncertainty) < 1e-8);
    };
    const FitResult result = Fit(Measured(Family::IecB, 1.0, 0.01, seed), {}, pickupFree);
    expect(result.fits.at(0), FitParameter::Multiplier, 0.3, 0.00416192);
    expect(result.fits.at(0), FitParameter::Pickup, 1.0, 0.00303062);
    const FitResult own = Fit(Measured(Family::Own, 1.0, 0.01, seed), {}, {{Family::Own}});
    expect(own.fits.at(0), FitParameter::K, 1.8, 0.12242912);
    expect(own.fits.at(0), FitParameter::Alpha, 1.4, 0.05994669);
    expect(own.fits.at(0), FitParameter::C, 0.06, 0.00553743);
  }
}

TEST(Fitting, SaysWhatThePointsLeaveOpen) {
  FitOptions options = {{Family::Definite, Family::I2t, Family::Own, Family::Equation}};
  options.pickupFree = true;
  const FitResult result = Fit(PointsOf("2,1 3,1 4,1 5,1"), {}, options);
  ASSERT_EQ(result.fits.size(), 3u);
  EXPECT_EQ(result.fits[0].characteristic.family, Family::Definite);
  EXPECT_FALSE(ValueOf(result.fits[0], FitParameter::Pickup).isDetermined);
  for (const FamilyFit& fit : result.fits) {
    if (fit.characteristic.family != Family::Own) continue;
    EXPECT_FALSE(ValueOf(fit, FitParameter::Alpha).isDetermined);
  }
  EXPECT_EQ(result.failed.at(0).second.kind, FaultKind::CannotBeFitted);
  const auto fault = [](const string& points, const std::vector<std::size_t>& excluded = {}) {
    return Fit(PointsOf(points), excluded, {{Family::IecA}}).failed.at(0).second;
  };
  EXPECT_EQ(fault("2,1 1,1").kind, FaultKind::AtOrBelowPickup);
  EXPECT_EQ(fault("2,1").kind, FaultKind::TooFewPoints);
  EXPECT_EQ(fault("2,1 3,1", {0}).kind, FaultKind::TooFewPoints);
  const FitResult own = Fit(PointsOf("2,10 3,5 2,10 3,5"), {}, {{Family::Own}});
  EXPECT_EQ(own.failed.at(0).second, (Fault{FaultKind::TooFewPoints, 3}));
  EXPECT_EQ(fault("2,1 3,1 4,0", {0}), (Fault{FaultKind::BadTime, 3}));
  const std::size_t second = 1;
  const FitResult without = Fit(PointsOf("2,10 9,99 5,4.2"), {&second, 1}, {{Family::IecA}});
  EXPECT_LT(without.fits.at(0).largest, 0.02);
}

TEST(Fitting, FindsTheLeastPlaceBetweenThoseOfTheScan) {
  const auto valley = [](double z) { return (z - 0.3) * (z - 0.3); };
  EXPECT_NEAR(LeastPlace(valley, -1.0, 2.0), 0.3, 1e-7);
  EXPECT_EQ(LeastPlace(valley, 1.0, 2.0), 1.0);
}

TEST(Assessing, HoldsPointsAgainstLimits) {
  const Reference reference = ReferenceOf(CurveOf(Family::IecB));
  for (const auto& row : Cases("curves.txt", "limits")) {
    Limits limits;
    limits.percent = Number(row[0]);
    limits.milliseconds = Number(row[1]);
    limits.assignedError = Number(row[2]);
    limits.loadPercent = Number(row[3]);
    const Point measured = {Number(row[4]), Number(row[5])};
    const Assessment assessment = Good(Assess({&measured, 1}, reference, limits));
    EXPECT_EQ(assessment.points[0].measured, measured);
    EXPECT_NEAR(assessment.points[0].limit * 1000, Number(row[6]), 0.01) << measured.load;
    const Verdict verdict = assessment.points[0].verdict;
    EXPECT_EQ(verdict == Verdict::Passed   ? "passed"
              : verdict == Verdict::Failed ? "failed"
                                           : "outside",
              row[7])
        << measured.load;
    EXPECT_EQ(assessment.IsPassed(), row[7] == "passed");
  }
  const Point point = {2, 1};
  const std::pair<Limits, string> refused[] = {{{-1}, "percent"},
                                               {{0, -1}, "ms"},
                                               {{0, 0, -1}, "class"},
                                               {{0, 0, 0, {}, -1}, "load percent"},
                                               {{0, 0, 0, {{2, -1}}}, "factor"}};
  for (const auto& [limits, name] : refused) {
    ExpectFault(Assess({&point, 1}, reference, limits), "The value of " + name);
  }
  ExpectFault(Assess({}, reference, {}), "At least one");
  ExpectFault(Assess({&point, 1}, {reference.time, 0}, {}), "The value of pickup");
  ExpectFault(Assess({&point, 1}, {reference.time, std::nullopt}, {0, 0, 5}), "Absolute loads");
  EXPECT_NEAR(Good(Assess({&point, 1}, reference, {0, 0, 5, {}})).points[0].limit, 0.675, 1e-9);
}

}  // namespace
}  // namespace zentab::curves
