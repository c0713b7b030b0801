# Headers of others that are read once a build instead of once a file: a matter of speed alone. Each
# file still includes what it uses, which clang-tidy, the fuzz targets and release builds see: they
# go without, the last because GCC 12 optimises such headers into warnings that are wrong.
# A large one costs every file that does not need it: no umbrella headers, and no CLI11, whose
# templates each file would instantiate.

# zentab_precompile(KIND TARGET HEADERS headers... [USES targets...]): the targets of a kind, which
# must be compiled with the same options, share what the first of them brings about.
function(zentab_precompile kind target)
  cmake_parse_arguments(ARG "" "" "HEADERS;USES" ${ARGN})
  set(maker zentab_${kind}_headers)
  if(NOT TARGET ${maker})
    set(empty ${PROJECT_BINARY_DIR}/${maker}.cpp)
    file(CONFIGURE OUTPUT ${empty} CONTENT "")
    add_library(${maker} OBJECT ${empty})
    target_link_libraries(${maker} PRIVATE zentab_options ${ARG_USES})
    target_precompile_headers(${maker} PRIVATE ${ARG_HEADERS})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${maker})
endfunction()

function(zentab_precompile_standard target)
  zentab_precompile(standard ${target}
    HEADERS <algorithm> <array> <filesystem> <functional> <optional> <string> <string_view>
      <system_error> <vector>)
endfunction()

# For what lies in a folder named "widgets" or "windows" alone.
function(zentab_precompile_qt target)
  if(NOT CMAKE_CURRENT_SOURCE_DIR MATCHES "/(widgets|windows)$")
    message(FATAL_ERROR "${target} lies where Qt must not be seen")
  endif()
  zentab_precompile(qt ${target}
    HEADERS <QApplication> <QDir> <QGridLayout> <QLabel> <QLineEdit> <QListView> <QMainWindow>
      <QPushButton> <QStatusBar> <QTimer> <algorithm> <filesystem> <functional> <memory> <optional>
      <string> <vector>
    USES Qt6::Widgets)
endfunction()

# For the tests of the windows, which all see the chart.
function(zentab_precompile_window_test target)
  zentab_precompile(window_test ${target}
    HEADERS <qcustomplot.h> <QAbstractItemModelTester> <QAction> <QApplication> <QDir> <QFile>
      <QLabel> <QListView> <QMenu> <QMimeData> <QPrinter> <QTableView> <QTemporaryDir> <QTest>
      <QTimer> <algorithm> <filesystem> <functional> <map> <memory> <optional> <regex> <variant>
      <vector>
    USES Qt6::Widgets Qt6::PrintSupport Qt6::Test QCustomPlotQt6::QCustomPlotQt6)
endfunction()

function(zentab_precompile_googletest target)
  zentab_precompile(googletest ${target}
    HEADERS <gtest/gtest.h> <algorithm> <filesystem> <fstream> <sstream>
    USES GTest::gtest)
endfunction()
