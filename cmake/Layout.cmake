# Build tree and installed tree have one shape, so that both run in place and can be moved:
#   bin/vsk  lib/vskcore/libvskcore.so  lib/vskcore/data/  lib/vskcore/<plug-in>/
# libvskcore.so is for linkers: a link to libvskcore.so.<interface>, the name that programs load, and
# that one a link to the library under its full version.
# lib/ is fixed, not the multi-arch folder: the host finds the library by a relative path.
set(VSK_BIN_DIR bin)
set(VSK_CORE_DIR lib/vskcore)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${VSK_BIN_DIR})

# vsk_add_collector(NAME SOURCES...): a plug-in with its specification document beside it. Its folder
# also holds Register.cpp, the one source that only the plug-in itself may link: collector_NAME_parts
# is everything else, for tests. A plug-in in C has Register.c instead, and nothing of what those in
# C++ share.
function(vsk_add_collector name)
  set(register Register.cpp)
  set(base collector_common)
  if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/Register.c)
    set(register Register.c)
    set(base vskcore)
  endif()
  add_library(collector_${name}_parts OBJECT ${ARGN})
  target_link_libraries(collector_${name}_parts PUBLIC ${base} PRIVATE vsk_warnings)
  target_include_directories(collector_${name}_parts PUBLIC ${PROJECT_SOURCE_DIR}/collectors)
  add_library(collector_${name} MODULE ${register})
  target_link_libraries(collector_${name} PRIVATE collector_${name}_parts vsk_warnings)
  target_link_options(collector_${name} PRIVATE -Wl,--no-undefined)
  set_target_properties(collector_${name} PROPERTIES
    PREFIX "" OUTPUT_NAME ${name} SUFFIX .pi.so
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${VSK_CORE_DIR}/${name}
    BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "$ORIGIN/..")
  configure_file(${name}.properties.xml
    ${CMAKE_BINARY_DIR}/${VSK_CORE_DIR}/${name}/${name}.properties.xml COPYONLY)
  install(TARGETS collector_${name} LIBRARY DESTINATION ${VSK_CORE_DIR}/${name}
    COMPONENT collectors)
  install(FILES ${name}.properties.xml DESTINATION ${VSK_CORE_DIR}/${name} COMPONENT collectors)
endfunction()
