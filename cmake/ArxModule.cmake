# arx_add_module(NAME sources... [VERSION a.b.c.d])
# Builds NAME.arx: a module with the exports of an ObjectARX application, linked against the host.
# VERSION (four numbers, each up to 65535) becomes the file version that GetFileVersionInfoW reports.
function(arx_add_module name)
  cmake_parse_arguments(arg "" "VERSION" "" ${ARGN})
  add_library(${name} SHARED ${arg_UNPARSED_ARGUMENTS})
  set_target_properties(${name} PROPERTIES
    PREFIX "" SUFFIX ".arx" CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    INSTALL_RPATH "$ORIGIN;$ORIGIN/../lib")
  target_link_libraries(${name} PUBLIC QmCADLib::arxhost)
  if(DEFINED arg_VERSION)
    arx_module_version(${name} ${arg_VERSION})
  endif()
endfunction()

# arx_module_version(NAME a.b.c.d)
# Compiles the version information into the module NAME.
function(arx_module_version arx_module arx_version)
  if(NOT arx_version MATCHES "^([0-9]+)\\.([0-9]+)\\.([0-9]+)\\.([0-9]+)$")
    message(FATAL_ERROR "${arx_module}: VERSION is four numbers, a.b.c.d, and not '${arx_version}'")
  endif()
  set(arx_major ${CMAKE_MATCH_1})
  set(arx_minor ${CMAKE_MATCH_2})
  set(arx_patch ${CMAKE_MATCH_3})
  set(arx_tweak ${CMAKE_MATCH_4})
  foreach(number ${arx_major} ${arx_minor} ${arx_patch} ${arx_tweak})
    if(number GREATER 65535)
      message(FATAL_ERROR "${arx_module}: a number of VERSION ${arx_version} is above 65535")
    endif()
  endforeach()
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${arx_module}_version.cpp)
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/ModuleVersion.cpp.in ${source} @ONLY)
  target_sources(${arx_module} PRIVATE ${source})
endfunction()
