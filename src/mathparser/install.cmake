# What a program of somebody else needs of the evaluator: the component "mathparser".
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
set(name ZentabMathParser)
set(folder ${CMAKE_INSTALL_LIBDIR}/cmake/${name})

install(TARGETS zentab_mathparser EXPORT ${name}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT mathparser
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zentab COMPONENT mathparser)
install(EXPORT ${name} NAMESPACE Zentab:: FILE ${name}Config.cmake DESTINATION ${folder}
  COMPONENT mathparser)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake DESTINATION ${folder}
  COMPONENT mathparser)
