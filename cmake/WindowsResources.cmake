# What Windows shows of a program or module, and how it runs it: version, icon and manifest.

# windows_resources(TARGET DESCRIPTION): nothing for other systems.
function(windows_resources name description)
  if(NOT WIN32)
    return()
  endif()
  enable_language(RC)
  set(packaging ${PROJECT_SOURCE_DIR}/packaging/windows)
  get_target_property(type ${name} TYPE)
  set(kind VFT_DLL)
  set(file ${name}.DLL)
  if(type STREQUAL EXECUTABLE)
    set(kind VFT_APP)
    set(file ${name}.exe)
    set(manifest "1 24 \"${packaging}/zentab.manifest\"")
    set(icon "1 ICON \"${packaging}/zentab.ico\"")
  endif()
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  configure_file(${packaging}/program.rc.in ${resources} @ONLY)
  set_property(SOURCE ${resources} APPEND PROPERTY
    OBJECT_DEPENDS ${packaging}/zentab.manifest ${packaging}/zentab.ico)
  target_sources(${name} PRIVATE ${resources})
endfunction()
