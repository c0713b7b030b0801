# Cross-compiles for Windows with Debian's MinGW; ZENTAB_WINDOWS_CPU is x86_64 or i686. The windows
# need ZENTAB_WINDOWS_LIBRARIES, what scripts/windows-libraries.sh has built.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${ZENTAB_WINDOWS_CPU})
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZENTAB_WINDOWS_CPU ZENTAB_WINDOWS_LIBRARIES)

# Of its two thread models the one that has the standard library's threads.
set(CMAKE_C_COMPILER ${ZENTAB_WINDOWS_CPU}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZENTAB_WINDOWS_CPU}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${ZENTAB_WINDOWS_CPU}-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${ZENTAB_WINDOWS_CPU}-w64-mingw32 ${ZENTAB_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs and modules run without any DLL of the compiler, and the same source gives the same bytes.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
endforeach()

# Debian's wine64 alone puts no command into the PATH.
find_program(wine NAMES wine64 wine wine64-stable HINTS /usr/lib/wine)
if(wine AND ZENTAB_WINDOWS_CPU STREQUAL x86_64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${wine})
elseif(wine)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine32.sh)
endif()
