#include "texts/key_table.h"

namespace zentab::texts {

const std::vector<KeyRow>& OutputRows() {
  using O = OutputTexts;
  static const std::vector<KeyRow> rows = {
      {"F1.MENU.1.COPYCHART", Caption{"m_copychart"}, true},
      {"F1.MENU.1.SAVECHART", Caption{"m_savechart"}, true},
      {"F1.MENU.1.PRINT", Caption{"m_print"}, true},
      {"F1.MENU.1.PREVIEW", Caption{"m_preview"}, true},
      {"OUTPUT.HEADING", OutputField{&O::heading}},
      {"OUTPUT.GRID", OutputField{&O::gridTable}},
      {"OUTPUT.ENTRIES", OutputField{&O::entries}},
      {"OUTPUT.HEADER", OutputField{&O::headerLines}},
      {"OUTPUT.PAPER", OutputField{&O::paper}},
      {"OUTPUT.LETTER", OutputField{&O::letter}},
      {"OUTPUT.ASSESSMENT", OutputField{&O::withAssessment}},
      {"OUTPUT.PREVIEW", OutputField{&O::preview}},
      {"OUTPUT.PRINT", OutputField{&O::print}},
      {"OUTPUT.PDF", OutputField{&O::savePdf}},
      {"OUTPUT.SAVE.CHART", OutputField{&O::saveChart}},
      {"OUTPUT.WIDTH", OutputField{&O::width}},
      {"OUTPUT.HEIGHT", OutputField{&O::height}},
      {"OUTPUT.RESOLUTION", OutputField{&O::resolution}},
      {"OUTPUT.NO.CURVE", OutputField{&O::noCurve}},
      {"OUTPUT.FORMAT", OutputField{&O::unknownFormat}},
      {"OUTPUT.TOO.LARGE", OutputField{&O::tooLarge}},
      {"OUTPUT.NOT.WRITTEN", OutputField{&O::notWritten}},
      {"OUTPUT.NOT.PRINTED", OutputField{&O::notPrinted}},
      {"OUTPUT.COPIED", OutputField{&O::chartCopied}},
  };
  return rows;
}

const std::vector<KeyRow>& ReportRows() {
  using R = ReportTexts;
  static const std::vector<KeyRow> rows = {
      {"REPORT.CONTENTS", ReportField{&R::contents}},
      {"REPORT.NAME", ReportField{&R::name}},
      {"REPORT.POINTS", ReportField{&R::points}},
      {"REPORT.PAGE.HEAD", ReportField{&R::page}},
      {"REPORT.PAGE.OF", ReportField{&R::pageOf}},
      {"REPORT.UNNAMED", ReportField{&R::unnamed}},
      {"REPORT.EDITED", ReportField{&R::edited}},
      {"REPORT.FILE", ReportField{&R::file}},
      {"REPORT.DATE", ReportField{&R::date}},
      {"REPORT.LOADS.NAME", ReportField{&R::loads}},
      {"REPORT.LOADS.RELATIVE", ReportField{&R::relativeLoads}},
      {"REPORT.LOADS.ABSOLUTE", ReportField{&R::absoluteLoads}},
      {"REPORT.TIMES.NAME", ReportField{&R::times}},
      {"REPORT.TIMES.S", ReportField{&R::seconds}},
      {"REPORT.TIMES.MS", ReportField{&R::milliseconds}},
      {"REPORT.INSTRUMENT", ReportField{&R::instrument}},
      {"REPORT.PICKUP", ReportField{&R::pickup}},
      {"REPORT.MULTIPLIER", ReportField{&R::multiplier}},
      {"REPORT.ROW", ReportField{&R::row}},
      {"REPORT.NOMINAL", ReportField{&R::nominal}},
      {"REPORT.DEVIATION", ReportField{&R::deviation}},
      {"REPORT.RATIO", ReportField{&R::ratio}},
      {"REPORT.LIMIT.HEAD", ReportField{&R::limit}},
      {"REPORT.RESULT", ReportField{&R::result}},
      {"REPORT.REFERENCE", ReportField{&R::reference}},
      {"REPORT.LIMIT.PERCENT", ReportField{&R::percentLimit}},
      {"REPORT.LIMIT.MS", ReportField{&R::millisecondLimit}},
      {"REPORT.LIMIT.BOTH", ReportField{&R::bothLimits}},
      {"REPORT.LIMIT.ACCURACY", ReportField{&R::classLimit}},
      {"REPORT.LIMIT.CLASS.MS", ReportField{&R::classAndMilliseconds}},
      {"REPORT.LIMIT.LOAD", ReportField{&R::loadTolerance}},
  };
  return rows;
}

}  // namespace zentab::texts
