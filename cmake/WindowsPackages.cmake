# The packages a cross-build for Windows needs: headers alone, and GoogleTest from its source.
set(ZENTAB_UTF8CPP /usr/include/utf8cpp CACHE PATH "Folder of utf8.h")
add_library(utf8cpp INTERFACE)
target_include_directories(utf8cpp SYSTEM INTERFACE ${ZENTAB_UTF8CPP})

# The others lie among the headers of this system, of which the compiler may see nothing else.
set(ZENTAB_HEADERS /usr/include CACHE PATH "Folder of CLI/CLI.hpp and nlohmann/json.hpp")
set(linked ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${linked})
foreach(library CLI nlohmann boost)
  file(CREATE_LINK ${ZENTAB_HEADERS}/${library} ${linked}/${library} SYMBOLIC)
endforeach()
foreach(target CLI11::CLI11 nlohmann_json::nlohmann_json Boost::headers)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${linked})
endforeach()

# Their versions are those of this system's packages.
function(zentab_version_of name)
  find_file(version_file ${name}ConfigVersion.cmake NO_CACHE REQUIRED NO_CMAKE_FIND_ROOT_PATH
    PATHS /usr/share/cmake/${name} /usr/lib/x86_64-linux-gnu/cmake/${name}
      /usr/lib/x86_64-linux-gnu/cmake/Boost-1.74.0)
  include(${version_file})
  set(${name}_VERSION ${PACKAGE_VERSION} PARENT_SCOPE)
endfunction()
foreach(package CLI11 nlohmann_json utf8cpp Boost)
  zentab_version_of(${package})
endforeach()
set(Boost_VERSION_STRING ${Boost_VERSION})

if(ZENTAB_TESTS)
  set(ZENTAB_GOOGLETEST /usr/src/googletest CACHE PATH "Source folder of GoogleTest")
  set(BUILD_GMOCK OFF CACHE INTERNAL "")
  set(INSTALL_GTEST OFF CACHE INTERNAL "")
  add_subdirectory(${ZENTAB_GOOGLETEST} googletest EXCLUDE_FROM_ALL SYSTEM)
  if(NOT TARGET GTest::gtest_main)
    add_library(GTest::gtest_main ALIAS gtest_main)
  endif()
endif()
