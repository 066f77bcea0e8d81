# What a module's author gets: the module, the host, their headers and a CMake package.
#   find_package(QmCADLib REQUIRED)
#   arx_add_module(MyModule MyModule.cpp)
#   target_link_libraries(MyModule PRIVATE QmCADLib::QmCADLib)

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QmCADLib)

install(TARGETS arxhost QmCADLib qm_interface EXPORT QmCADLibTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(folder win32 mfc qmbase ge rx db br ed)
  install(DIRECTORY host/${folder}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/arxhost)
endforeach()
target_include_directories(arxhost PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/arxhost>)

# The public headers of the library are those that QmCADLib.h includes; the others are its own.
file(STRINGS QmCADLib.h includes REGEX "^#include \"")
foreach(include IN LISTS includes)
  string(REGEX REPLACE "#include \"(.*)\".*" "\\1" header "${include}")
  foreach(folder IN LISTS QM_LIBRARY_FOLDERS)
    if(EXISTS ${CMAKE_SOURCE_DIR}/${folder}/${header})
      install(FILES ${folder}/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/QmCADLib)
    endif()
  endforeach()
endforeach()
install(FILES QmCADLib.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/QmCADLib)
target_include_directories(QmCADLib PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/QmCADLib>)

install(EXPORT QmCADLibTargets NAMESPACE QmCADLib:: DESTINATION ${package_dir})
configure_package_config_file(cmake/QmCADLibConfig.cmake.in ${CMAKE_BINARY_DIR}/QmCADLibConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/QmCADLibConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/QmCADLibConfig.cmake ${CMAKE_BINARY_DIR}/QmCADLibConfigVersion.cmake
  cmake/ArxModule.cmake cmake/ModuleVersion.cpp.in DESTINATION ${package_dir})
