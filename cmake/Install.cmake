# What an installation holds. The editor looks for its catalogue beside itself, so it lives in a
# folder of its own, with links to where a system keeps programs and data.
include(GNUInstallDirs)
include(${PROJECT_SOURCE_DIR}/src/mathparser/install.cmake)
set(program_dir ${CMAKE_INSTALL_LIBDIR}/zentab)
set(data_dir ${CMAKE_INSTALL_DATADIR}/zentab)

# install_link(TARGET PATH): a link at PATH, both relative to the prefix.
function(install_link target path)
  get_filename_component(folder ${path} DIRECTORY)
  file(RELATIVE_PATH way /${folder} /${target})
  install(CODE "
    set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${path}\")
    get_filename_component(folder \"\${link}\" DIRECTORY)
    file(MAKE_DIRECTORY \"\${folder}\")
    file(CREATE_LINK \"${way}\" \"\${link}\" SYMBOLIC)" COMPONENT program)
endfunction()

# install_manual(FILE NAME): a manual page, packed.
function(install_manual file name)
  set(packed ${CMAKE_BINARY_DIR}/manual/${name})
  add_custom_command(OUTPUT ${packed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/manual
    COMMAND gzip --best --no-name --stdout ${PROJECT_SOURCE_DIR}/${file} > ${packed}
    DEPENDS ${file} VERBATIM)
  add_custom_target(manual_${name} ALL DEPENDS ${packed})
  install(FILES ${packed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
endfunction()

set(shells ${CMAKE_BINARY_DIR}/completion)
foreach(shell bash zsh)
  list(APPEND made COMMAND zentab-cli completion ${shell} > ${shells}/${shell})
endforeach()
add_custom_command(OUTPUT ${shells}/bash ${shells}/zsh
  COMMAND ${CMAKE_COMMAND} -E make_directory ${shells} ${made}
  DEPENDS zentab-cli VERBATIM)
add_custom_target(completion ALL DEPENDS ${shells}/bash ${shells}/zsh)

install(TARGETS zentab-cli RUNTIME COMPONENT program)
install(FILES ${shells}/bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
  RENAME zentab-cli COMPONENT program)
install(FILES ${shells}/zsh DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions
  RENAME _zentab-cli COMPONENT program)
install_manual(docs/zentab-cli.1 zentab-cli.1.gz)
install(DIRECTORY catalogues examples/installation DESTINATION ${data_dir} COMPONENT program)
# The guide refers to the documents one folder up.
file(GLOB documents ${PROJECT_SOURCE_DIR}/docs/*.md ${PROJECT_SOURCE_DIR}/docs/*.png)
install(FILES ${documents} DESTINATION ${data_dir}/docs COMPONENT program)
install(DIRECTORY docs/guide docs/waveforms DESTINATION ${data_dir}/docs COMPONENT program)
install_link(${data_dir}/docs/guide ${CMAKE_INSTALL_DATADIR}/doc/zentab/guide)
install(TARGETS CURR_API VOLT_API LIBRARY DESTINATION ${program_dir}/instruments
  COMPONENT program)

if(ZENTAB_GUI)
  set(id io.zentab.Zentab)
  install(TARGETS Zentab RUNTIME DESTINATION ${program_dir} COMPONENT program)
  install_link(${program_dir}/Zentab ${CMAKE_INSTALL_BINDIR}/zentab)
  install_link(${data_dir}/catalogues ${program_dir}/catalogues)
  install_link(${data_dir}/catalogues/Zentab.txt ${program_dir}/Zentab.txt)
  install_link(${data_dir}/installation ${program_dir}/demo)
  install_link(${data_dir}/docs/guide ${program_dir}/guide)
  install_manual(docs/Zentab.1 zentab.1.gz)
  install(FILES packaging/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
    COMPONENT program)
  install(FILES packaging/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
    COMPONENT program)
  install(FILES packaging/${id}.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
    RENAME ${id}.xml COMPONENT program)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES packaging/zentab.svg DESTINATION ${icons}/scalable/apps COMPONENT program)
  foreach(size 16 22 24 32 48 64 128 256)
    install(FILES packaging/icons/${size}/zentab.png DESTINATION ${icons}/${size}x${size}/apps
      COMPONENT program)
  endforeach()
endif()
