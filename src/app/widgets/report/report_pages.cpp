#include "app/widgets/report/report_pages.h"

#include <algorithm>

#include "app/widgets/report/page_writer.h"
#include "app/widgets/report/point_columns.h"

namespace zentab::app {
namespace {

constexpr double kPageMargin = Points(45.0);  // which every printer leaves free
constexpr double kLineGap = Points(10.0);
constexpr double kHighestChart = 0.7;  // of its width
constexpr double kLowestChart = Points(150.0);
// What a chart keeps free beside its axes.
constexpr double kChartLeft = Points(6.0);
constexpr double kChartRight = Points(12.0);
constexpr double kFooter = Points(18.0);
constexpr std::size_t kMostTitleLines = 2;
constexpr double kContentsNumber = Points(30.0);
constexpr double kContentsColumn = Points(60.0);

QString Shown(const std::string& text) { return QString::fromStdString(text); }

// Takes a strip off the top of a place.
QRectF TakeTop(QRectF& place, double height) {
  const QRectF strip(place.left(), place.top(), place.width(), height);
  place.setTop(place.top() + height);
  return strip;
}

void DrawHeader(const ReportHeading& heading, QRectF& place, PageWriter& writer) {
  if (heading.lines.empty()) return;
  for (std::size_t line = 0; line < heading.lines.size(); ++line) {
    const PageText kind = line == 0 ? PageText::Heading : PageText::Small;
    writer.Put(TakeTop(place, PageWriter::LineHeight(kind)), Shown(heading.lines[line]), kind);
  }
  writer.Rule(place.left(), place.right(), TakeTop(place, kLineGap / 2.0).bottom(), true);
  TakeTop(place, kLineGap);
}

void DrawFooter(const Report& report, int page, int pages, QRectF& place, PageWriter& writer) {
  QRectF footer = place;
  footer.setTop(place.bottom() - kFooter);
  place.setBottom(footer.top() - kLineGap / 2.0);
  writer.Rule(footer.left(), footer.right(), footer.top(), false);
  writer.Put(footer, Shown(report.heading.date), PageText::Small);
  const std::string number =
      PageNumber(report, static_cast<std::size_t>(page) + 1, static_cast<std::size_t>(pages));
  writer.Put(footer, Shown(number), PageText::Small, Qt::AlignRight);
}

void DrawTitle(const std::string& title, QRectF& place, PageWriter& writer) {
  for (const QString& line :
       PageWriter::Broken(Shown(title), PageText::Title, place.width(), kMostTitleLines)) {
    writer.Put(TakeTop(place, PageWriter::LineHeight(PageText::Title)), line, PageText::Title);
  }
  TakeTop(place, kLineGap / 2.0);
}

// Label and value side by side.
void DrawField(const ReportField& field, const QRectF& place, double labelWidth,
               PageWriter& writer) {
  writer.Put(place, Shown(field.label), PageText::Small);
  writer.Put(place.adjusted(labelWidth, 0.0, 0.0, 0.0), Shown(field.value), PageText::Line,
             Qt::AlignLeft, Qt::ElideMiddle);
}

// The file over the whole width, the others in two columns.
void DrawFields(const std::vector<ReportField>& fields, QRectF& place, PageWriter& writer) {
  double labelWidth = 0.0;
  for (const ReportField& field : fields) {
    labelWidth = std::max(labelWidth, PageWriter::Width(Shown(field.label), PageText::Small));
  }
  labelWidth = std::min(labelWidth + kLineGap, place.width() / 4.0);
  const double height = PageWriter::LineHeight(PageText::Line);
  DrawField(fields.front(), TakeTop(place, height), labelWidth, writer);
  for (std::size_t at = 1; at < fields.size(); at += 2) {
    const QRectF row = TakeTop(place, height);
    const double half = (row.width() - kLineGap) / 2.0;
    DrawField(fields[at], {row.left(), row.top(), half, height}, labelWidth, writer);
    if (at + 1 == fields.size()) break;
    DrawField(fields[at + 1], {row.left() + half + kLineGap, row.top(), half, height}, labelWidth,
              writer);
  }
  TakeTop(place, kLineGap);
}

// The outcome, over two lines where one is too short for it, and the limits.
std::vector<std::pair<QString, PageText>> AssessmentLines(const std::vector<std::string>& texts,
                                                          double width) {
  std::vector<std::pair<QString, PageText>> lines;
  for (const std::string& text : texts) {
    const PageText kind = lines.empty() ? PageText::Heading : PageText::Small;
    for (const QString& line : PageWriter::Broken(Shown(text), kind, width, kMostTitleLines)) {
      lines.emplace_back(line, kind);
    }
  }
  return lines;
}

void DrawAssessment(const std::vector<std::string>& texts, QRectF& place, PageWriter& writer) {
  for (const auto& [line, kind] : AssessmentLines(texts, place.width())) {
    writer.Put(TakeTop(place, PageWriter::LineHeight(kind)), line, kind);
  }
}

double HeightOfAssessment(const std::vector<std::string>& texts, double width) {
  double height = texts.empty() ? 0.0 : kLineGap;
  for (const auto& [line, kind] : AssessmentLines(texts, width)) {
    height += PageWriter::LineHeight(kind);
  }
  return height;
}

}  // namespace

ReportPages::ReportPages(const Report& report, const QSizeF& points)
    : report_(report),
      sheet_(QRectF(0.0, 0.0, Points(points.width()), Points(points.height()))
                 .adjusted(kPageMargin, kPageMargin, -kPageMargin, -kPageMargin)),
      chart_(Shown(report.decimalSeparator)) {
  const double header = Points(150.0);
  contentsRows_ =
      static_cast<std::size_t>((sheet_.height() - header) / PageWriter::LineHeight(PageText::Line));
}

int ReportPages::ContentsPages() const {
  const std::size_t pages = report_.pages.size();
  return pages < 2 ? 0 : static_cast<int>((pages + contentsRows_ - 1) / contentsRows_);
}

int ReportPages::Count() const { return ContentsPages() + static_cast<int>(report_.pages.size()); }

void ReportPages::Draw(int page, QCPPainter& painter, double unitsPerInch) {
  painter.save();
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNonCosmetic);
  painter.scale(unitsPerInch / kPageUnitsPerInch, unitsPerInch / kPageUnitsPerInch);
  const int contents = ContentsPages();
  PageWriter writer(painter);
  QRectF place = sheet_;
  DrawFooter(report_, page, Count(), place, writer);
  DrawHeader(report_.heading, place, writer);
  if (page < contents) {
    DrawContents(page, place, writer);
  } else {
    DrawTable(report_.pages[static_cast<std::size_t>(page - contents)], place, painter);
  }
  painter.restore();
}

void ReportPages::DrawTable(const ReportPage& page, QRectF place, QCPPainter& painter) {
  PageWriter writer(painter);
  DrawTitle(page.title, place, writer);
  DrawFields(page.fields, place, writer);
  const PointColumns table(page);
  const double below =
      table.Height(place.width()) + HeightOfAssessment(page.assessment, place.width()) + kLineGap;
  const double lacking = page.curve.IsShown() ? kLowestChart + below - place.height() : 0.0;
  painter.save();
  if (lacking > 0.0) {
    // All rows, long header lines and a low paper: what stands below the title becomes smaller.
    const double share = place.height() / (place.height() + lacking);
    painter.translate(place.topLeft());
    painter.scale(share, share);
    place = QRectF(QPointF(), place.size() / share);
  }
  if (page.curve.IsShown()) {
    const double rest = std::max(place.height() - below, kLowestChart);
    DrawCurve(page, TakeTop(place, std::min(rest, place.width() * kHighestChart)), painter);
    TakeTop(place, kLineGap);
  }
  table.Draw(TakeTop(place, table.Height(place.width())), writer);
  TakeTop(place, kLineGap);
  DrawAssessment(page.assessment, place, writer);
  painter.restore();
}

void ReportPages::DrawCurve(const ReportPage& page, const QRectF& place, QCPPainter& painter) {
  editor::CurveChart& chart = chart_.Show(page.curve, Shown(page.axes.load), Shown(page.axes.time));
  // The axes' box reaches to the edges of the table.
  DrawChart(chart, painter, place.adjusted(-kChartLeft, 0.0, kChartRight, 0.0), kPageUnitsPerInch);
}

void ReportPages::DrawContents(int part, QRectF place, PageWriter& writer) const {
  const texts::ReportTexts& words = report_.words;
  DrawTitle(words.contents, place, writer);
  const auto row = [&](const std::string& name, const std::string& points, const std::string& page,
                       PageText kind) {
    const QRectF strip = TakeTop(place, PageWriter::LineHeight(kind));
    const QRectF pages(strip.right() - kContentsNumber, strip.top(), kContentsNumber,
                       strip.height());
    const QRectF counts(pages.left() - kContentsColumn, strip.top(), kContentsColumn,
                        strip.height());
    writer.Put({strip.left(), strip.top(), counts.left() - strip.left(), strip.height()},
               Shown(name), kind);
    writer.Put(counts, Shown(points), kind, Qt::AlignRight);
    writer.Put(pages, Shown(page), kind, Qt::AlignRight);
    writer.Rule(strip.left(), strip.right(), strip.bottom(), kind == PageText::CellHeading);
  };
  row(words.name, words.points, words.page, PageText::CellHeading);
  TakeTop(place, Points(2.0));
  const std::size_t first = static_cast<std::size_t>(part) * contentsRows_;
  const std::size_t end = std::min(first + contentsRows_, report_.pages.size());
  for (std::size_t at = first; at < end; ++at) {
    const ReportPage& page = report_.pages[at];
    const std::size_t number = static_cast<std::size_t>(ContentsPages()) + at + 1;
    row(page.title, std::to_string(page.rows.size()), std::to_string(number), PageText::Line);
  }
}

}  // namespace zentab::app
