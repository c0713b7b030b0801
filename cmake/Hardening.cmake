# A fault that got past the tests ends the program instead of being made use of: the standard
# library's own checks everywhere, in what is released also guarded stacks, checked copies, and
# addresses that are chosen anew at each start and are read-only from then on.
# scripts/check-hardening.sh looks for all of it in what was built.
if(MSVC)
  return()
endif()
target_compile_definitions(zentab_options INTERFACE _GLIBCXX_ASSERTIONS)
if(ZENTAB_SANITIZE OR ZENTAB_FUZZ)
  return()
endif()

set(released $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
target_compile_options(zentab_options INTERFACE
  $<${released}:-fstack-protector-strong>
  $<${released}:-U_FORTIFY_SOURCE>
  $<${released}:-D_FORTIFY_SOURCE=2>)
if(MINGW)
  # Nothing tells where the program was built.
  target_compile_options(zentab_options INTERFACE
    $<${released}:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)
  # The guard of the stack is in a library of its own there.
  target_link_options(zentab_options INTERFACE
    $<${released}:-fstack-protector-strong> -Wl,--nxcompat,--dynamicbase)
else()
  # What goes into modules is compiled for any place already.
  set(in_program $<NOT:$<BOOL:$<TARGET_PROPERTY:POSITION_INDEPENDENT_CODE>>>)
  set(is_program $<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>)
  target_compile_options(zentab_options INTERFACE $<$<AND:${released},${in_program}>:-fPIE>)
  target_link_options(zentab_options INTERFACE
    $<$<AND:${released},${is_program}>:-pie>
    $<${released}:LINKER:-z,relro,-z,now,-z,noexecstack>)
endif()
