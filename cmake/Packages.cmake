# The Debian packages, the program and the evaluator for programs of others: cpack -G DEB in a build
# folder of the preset "package".
set(CPACK_PACKAGE_NAME zentab)
set(CPACK_PACKAGE_VENDOR "The Zentab developers")
set(CPACK_PACKAGE_CONTACT "The Zentab developers <zentab@zentab.example>")
# Empty, as it would be the first line of each package's description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
"editor for operating-time curves of protection relays
Zentab keeps a library of relay operating-time curves and edits them in
a grid beside a chart. It imports the points that a test set has
measured, generates curves after IEC 60255 and IEEE C37.112, fits, thins
and assesses them, and hands a curve back to the test set as its
reference graph. zentab-cli does the same for scripts.")
set(CPACK_PACKAGE_FILE_NAME ${CPACK_PACKAGE_NAME})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL program mathparser)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME zentab)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "fonts-noto-cjk, qt6-translations-l10n")

set(evaluator_package libzentab-mathparser-dev)
set(CPACK_DEBIAN_MATHPARSER_PACKAGE_NAME ${evaluator_package})
set(CPACK_DEBIAN_MATHPARSER_DESCRIPTION
"expression evaluator, as a library for programs in C++
The evaluator of the relay curve editor Zentab compiles an equation once
and evaluates it as often as needed, for single values and for whole
series. It knows units and angles, comparisons that guard what they are
multiplied by, and special functions. The package holds the static
library, its headers and the files by which CMake finds it.")
set(CPACK_DEBIAN_MATHPARSER_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_MATHPARSER_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_MATHPARSER_PACKAGE_DEPENDS "libc6-dev, libstdc++-12-dev | libstdc++-dev")
set(CPACK_DEBIAN_MATHPARSER_PACKAGE_SUGGESTS "cmake (>= 3.25)")

# What Debian wants beside the files: the licence, and the changes as a Debian changelog.
set(doc ${CMAKE_BINARY_DIR}/debian)
file(MAKE_DIRECTORY ${doc})
configure_file(packaging/debian/copyright ${doc}/copyright COPYONLY)
# Now and not while building: the evaluator's component is installed without all the rest, too.
configure_file(packaging/debian/changelog ${doc}/changelog COPYONLY)
execute_process(COMMAND gzip --best --no-name --keep --force ${doc}/changelog
  COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${doc}/copyright ${doc}/changelog.gz
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zentab COMPONENT program)
install(FILES ${doc}/copyright ${doc}/changelog.gz docs/expressions.md docs/special-functions.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${evaluator_package} COMPONENT mathparser)

include(CPack)
