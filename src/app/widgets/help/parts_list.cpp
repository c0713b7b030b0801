#include "app/widgets/help/parts_list.h"

#include <hb.h>
#include <qcustomplot.h>

namespace zentab::app {

std::vector<QStringList> PartsOfProgram(const QString& compiler) {
  // The versions of what is linked are those that run now.
  return {
      {QStringLiteral("Zentab"), QStringLiteral(ZENTAB_VERSION), QStringLiteral("GPL-3+")},
      {QStringLiteral("Qt"), QLatin1String(qVersion()), QStringLiteral("LGPL-3")},
      {QStringLiteral("QCustomPlot"), QStringLiteral(QCUSTOMPLOT_VERSION_STR),
       QStringLiteral("GPL-3+")},
      {QStringLiteral("HarfBuzz"), QLatin1String(hb_version_string()), QStringLiteral("MIT")},
      {QStringLiteral("Boost.Math"), QStringLiteral(ZENTAB_BOOST), QStringLiteral("BSL-1.0")},
      {QStringLiteral("JSON for Modern C++"), QStringLiteral(ZENTAB_JSON), QStringLiteral("MIT")},
      {QStringLiteral("CLI11"), QStringLiteral(ZENTAB_CLI11), QStringLiteral("BSD-3-Clause")},
      {QStringLiteral("UTF8-CPP"), QStringLiteral(ZENTAB_UTF8CPP), QStringLiteral("BSL-1.0")},
      {compiler, QStringLiteral(ZENTAB_COMPILER), QString()},
  };
}

}  // namespace zentab::app
