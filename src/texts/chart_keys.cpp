#include "texts/key_table.h"

namespace zentab::texts {
namespace {}  // namespace

const std::vector<KeyRow>& ChartRows() {
  static const std::vector<KeyRow> rows = {
      {"F1.MENU.2.AXES", Caption{"m_axes"}, kExpanded},
      {"F1.MENU.2.LOG.LOAD", Caption{"m_logload"}, kExpanded},
      {"F1.MENU.2.LOG.TIME", Caption{"m_logtime"}, kExpanded},
      {"F1.MENU.2.SQUARE", Caption{"m_square"}, kExpanded},
      {"F1.MENU.2.UNIT.GRID", Caption{"m_unitgrid"}, kExpanded},
      {"F1.MENU.2.UNIT.MULTIPLES", Caption{"m_unitmult"}, kExpanded},
      {"F1.MENU.2.UNIT.ABSOLUTE", Caption{"m_unitabs"}, kExpanded},
      {"F1.MENU.2.PICKUP", Caption{"m_pickup"}, kExpanded},
      {"F1.MENU.2.LIMITS", Caption{"m_limits"}, kExpanded},
      {"F1.MENU.2.COLOURS", Caption{"m_colours"}, kExpanded},
      {"F1.MENU.2.COLOURS.SYSTEM", Caption{"m_colsystem"}, kExpanded},
      {"F1.MENU.2.COLOURS.LIGHT", Caption{"m_collight"}, kExpanded},
      {"F1.MENU.2.COLOURS.DARK", Caption{"m_coldark"}, kExpanded},
      {"F1.MENU.2.LANGUAGE", Caption{"m_language"}, kExpanded},
      {"F1.MENU.2.LANGUAGE.INSTALLED", Caption{"m_langinstalled"}, kExpanded},
      {"CHART.PICKUP.LINE", ChartField{&ChartTexts::pickupLine}},
      {"F1.MENU.2.MARKER.A", Caption{"m_marka"}, kExpanded},
      {"F1.MENU.2.MARKER.B", Caption{"m_markb"}, kExpanded},
      {"F1.MENU.2.MARKER.NONE", Caption{"m_marknone"}, kExpanded},
      {"CHART.POINT", ChartField{&ChartTexts::point}},
      {"CHART.MULTIPLES", ChartField{&ChartTexts::multiples}},
      {"CHART.ABSOLUTE", ChartField{&ChartTexts::absolute}},
      {"CHART.NO.TIME", ChartField{&ChartTexts::noTime}},
      {"F1.MENU.2.COMPARE", Caption{"m_compare"}, kExpanded},
      {"F1.MENU.2.COMPARE.ENTRY", Caption{"m_cmpentry"}, kExpanded},
      {"F1.MENU.2.COMPARE.FILE", Caption{"m_cmpfile"}, kExpanded},
      {"F1.MENU.2.COMPARE.DIFFERENCE", Caption{"m_difference"}, kExpanded},
      {"F1.MENU.2.COMPARE.NONE", Caption{"m_cmpnone"}, kExpanded},
      {"LEGEND.MENU.REFERENCE", Caption{"m_reference"}, kExpanded},
      {"LEGEND.MENU.REMOVE", Caption{"m_cmpremove"}, kExpanded},
      {"LEGEND.SPOKEN", SpokenName{"ListLegend"}, kExpanded},
      {"LEGEND.TIP", Tooltip{"ListLegend"}, kExpanded},
      {"LEGEND.GRID", ChartField{&ChartTexts::gridCurve}},
      {"LEGEND.NO.PICKUP", ChartField{&ChartTexts::noPickup}},
      {"LEGEND.NO.CURVE", ChartField{&ChartTexts::noCurve}},
      {"LEGEND.REFERENCE", ChartField{&ChartTexts::reference}},
      {"CHART.DIFFERENCE", ChartField{&ChartTexts::difference}},
      {"CHART.CHOOSE.CURVES", ChartField{&ChartTexts::chooseCurves}},
      {"CHART.LIMITS.HEAD", ChartField{&ChartTexts::limitsTitle}},
      {"CHART.LIMITS.FROM", ChartField{&ChartTexts::limitsFrom}},
      {"CHART.LIMITS.TO", ChartField{&ChartTexts::limitsTo}},
      {"CHART.LIMITS.HINT", ChartField{&ChartTexts::limitsHint}},
  };
  return rows;
}

}  // namespace zentab::texts
