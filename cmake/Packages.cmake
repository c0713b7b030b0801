# The Debian package: cpack -G DEB in a build folder of the preset "package".
set(CPACK_PACKAGE_NAME zentab)
set(CPACK_PACKAGE_VENDOR "The Zentab developers")
set(CPACK_PACKAGE_CONTACT "The Zentab developers <zentab@zentab.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for operating-time curves of protection relays")
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
"Zentab keeps a library of relay operating-time curves and edits them in
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
set(CPACK_COMPONENTS_ALL program)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME zentab)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, qt6-translations-l10n")

# What Debian wants beside the files: the licence, and the changes as a Debian changelog.
set(doc ${CMAKE_BINARY_DIR}/debian)
file(MAKE_DIRECTORY ${doc})
configure_file(packaging/debian/copyright ${doc}/copyright COPYONLY)
file(READ ${PROJECT_SOURCE_DIR}/packaging/debian/changelog changes)
file(WRITE ${doc}/changelog "${changes}")
add_custom_command(OUTPUT ${doc}/changelog.gz
  COMMAND gzip --best --no-name --keep --force ${doc}/changelog
  DEPENDS ${PROJECT_SOURCE_DIR}/packaging/debian/changelog VERBATIM)
add_custom_target(debian_changelog ALL DEPENDS ${doc}/changelog.gz)
install(FILES ${doc}/copyright ${doc}/changelog.gz
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zentab COMPONENT program)

include(CPack)
