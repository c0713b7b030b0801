#include "texts/key_table.h"

namespace zentab::texts {

const std::vector<KeyRow>& CurveRows() {
  static const std::vector<KeyRow> rows = {
      {"FAMILY.IEC.A", CurveField{&CurveTexts::iecA}},
      {"FAMILY.IEC.B", CurveField{&CurveTexts::iecB}},
      {"FAMILY.IEC.C", CurveField{&CurveTexts::iecC}},
      {"FAMILY.IEEE.MI", CurveField{&CurveTexts::ieeeModerately}},
      {"FAMILY.IEEE.VI", CurveField{&CurveTexts::ieeeVery}},
      {"FAMILY.IEEE.EI", CurveField{&CurveTexts::ieeeExtremely}},
      {"FAMILY.LONGTIME", CurveField{&CurveTexts::longTime}},
      {"FAMILY.SHORTTIME", CurveField{&CurveTexts::shortTime}},
      {"FAMILY.RI", CurveField{&CurveTexts::ri}},
      {"FAMILY.SQUARE", CurveField{&CurveTexts::i2t}},
      {"FAMILY.DEFINITE", CurveField{&CurveTexts::definite}},
      {"FAMILY.OVERVOLTAGE", CurveField{&CurveTexts::overvoltage}},
      {"FAMILY.UNDERVOLTAGE", CurveField{&CurveTexts::undervoltage}},
      {"FAMILY.THERMAL", CurveField{&CurveTexts::thermal}},
      {"FAMILY.OWN", CurveField{&CurveTexts::own}},
      {"FAMILY.EQUATION", CurveField{&CurveTexts::equation}},
      {"CURVE.FAULT.FEW", CurveField{&CurveTexts::tooFewPoints}},
      {"CURVE.FAULT.NONE", CurveField{&CurveTexts::noPoint}},
      {"CURVE.FAULT.LOAD", CurveField{&CurveTexts::badLoad}},
      {"CURVE.FAULT.TIME", CurveField{&CurveTexts::badTime}},
      {"CURVE.FAULT.EQUAL", CurveField{&CurveTexts::equalLoads}},
      {"CURVE.FAULT.LOGARITHM", CurveField{&CurveTexts::logarithmOfLoad}},
      {"CURVE.FAULT.BELOW", CurveField{&CurveTexts::atOrBelowPickup}},
      {"CURVE.FAULT.ABOVE", CurveField{&CurveTexts::atOrAbovePickup}},
      {"CURVE.FAULT.INFINITE", CurveField{&CurveTexts::noFiniteTime}},
      {"CURVE.FAULT.SETTING", CurveField{&CurveTexts::badSetting}},
      {"CURVE.FAULT.SYNTAX", CurveField{&CurveTexts::badEquation}},
      {"CURVE.FAULT.NAME", CurveField{&CurveTexts::unknownName}},
      {"CURVE.FAULT.RANGE", CurveField{&CurveTexts::badRange}},
      {"CURVE.FAULT.COUNT", CurveField{&CurveTexts::badPointCount}},
      {"CURVE.FAULT.OUTSIDE", CurveField{&CurveTexts::outsideTable}},
      {"CURVE.FAULT.APART", CurveField{&CurveTexts::noCommonRange}},
      {"CURVE.FAULT.NOFIT", CurveField{&CurveTexts::cannotBeFitted}},
      {"CURVE.FAULT.MODES", CurveField{&CurveTexts::differentLoads}},
      {"CURVE.FAULT.PICKUP", CurveField{&CurveTexts::pickupNeeded}},
      {"CURVE.FIT.OPEN", CurveField{&CurveTexts::notDetermined}},
  };
  return rows;
}

}  // namespace zentab::texts
