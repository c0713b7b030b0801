#include "texts/key_table.h"

namespace zentab::texts {

const std::vector<KeyRow>& InterchangeRows() {
  static const std::vector<KeyRow> rows = {
      {"INTERCHANGE.PLACE", InterchangeField{&InterchangeTexts::lineAndColumn}},
      {"INTERCHANGE.LINE", InterchangeField{&InterchangeTexts::line}},
      {"INTERCHANGE.NOTEXT", InterchangeField{&InterchangeTexts::noText}},
      {"INTERCHANGE.LONG", InterchangeField{&InterchangeTexts::tooManyLines}},
      {"INTERCHANGE.ONECOLUMN", InterchangeField{&InterchangeTexts::oneColumn}},
      {"INTERCHANGE.NONUMBERS", InterchangeField{&InterchangeTexts::noNumbers}},
      {"INTERCHANGE.NUMBER", InterchangeField{&InterchangeTexts::badNumber}},
      {"INTERCHANGE.MISSING", InterchangeField{&InterchangeTexts::missingNumber}},
      {"INTERCHANGE.NOCOLUMN", InterchangeField{&InterchangeTexts::noColumn}},
      {"INTERCHANGE.NOCURVE", InterchangeField{&InterchangeTexts::noCurve}},
      {"INTERCHANGE.NOJSON", InterchangeField{&InterchangeTexts::noJson}},
      {"INTERCHANGE.OTHERJSON", InterchangeField{&InterchangeTexts::otherJson}},
      {"INTERCHANGE.VERSION", InterchangeField{&InterchangeTexts::otherVersion}},
      {"INTERCHANGE.FIELD", InterchangeField{&InterchangeTexts::badField}},
  };
  return rows;
}

}  // namespace zentab::texts
