#include "curves/least_squares.h"

#include <algorithm>
#include <boost/math/distributions/students_t.hpp>
#include <boost/math/tools/minima.hpp>
#include <cmath>
#include <limits>
#include <vector>

namespace zentab::curves {
namespace {

constexpr double kStep = 1e-6;       // of a parameter's scale, for a derivative
constexpr double kSingular = 1e-14;  // of a diagonal element, what rounding leaves of it
constexpr int kPolishing = 6;
constexpr int kScan = 60;
constexpr int kBits = std::numeric_limits<double>::digits / 2;
constexpr std::uintmax_t kMostSteps = 100;
constexpr double kOutside = 1e-5;  // of the probability, on both sides together

using Row = std::array<double, kMostParameters>;

// The derivatives of a relative error by the parameters.
Row Derivatives(const ModelOf& model, const Parameters& parameters, const Point& point) {
  Row row{};
  for (std::size_t i = 0; i < model.count; ++i) {
    const double step = kStep * model.scales[i];
    Parameters above = parameters;
    Parameters below = parameters;
    above[i] += step;
    below[i] -= step;
    row[i] = (model.time(above, point.load) - model.time(below, point.load)) /
             (above[i] - below[i]) / point.time;
  }
  return row;
}

Covariance NormalMatrix(const ModelOf& model, const std::vector<Row>& rows) {
  Covariance normal{};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < model.count; ++i) {
      for (std::size_t j = 0; j < model.count; ++j) normal[i][j] += row[i] * row[j];
    }
  }
  return normal;
}

// By Gauss and Jordan, the pivots on the diagonal: the matrix is symmetrical and none is negative.
std::optional<Covariance> Inverse(Covariance matrix, std::size_t count) {
  Row diagonal{};
  for (std::size_t i = 0; i < count; ++i) diagonal[i] = matrix[i][i];
  for (std::size_t pivot = 0; pivot < count; ++pivot) {
    const double value = matrix[pivot][pivot];
    if (!(value > kSingular * diagonal[pivot]) || !std::isfinite(value)) return std::nullopt;
    matrix[pivot][pivot] = 1.0;
    for (std::size_t j = 0; j < count; ++j) matrix[pivot][j] /= value;
    for (std::size_t i = 0; i < count; ++i) {
      if (i == pivot) continue;
      const double factor = matrix[i][pivot];
      matrix[i][pivot] = 0.0;
      for (std::size_t j = 0; j < count; ++j) matrix[i][j] -= factor * matrix[pivot][j];
    }
  }
  return matrix;
}

std::vector<Row> AllDerivatives(const ModelOf& model, const Parameters& parameters,
                                std::span<const Point> points) {
  std::vector<Row> rows;
  rows.reserve(points.size());
  for (const Point& point : points) rows.push_back(Derivatives(model, parameters, point));
  return rows;
}

}  // namespace

double SquareSum(const TimeModel& time, const Parameters& parameters,
                 std::span<const Point> points) {
  double sum = 0.0;
  for (const Point& point : points) {
    const double error = (time(parameters, point.load) - point.time) / point.time;
    sum += error * error;
  }
  return std::isfinite(sum) ? sum : std::numeric_limits<double>::infinity();
}

std::optional<Covariance> InverseNormal(const ModelOf& model, const Parameters& parameters,
                                        std::span<const Point> points) {
  return Inverse(NormalMatrix(model, AllDerivatives(model, parameters, points)), model.count);
}

Parameters Polished(const ModelOf& model, Parameters parameters, std::span<const Point> points) {
  double sum = SquareSum(model.time, parameters, points);
  for (int step = 0; step < kPolishing; ++step) {
    const std::vector<Row> rows = AllDerivatives(model, parameters, points);
    const std::optional<Covariance> inverse = Inverse(NormalMatrix(model, rows), model.count);
    if (!inverse) return parameters;
    Row gradient{};
    for (std::size_t at = 0; at < rows.size(); ++at) {
      const double error =
          (model.time(parameters, points[at].load) - points[at].time) / points[at].time;
      for (std::size_t i = 0; i < model.count; ++i) gradient[i] += rows[at][i] * error;
    }
    Parameters next = parameters;
    for (std::size_t i = 0; i < model.count; ++i) {
      for (std::size_t j = 0; j < model.count; ++j) next[i] -= (*inverse)[i][j] * gradient[j];
    }
    const double nextSum = SquareSum(model.time, next, points);
    if (!(nextSum < sum)) return parameters;
    parameters = next;
    sum = nextSum;
  }
  return parameters;
}

double LeastPlace(const std::function<double(double)>& value, double from, double to) {
  const auto place = [&](int at) { return std::lerp(from, to, static_cast<double>(at) / kScan); };
  int least = 0;
  double leastValue = value(from);
  for (int at = 1; at <= kScan; ++at) {
    const double here = value(place(at));
    if (here < leastValue) {
      leastValue = here;
      least = at;
    }
  }
  std::uintmax_t steps = kMostSteps;
  const auto [at, found] = boost::math::tools::brent_find_minima(
      value, place(std::max(0, least - 1)), place(std::min(kScan, least + 1)), kBits, steps);
  return found <= leastValue ? at : place(least);
}

double CoverageFactor(std::size_t degreesOfFreedom) {
  const boost::math::students_t distribution(static_cast<double>(degreesOfFreedom));
  return boost::math::quantile(boost::math::complement(distribution, kOutside / 2.0));
}

}  // namespace zentab::curves
