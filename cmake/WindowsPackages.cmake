# The packages a cross-build for Windows needs: headers alone, and GoogleTest from its source.
set(ZENTAB_UTF8CPP /usr/include/utf8cpp CACHE PATH "Folder of utf8.h")
add_library(utf8cpp INTERFACE)
target_include_directories(utf8cpp SYSTEM INTERFACE ${ZENTAB_UTF8CPP})

if(ZENTAB_TESTS)
  set(ZENTAB_GOOGLETEST /usr/src/googletest CACHE PATH "Source folder of GoogleTest")
  set(BUILD_GMOCK OFF CACHE INTERNAL "")
  set(INSTALL_GTEST OFF CACHE INTERNAL "")
  add_subdirectory(${ZENTAB_GOOGLETEST} googletest EXCLUDE_FROM_ALL SYSTEM)
  if(NOT TARGET GTest::gtest_main)
    add_library(GTest::gtest_main ALIAS gtest_main)
  endif()
endif()
