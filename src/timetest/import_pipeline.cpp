#include "timetest/import_pipeline.h"

#include "platform/file_errors.h"
#include "timetest/difference_measure.h"
#include "timetest/point_selection.h"
#include "timetest/running_mean.h"
#include "timetest/spike_filter.h"
#include "timetest/timeout_pruning.h"

namespace zentab::timetest {
namespace {

constexpr std::int16_t kKeepsTimeouts = 7;
constexpr std::int16_t kLastValueEquation = texts::kEquations;

// How far the whole is at the end of each stage.
constexpr double kAfterReading = 0.6;
constexpr double kAfterDifferences = 0.75;
constexpr double kAfterFilter = 0.9;
constexpr double kAfterMean = 1.0;

class Import {
 public:
  Import(const ImportOptions& options, const texts::EquationTexts& equations, ImportTrace* trace,
         const ProgressReport& progress, ImportEffects* effects)
      : options_(options),
        equations_(equations),
        trace_(trace),
        progress_(progress),
        effects_(effects) {
    result_.differenceType = options.differenceType;
  }

  ImportResult ReadAndRun(platform::FileLayer& files, const ResultSource& source) {
    ReadPoints read;
    result_.readError = ReadTimeTest(files, source, options_.modes,
                                     ProgressMeter(progress_, 0.0, kAfterReading), read);
    if (result_.readError) {
      End(result_.readError == platform::FileError::GivenUp ? ImportOutcome::Stopped
                                                            : ImportOutcome::Unreadable);
    } else if (read.points.empty()) {
      End(ImportOutcome::NoEntries);
    } else {
      return Run(std::move(read.points), read.extremes);
    }
    return std::move(result_);
  }

  ImportResult Run(std::vector<MeasuredPoint> points, const Extremes& extremes) {
    points_ = std::move(points);
    extremes_ = extremes;
    Prune();
    if (!MeasureDifferences() || !Filter() || !Average()) return std::move(result_);
    Selection chosen = SelectPoints(points_);
    if (Trace({" Selected entries"}, chosen.points, kAfterMean)) {
      result_.points = std::move(chosen.points);
      result_.selectedByRank = chosen.byRank;
    }
    if (effects_ != nullptr) effects_->shaped = std::move(points_);
    return std::move(result_);
  }

 private:
  void Prune() {
    timeoutLevel_ = TimeoutLevel(options_.timeout, extremes_.tMax);
    if (effects_ != nullptr) effects_->timeoutLevel = timeoutLevel_;
    if (options_.filterType >= kKeepsTimeouts) return;
    PruneTimeouts(points_, timeoutLevel_, effects_ == nullptr ? nullptr : &effects_->timeouts);
  }

  // Each stage is false when it ends the import; the result says why.

  bool MeasureDifferences() {
    PointEquation compiled;
    PointEquation* equation = nullptr;
    if (!Compile(texts::EquationStage::Difference, options_.differenceType, compiled, equation)) {
      return EndWith("Error in diff equation #", options_.differenceType);
    }
    if (equation == nullptr) result_.differenceType = 0;
    if (!timetest::MeasureDifferences(points_, timeoutLevel_, equation,
                                      ProgressMeter(progress_, kAfterReading, kAfterDifferences))) {
      return End(ImportOutcome::Stopped);
    }
    CountFailures(texts::EquationStage::Difference, compiled);
    return Trace({"Diff Type " + std::to_string(result_.differenceType)}, points_,
                 kAfterDifferences);
  }

  bool Filter() {
    if (options_.filterType == 0) return true;
    PointEquation compiled;
    PointEquation* equation = nullptr;
    if (!Compile(texts::EquationStage::Filter, options_.filterType, compiled, equation)) {
      return EndWith("Error in filter equation #", options_.filterType);
    }
    const bool finished = FilterSpikes(points_, options_.filterType, timeoutLevel_, equation,
                                       ProgressMeter(progress_, kAfterDifferences, kAfterFilter),
                                       effects_ == nullptr ? nullptr : &effects_->filter);
    CountFailures(texts::EquationStage::Filter, compiled);
    return finished || End(ImportOutcome::Stopped);
  }

  bool Average() {
    PointEquation compiled;
    PointEquation* equation = nullptr;
    if (options_.meanOver <= kLastValueEquation &&
        !Compile(texts::EquationStage::Value, options_.meanOver, compiled, equation)) {
      // The number shown is the filter's: catalogues and their manuals count on it.
      return EndWith("Error in value equation #", options_.filterType);
    }
    const std::vector<double> before = effects_ == nullptr ? std::vector<double>() : Times();
    const ProgressMeter meter(progress_, kAfterFilter, kAfterMean);
    const bool finished = equation != nullptr ? TransformTimes(points_, *equation, meter)
                                              : AverageTimes(points_, options_.meanOver, meter);
    if (!finished) return End(ImportOutcome::Stopped);
    CountFailures(texts::EquationStage::Value, compiled);
    CountAveraged(before);
    return Trace({" After filter and mean", "Filter Type " + std::to_string(options_.filterType),
                  "Mean Over " + std::to_string(options_.meanOver)},
                 points_, kAfterMean);
  }

  // Compiles the stage's equation of that number, if the catalogue has one. False when its text is
  // no expression.
  bool Compile(texts::EquationStage stage, std::int16_t number, PointEquation& compiled,
               PointEquation*& equation) const {
    if (number < 1 || number > texts::kEquations) return true;
    const std::string& text =
        equations_[static_cast<std::size_t>(stage)][static_cast<std::size_t>(number)];
    if (text.empty()) return true;
    equation = &compiled;
    return compiled.Compile(text, extremes_);
  }

  [[nodiscard]] std::vector<double> Times() const {
    std::vector<double> times;
    times.reserve(points_.size());
    for (const MeasuredPoint& point : points_) times.push_back(point.time);
    return times;
  }
  void CountAveraged(const std::vector<double>& before) const {
    for (std::size_t at = 0; at < before.size(); ++at) {
      if (points_[at].time != before[at]) ++effects_->averaged;
    }
  }
  void CountFailures(texts::EquationStage stage, const PointEquation& equation) const {
    if (effects_ == nullptr) return;
    effects_->failures[static_cast<std::size_t>(stage)] = equation.Failures();
  }

  bool End(ImportOutcome outcome) {
    result_.outcome = outcome;
    return false;
  }
  bool EndWith(std::string_view error, std::int16_t number) {
    result_.error = std::string(error) + std::to_string(number);
    return End(ImportOutcome::EquationError);
  }

  // `done` is how far the whole is meanwhile.
  bool Trace(const std::vector<std::string>& headings, const std::vector<MeasuredPoint>& points,
             double done) {
    return trace_ == nullptr ||
           trace_->WriteSection(headings, points, ProgressMeter(progress_, done, done)) ||
           End(ImportOutcome::Stopped);
  }

  const ImportOptions& options_;
  const texts::EquationTexts& equations_;
  ImportTrace* trace_;
  const ProgressReport& progress_;
  ImportEffects* effects_;
  ImportResult result_;
  std::vector<MeasuredPoint> points_;
  Extremes extremes_;
  double timeoutLevel_ = 0.0;
};

}  // namespace

ImportResult ImportCurve(platform::FileLayer& files, const ResultSource& source,
                         const ImportOptions& options, const texts::CatalogueTexts& texts,
                         ImportTrace* trace, const ProgressReport& progress) {
  return Import(options, texts.equations, trace, progress, nullptr).ReadAndRun(files, source);
}

ImportResult ImportPoints(const ReadPoints& read, const ImportOptions& options,
                          const texts::EquationTexts& equations, const ProgressReport& progress,
                          ImportEffects* effects) {
  return Import(options, equations, nullptr, progress, effects).Run(read.points, read.extremes);
}

}  // namespace zentab::timetest
