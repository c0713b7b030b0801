#include "curves/fit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

#include "curves/least_squares.h"

namespace zentab::curves {
namespace {

constexpr double kLowestAlpha = 1e-3;
constexpr double kHighestAlpha = 12.0;
// The pickup value is sought where the nearest load lies this far from it, as a ratio of it.
constexpr double kNearest = 1e-6;
constexpr double kFarthest = 1e3;
constexpr double kSame = 1e-10;  // root mean squares that rounding alone tells apart
constexpr double kAtBound = 1e-5;

double MultipleOf(const Characteristic& settings, double load) { return load / settings.pickup; }

// The formula without minimum, maximum and step; NaN where the relay does not operate.
double ModelTime(const Characteristic& settings, double load) {
  const double multiple = MultipleOf(settings, load);
  return Operates(settings, multiple) ? FormulaTime(settings, multiple)
                                      : std::numeric_limits<double>::quiet_NaN();
}

// T in closed form: with u = g / t for T = 1, the sum of (T u - 1)^2 is least at this T.
double BestMultiplier(Characteristic settings, std::span<const Point> points) {
  settings.multiplier = 1.0;
  double sum = 0.0;
  double squares = 0.0;
  for (const Point& point : points) {
    const double ratio = ModelTime(settings, point.load) / point.time;
    sum += ratio;
    squares += ratio * ratio;
  }
  return sum / squares;
}

// k / (M^alpha - 1) + c as q alpha / (M^alpha - 1) + c, where q = k / alpha stays what it is
// while alpha goes to 0.
double OwnTime(double q, double alpha, double c, double multiple) {
  return q * alpha / std::expm1(alpha * std::log(multiple)) + c;
}

struct Line {
  double q;
  double c;
};

// q and c in closed form for an alpha, the mean taken off the first so that few digits are lost.
Line BestLine(double alpha, double pickup, std::span<const Point> points) {
  double ww = 0.0;
  double wh = 0.0;
  double w1 = 0.0;
  for (const Point& point : points) {
    const double weight = 1.0 / (point.time * point.time);
    ww += weight;
    wh += weight * OwnTime(1.0, alpha, 0.0, point.load / pickup);
    w1 += weight * point.time;
  }
  const double meanShape = wh / ww;
  const double meanTime = w1 / ww;
  double squares = 0.0;
  double products = 0.0;
  for (const Point& point : points) {
    const double weight = 1.0 / (point.time * point.time);
    const double shape = OwnTime(1.0, alpha, 0.0, point.load / pickup) - meanShape;
    squares += weight * shape * shape;
    products += weight * shape * (point.time - meanTime);
  }
  const double q = squares > 0.0 ? products / squares : 0.0;
  return {q, meanTime - q * meanShape};
}

struct Errors {
  double squares;
  double largest;
};

Errors ErrorsOf(const Characteristic& settings, std::span<const Point> points) {
  Errors errors{0.0, 0.0};
  for (const Point& point : points) {
    const double error = std::abs(ModelTime(settings, point.load) - point.time) / point.time;
    errors.squares += error * error;
    errors.largest = std::max(errors.largest, error);
  }
  return errors;
}

std::size_t DistinctLoads(std::span<const Point> points) {
  std::vector<double> loads;
  for (const Point& point : points) loads.push_back(point.load);
  std::ranges::sort(loads);
  return static_cast<std::size_t>(std::unique(loads.begin(), loads.end()) - loads.begin());
}

// Fits one family.
class FamilyFitter {
 public:
  FamilyFitter(std::span<const Point> points, Family family, const FitOptions& options)
      : points_(points), options_(options) {
    settings_.family = family;
    settings_.constants = RowOf(family).constants;
    settings_.absoluteLoads = true;
    settings_.pickup = options.pickup.value_or(1.0);
  }

  Outcome<FamilyFit> Run() {
    const Form form = RowOf(settings_.family).form;
    if (form == Form::Free) {
      return Fault{FaultKind::CannotBeFitted, 0.0, std::string(RowOf(settings_.family).id)};
    }
    // Square and constant look the same from every pickup value.
    const bool seeksPickup = options_.pickupFree && form != Form::Square &&
                             form != Form::Constant && settings_.family != Family::Own;
    if (!seeksPickup && !options_.pickup) return Fault{FaultKind::PickupNeeded};
    if (!seeksPickup) {
      for (const Point& point : points_) {
        if (!Operates(settings_, MultipleOf(settings_, point.load))) return Outside(point.load);
      }
    }
    if (settings_.family == Family::Own) return FitOwn();
    return seeksPickup ? FitWithPickup() : FitMultiplier();
  }

 private:
  [[nodiscard]] Fault Outside(double load) const {
    return {TripsBelow(settings_.family) ? FaultKind::AtOrAbovePickup : FaultKind::AtOrBelowPickup,
            load};
  }

  Outcome<FamilyFit> FitMultiplier() {
    settings_.multiplier = BestMultiplier(settings_, points_);
    const auto time = [settings = settings_](const Parameters& p, double load) {
      Characteristic moved = settings;
      moved.multiplier = p[0];
      return ModelTime(moved, load);
    };
    const Parameters found = {settings_.multiplier};
    FamilyFit fit = Finished({time, 1, found}, found, {FitParameter::Multiplier});
    // One point is enough for it, however badly the others fit.
    fit.values[0].isDetermined = true;
    if (options_.pickupFree) {
      fit.values.push_back({FitParameter::Pickup, settings_.pickup, std::nullopt, false});
    }
    return fit;
  }

  // The pickup value whose distance to the nearest load is e^z of it.
  [[nodiscard]] double PickupAt(double z) const {
    const auto [least, greatest] = std::ranges::minmax(points_, {}, &Point::load);
    return TripsBelow(settings_.family) ? greatest.load * (1.0 + std::exp(z))
                                        : least.load / (1.0 + std::exp(z));
  }

  Outcome<FamilyFit> FitWithPickup() {
    const std::size_t needed = 2;
    if (DistinctLoads(points_) < needed) {
      return Fault{FaultKind::TooFewPoints, static_cast<double>(needed)};
    }
    if (std::ranges::any_of(points_, [](const Point& point) { return point.load <= 0.0; })) {
      return Outside(0.0);
    }
    const auto sumAt = [this](double z) {
      settings_.pickup = PickupAt(z);
      settings_.multiplier = BestMultiplier(settings_, points_);
      const double sum = ErrorsOf(settings_, points_).squares;
      return std::isfinite(sum) ? sum : std::numeric_limits<double>::max();
    };
    const double from = std::log(kNearest);
    const double to = std::log(kFarthest);
    const double z = LeastPlace(sumAt, from, to);
    settings_.pickup = PickupAt(z);
    settings_.multiplier = BestMultiplier(settings_, points_);
    const auto time = [settings = settings_](const Parameters& p, double load) {
      Characteristic moved = settings;
      moved.multiplier = p[0];
      moved.pickup = p[1];
      return ModelTime(moved, load);
    };
    // Near the pickup value a step must not go beyond the nearest load.
    const double nearest = settings_.pickup * std::min(1.0, std::exp(z));
    const ModelOf model = {time, 2, {settings_.multiplier, nearest}};
    const Parameters found = Polished(model, {settings_.multiplier, settings_.pickup}, points_);
    settings_.multiplier = found[0];
    settings_.pickup = found[1];
    FamilyFit fit = Finished(model, found, {FitParameter::Multiplier, FitParameter::Pickup});
    if (z < from + kAtBound || z > to - kAtBound) LeaveOpen(fit);
    return fit;
  }

  Outcome<FamilyFit> FitOwn() {
    const std::size_t needed = 3;
    if (DistinctLoads(points_) < needed) {
      return Fault{FaultKind::TooFewPoints, static_cast<double>(needed)};
    }
    const double pickup = settings_.pickup;
    const auto sumAt = [&](double z) {
      const double alpha = std::exp(z);
      const auto [q, c] = BestLine(alpha, pickup, points_);
      double sum = 0.0;
      for (const Point& point : points_) {
        const double error = (OwnTime(q, alpha, c, point.load / pickup) - point.time) / point.time;
        sum += error * error;
      }
      return std::isfinite(sum) ? sum : std::numeric_limits<double>::max();
    };
    const double from = std::log(kLowestAlpha);
    const double to = std::log(kHighestAlpha);
    const double z = LeastPlace(sumAt, from, to);
    const auto [q, c] = BestLine(std::exp(z), pickup, points_);
    const auto time = [pickup](const Parameters& p, double load) {
      return OwnTime(p[0], p[1], p[2], load / pickup);
    };
    const double longest = std::ranges::max(points_, {}, &Point::time).time;
    const ModelOf model = {time, 3, {std::max(std::abs(q), kNearest), std::exp(z), longest}};
    Parameters found = Polished(model, {q, std::exp(z), c}, points_);
    if (!(found[1] > 0.0)) found = {q, std::exp(z), c};
    settings_.constants = {found[0] * found[1], found[1], found[2]};
    FamilyFit fit = FinishedOwn(model, found, longest);
    if (z < from + kAtBound || z > to - kAtBound || !fit.values[1].isDetermined) LeaveOpen(fit);
    return fit;
  }

  static void LeaveOpen(FamilyFit& fit) {
    for (FittedValue& value : fit.values) {
      value.uncertainty.reset();
      value.isDetermined = false;
    }
  }

  // The variance of a relative error, as the points show it; nothing where none is left to show it.
  [[nodiscard]] std::optional<double> Expansion(const Errors& errors, std::size_t count) const {
    if (points_.size() <= count) return std::nullopt;
    const std::size_t freedom = points_.size() - count;
    return CoverageFactor(freedom) * std::sqrt(errors.squares / static_cast<double>(freedom));
  }

  [[nodiscard]] FamilyFit WithErrors(const Errors& errors) const {
    FamilyFit fit;
    fit.characteristic = settings_;
    const double mean = errors.squares / static_cast<double>(points_.size());
    fit.rootMeanSquare = WithoutRounding(std::sqrt(mean));
    fit.largest = WithoutRounding(errors.largest);
    return fit;
  }

  [[nodiscard]] FamilyFit Finished(const ModelOf& model, const Parameters& found,
                                   const std::vector<FitParameter>& parameters) const {
    const Errors errors = ErrorsOf(settings_, points_);
    FamilyFit fit = WithErrors(errors);
    const auto inverse = InverseNormal(model, found, points_);
    const auto expansion = Expansion(errors, model.count);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      FittedValue value = {parameters[i], found[i], std::nullopt, false};
      if (inverse && expansion) {
        value.uncertainty = *expansion * std::sqrt((*inverse)[i][i]);
        value.isDetermined = *value.uncertainty < std::abs(value.value);
      }
      fit.values.push_back(value);
    }
    return fit;
  }

  [[nodiscard]] FamilyFit FinishedOwn(const ModelOf& model, const Parameters& found,
                                      double longest) const {
    const Errors errors = ErrorsOf(settings_, points_);
    FamilyFit fit = WithErrors(errors);
    const auto& [k, alpha, c] = settings_.constants;
    fit.values = {{FitParameter::K, k}, {FitParameter::Alpha, alpha}, {FitParameter::C, c}};
    const auto inverse = InverseNormal(model, found, points_);
    const auto expansion = Expansion(errors, model.count);
    if (!inverse || !expansion) return fit;
    const Covariance& v = *inverse;
    // k is q alpha.
    const double q = found[0];
    const double ofK = alpha * alpha * v[0][0] + 2.0 * q * alpha * v[0][1] + q * q * v[1][1];
    const double variances[] = {ofK, v[1][1], v[2][2]};
    // Beyond half of alpha its influence is no straight line any more.
    const double scales[] = {std::abs(k), alpha / 2.0, longest};
    for (std::size_t i = 0; i < fit.values.size(); ++i) {
      fit.values[i].uncertainty = *expansion * std::sqrt(std::max(0.0, variances[i]));
      fit.values[i].isDetermined = *fit.values[i].uncertainty < scales[i];
    }
    return fit;
  }

  std::span<const Point> points_;
  const FitOptions& options_;
  Characteristic settings_;
};

std::vector<Family> FamiliesFor(const FitOptions& options) {
  if (!options.families.empty()) return options.families;
  std::vector<Family> families;
  for (const FamilyRow& row : Families()) {
    const bool isOfKind = options.instrument == tables::Instrument::None ||
                          options.instrument == tables::Instrument::Third ||
                          row.instrument == tables::Instrument::None ||
                          row.instrument == options.instrument;
    if (row.form != Form::Free && isOfKind) families.push_back(row.family);
  }
  return families;
}

bool IsBetter(const FamilyFit& one, const FamilyFit& other) {
  const auto grade = [](double error) { return std::floor(error / kSame); };
  const auto key = [&](const FamilyFit& fit) {
    return std::tuple(grade(fit.rootMeanSquare), grade(fit.largest), fit.characteristic.family);
  };
  return key(one) < key(other);
}

}  // namespace

FitResult Fit(std::span<const Point> points, std::span<const std::size_t> excluded,
              const FitOptions& options) {
  std::vector<Point> used;
  std::vector<std::size_t> places;
  for (std::size_t at = 0; at < points.size(); ++at) {
    if (std::ranges::find(excluded, at) != excluded.end()) continue;
    used.push_back(points[at]);
    places.push_back(at);
  }
  FitResult result;
  std::optional<Fault> fault = FaultOfPoints(used, 2);
  if (fault && fault->kind != FaultKind::TooFewPoints) {
    const std::size_t place = places[static_cast<std::size_t>(fault->value) - 1];
    fault->value = static_cast<double>(place + 1);
  }
  for (const Family family : FamiliesFor(options)) {
    if (fault) {
      result.failed.emplace_back(family, *fault);
      continue;
    }
    Outcome<FamilyFit> fit = FamilyFitter(used, family, options).Run();
    if (const Fault* const own = FaultOf(fit)) {
      result.failed.emplace_back(family, *own);
    } else {
      result.fits.push_back(std::get<FamilyFit>(std::move(fit)));
    }
  }
  std::ranges::sort(result.fits, IsBetter);
  return result;
}

}  // namespace zentab::curves
