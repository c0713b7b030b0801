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
  Import(platform::FileLayer& files, const ImportOptions& options,
         const texts::CatalogueTexts& texts, ImportTrace* trace, const ProgressReport& progress)
      : files_(files), options_(options), texts_(texts), trace_(trace), progress_(progress) {
    result_.differenceType = options.differenceType;
  }

  ImportResult Run(const ResultSource& source) {
    if (!Read(source) || !MeasureDifferences() || !Filter() || !Average()) {
      return std::move(result_);
    }
    Selection chosen = SelectPoints(points_);
    if (Trace({" Selected entries"}, chosen.points, kAfterMean)) {
      result_.points = std::move(chosen.points);
      result_.selectedByRank = chosen.byRank;
    }
    return std::move(result_);
  }

 private:
  // Each stage is false when it ends the import; the result says why.

  bool Read(const ResultSource& source) {
    ReadPoints read;
    result_.readError = ReadTimeTest(files_, source, options_.modes,
                                     ProgressMeter(progress_, 0.0, kAfterReading), read);
    if (result_.readError == platform::FileError::GivenUp) return End(ImportOutcome::Stopped);
    if (result_.readError) return End(ImportOutcome::Unreadable);
    if (read.points.empty()) return End(ImportOutcome::NoEntries);
    points_ = std::move(read.points);
    extremes_ = read.extremes;
    timeoutLevel_ = TimeoutLevel(options_.timeout, extremes_.tMax);
    if (options_.filterType < kKeepsTimeouts) PruneTimeouts(points_, timeoutLevel_);
    return true;
  }

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
    return FilterSpikes(points_, options_.filterType, timeoutLevel_, equation,
                        ProgressMeter(progress_, kAfterDifferences, kAfterFilter)) ||
           End(ImportOutcome::Stopped);
  }

  bool Average() {
    PointEquation compiled;
    PointEquation* equation = nullptr;
    if (options_.meanOver <= kLastValueEquation &&
        !Compile(texts::EquationStage::Value, options_.meanOver, compiled, equation)) {
      // The number shown is the filter's: catalogues and their manuals count on it.
      return EndWith("Error in value equation #", options_.filterType);
    }
    const ProgressMeter meter(progress_, kAfterFilter, kAfterMean);
    const bool finished = equation != nullptr ? TransformTimes(points_, *equation, meter)
                                              : AverageTimes(points_, options_.meanOver, meter);
    if (!finished) return End(ImportOutcome::Stopped);
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
        texts_.equations[static_cast<std::size_t>(stage)][static_cast<std::size_t>(number)];
    if (text.empty()) return true;
    equation = &compiled;
    return compiled.Compile(text, extremes_);
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

  platform::FileLayer& files_;
  const ImportOptions& options_;
  const texts::CatalogueTexts& texts_;
  ImportTrace* trace_;
  const ProgressReport& progress_;
  ImportResult result_;
  std::vector<MeasuredPoint> points_;
  Extremes extremes_;
  double timeoutLevel_ = 0.0;
};

}  // namespace

ImportResult ImportCurve(platform::FileLayer& files, const ResultSource& source,
                         const ImportOptions& options, const texts::CatalogueTexts& texts,
                         ImportTrace* trace, const ProgressReport& progress) {
  return Import(files, options, texts, trace, progress).Run(source);
}

}  // namespace zentab::timetest
