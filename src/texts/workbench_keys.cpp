#include "texts/key_table.h"

namespace zentab::texts {
namespace {

using W = WorkbenchTexts;

// The stages of an import and the equations that it lists.
const std::vector<KeyRow>& StageRows() {
  static const std::vector<KeyRow> rows = {
      {"F1.WORKBENCH.TEXT", Caption{"CommandPreview"}},
      {"F1.WORKBENCH.TIP", Tooltip{"CommandPreview"}},
      {"WORKBENCH.SOURCE", WorkbenchField{&W::source}},
      {"WORKBENCH.SOURCE.ONE", WorkbenchField{&W::sourceOne}},
      {"WORKBENCH.OLDER", WorkbenchField{&W::older}},
      {"WORKBENCH.READING", WorkbenchField{&W::reading}},
      {"WORKBENCH.MEASURED", WorkbenchField{&W::measured}},
      {"WORKBENCH.TIMEOUT", WorkbenchField{&W::timeouts}},
      {"WORKBENCH.DIFFERENCE", WorkbenchField{&W::difference}},
      {"WORKBENCH.FILTER", WorkbenchField{&W::filter}},
      {"WORKBENCH.MEAN", WorkbenchField{&W::mean}},
      {"WORKBENCH.LEGEND.REMOVED", WorkbenchField{&W::legendRemoved}},
      {"WORKBENCH.LEGEND.SHAPED", WorkbenchField{&W::legendShaped}},
      {"WORKBENCH.UNIT.S", WorkbenchField{&W::seconds}},
      {"WORKBENCH.UNIT.MS", WorkbenchField{&W::milliseconds}},
      {"WORKBENCH.TIP.TIMEOUT", WorkbenchField{&W::timeoutTip}},
      {"WORKBENCH.LEFT", WorkbenchField{&W::left}},
      {"WORKBENCH.LEFT.ONE", WorkbenchField{&W::leftOne}},
      {"WORKBENCH.REMOVED", WorkbenchField{&W::removed}},
      {"WORKBENCH.MOVED", WorkbenchField{&W::moved}},
      {"WORKBENCH.NOVALUE", WorkbenchField{&W::noValue}},
      {"WORKBENCH.LEVEL", WorkbenchField{&W::levelIs}},
      {"WORKBENCH.BADTIMEOUT", WorkbenchField{&W::noTimeout}},
      {"WORKBENCH.EQUATIONS", WorkbenchField{&W::equations}},
      {"WORKBENCH.TAB.DIFFERENCE", WorkbenchField{&W::differenceEquations}},
      {"WORKBENCH.TAB.FILTER", WorkbenchField{&W::filterEquations}},
      {"WORKBENCH.TAB.MEAN", WorkbenchField{&W::valueEquations}},
      {"WORKBENCH.BUILTIN", WorkbenchField{&W::noEquation}},
      {"WORKBENCH.ONE", WorkbenchField{&W::equation}},
      {"WORKBENCH.TRY", WorkbenchField{&W::tryIt}},
      {"WORKBENCH.WRITE", WorkbenchField{&W::write}},
  };
  return rows;
}

// What fields for equations say and complete.
const std::vector<KeyRow>& EquationRows() {
  static const std::vector<KeyRow> rows = {
      {"WORKBENCH.REVERT", WorkbenchField{&W::revert}},
      {"WORKBENCH.WRITTEN", WorkbenchField{&W::written}},
      {"WORKBENCH.NOTWRITTEN", WorkbenchField{&W::notWritten}},
      {"WORKBENCH.UNSAVED", WorkbenchField{&W::unwritten}},
      {"WORKBENCH.BRACE", WorkbenchField{&W::cannotKeep}},
      {"WORKBENCH.FAULT", WorkbenchField{&W::fault}},
      {"WORKBENCH.FAULTATEND", WorkbenchField{&W::faultAtEnd}},
      {"WORKBENCH.NAME", WorkbenchField{&W::unknownName}},
      {"WORKBENCH.ARGUMENTS", WorkbenchField{&W::arguments}},
      {"WORKBENCH.DOMAIN", WorkbenchField{&W::domain}},
      {"WORKBENCH.VARIABLE.T0", WorkbenchField{&W::timeOfPoint}},
      {"WORKBENCH.VARIABLE.T1", WorkbenchField{&W::timeBefore}},
      {"WORKBENCH.VARIABLE.T2", WorkbenchField{&W::timeBeforeThat}},
      {"WORKBENCH.VARIABLE.V0", WorkbenchField{&W::loadOfPoint}},
      {"WORKBENCH.VARIABLE.V1", WorkbenchField{&W::loadBefore}},
      {"WORKBENCH.VARIABLE.V2", WorkbenchField{&W::loadBeforeThat}},
      {"WORKBENCH.VARIABLE.Y", WorkbenchField{&W::numberOfPoint}},
      {"WORKBENCH.VARIABLE.Z", WorkbenchField{&W::countOfPoints}},
      {"WORKBENCH.VARIABLE.TMIN", WorkbenchField{&W::shortestTime}},
      {"WORKBENCH.VARIABLE.TMAX", WorkbenchField{&W::longestTime}},
      {"WORKBENCH.VARIABLE.VMIN", WorkbenchField{&W::smallestLoad}},
      {"WORKBENCH.VARIABLE.VMAX", WorkbenchField{&W::largestLoad}},
      {"WORKBENCH.VARIABLE.LOAD", WorkbenchField{&W::load}},
      {"WORKBENCH.VARIABLE.PICKUP", WorkbenchField{&W::pickup}},
      {"WORKBENCH.VARIABLE.MULTIPLIER", WorkbenchField{&W::multiplier}},
  };
  return rows;
}

}  // namespace

std::vector<KeyRow> WorkbenchRows() {
  std::vector<KeyRow> all = StageRows();
  all.insert(all.end(), EquationRows().begin(), EquationRows().end());
  return all;
}

}  // namespace zentab::texts
