# arx_add_module(NAME sources... [VERSION a.b.c.d])
# Builds NAME.arx: a module with the exports of an ObjectARX application, linked against the host.
# VERSION becomes the file version that GetFileVersionInfoW reports.
function(arx_add_module name)
  cmake_parse_arguments(arg "" "VERSION" "" ${ARGN})
  add_library(${name} SHARED ${arg_UNPARSED_ARGUMENTS})
  set_target_properties(${name} PROPERTIES
    PREFIX "" SUFFIX ".arx" CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    BUILD_RPATH_USE_ORIGIN ON INSTALL_RPATH "$ORIGIN;$ORIGIN/../lib")
  target_link_libraries(${name} PUBLIC QmCADLib::arxhost)
endfunction()
