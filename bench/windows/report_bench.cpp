// Times a report of 100 pages, each with 26 assessed points, beside its limit of 10 s.

#include <QApplication>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "app/widgets/report/report_document.h"
#include "bench/speed_line.h"

namespace {

using namespace zentab;

constexpr int kTables = 100;
constexpr double kLimit = 10.0;  // s

app::ReportedTable Table(int number) {
  std::string line = "{\"\"\t";
  app::ReportAssessment assessment;
  double load = 1.05;
  for (std::size_t point = 0; point < tables::kMaxPoints; ++point, load *= 1.13) {
    const double time = 0.14 / (std::pow(load, 0.02) - 1.0) * (0.05 + 0.01 * number);
    line += '(' + std::to_string(load) + ';' + std::to_string(time) + ')';
    assessment.result.points.push_back(
        {{load, time}, load, curves::Verdict::Passed, time, 0.001, 0.001, 0.1});
  }
  assessment.result.passed = tables::kMaxPoints;
  app::ReportedTable table =
      app::TableOfLine("Feeder " + std::to_string(number), line + " 001}", ".");
  table.assessment = assessment;
  return table;
}

}  // namespace

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const app::Session session;
  std::vector<app::ReportedTable> tables;
  tables.reserve(kTables);
  for (int number = 0; number < kTables; ++number) tables.push_back(Table(number));
  const auto begin = std::chrono::steady_clock::now();
  const app::Report report = app::ReportOf(session, tables, {"Substation"}, app::LocalTime());
  const QByteArray pdf = app::ReportPdf(report, app::Paper::A4);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  std::printf("a report of %d pages: %.2f s, %lld bytes (limit %.0f s)\n", kTables, taken.count(),
              static_cast<long long>(pdf.size()), kLimit);
  bench::PrintSpeedLine("Report of 100 pages", "s", taken.count(), bench::Aim::Most, kLimit);
  return 0;
}
