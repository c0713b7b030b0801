# What every target of the project shares: warnings as errors, the sanitizers when asked for.
add_library(zentab_options INTERFACE)
target_include_directories(zentab_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(MSVC)
  target_compile_options(zentab_options INTERFACE /W4 /WX /utf-8)
else()
  target_compile_options(zentab_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 reports overlapping copies inside std::string that cannot happen (its bug 105651).
  target_compile_options(zentab_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^i[3-6]86$" AND NOT MSVC)
  # The old coprocessor keeps more digits than a double has until a value is stored: sums and
  # products whose lower parts are computed apart would lose them.
  target_compile_options(zentab_options INTERFACE -msse2 -mfpmath=sse)
endif()
if(ZENTAB_SANITIZE)
  target_compile_options(zentab_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zentab_options INTERFACE -fsanitize=address,undefined)
endif()
if(ZENTAB_FUZZ)
  # Each target adds libFuzzer's own main; the rest is only watched by it.
  target_compile_options(zentab_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
    -fsanitize-coverage-ignorelist=${PROJECT_SOURCE_DIR}/fuzz/uncovered.txt)
  target_link_options(zentab_options INTERFACE -fsanitize=address,undefined)
endif()

include(Hardening)

# zentab_library(NAME SOURCES files... USES targets...): one layer of the program.
function(zentab_library name)
  zentab_layer(${name} ${ARGN})
  zentab_precompile_standard(${name})
endfunction()

# zentab_widgets(NAME SOURCES files... USES targets...): a layer's windows, the only Qt code.
function(zentab_widgets name)
  zentab_layer(${name} ${ARGN})
  zentab_precompile_qt(${name})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
endfunction()

function(zentab_layer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC zentab_options ${ARG_USES})
endfunction()
