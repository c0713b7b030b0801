# Compiles through ccache where it is installed; another launcher that was asked for stays. The paths
# of this checkout are taken as relative to it, so that a fresh clone finds what an older one left.
find_program(ZENTAB_CCACHE ccache)
mark_as_advanced(ZENTAB_CCACHE)
set(launcher "${CMAKE_CXX_COMPILER_LAUNCHER}")
if(ZENTAB_CCACHE AND (launcher STREQUAL "" OR launcher STREQUAL ccache))
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}
    CCACHE_NOHASHDIR=1
    # Takes the headers from the compiler instead of preprocessing each file once more.
    CCACHE_DEPEND=1
    # What precompiled headers need; no file here writes the time of its compilation.
    CCACHE_SLOPPINESS=pch_defines,time_macros
    # Read by clang but not seen by ccache.
    CCACHE_EXTRAFILES=${PROJECT_SOURCE_DIR}/fuzz/uncovered.txt
    ${ZENTAB_CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
  endif()
endif()
