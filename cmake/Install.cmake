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

# The program, and the fixture for tests, which needs GoogleTest: it has an export of its own.
set_target_properties(arxhost_program PROPERTIES EXPORT_NAME program
  INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
set_target_properties(arxhost_testing PROPERTIES EXPORT_NAME testing)
install(TARGETS arxhost_program EXPORT QmCADLibTargets RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS arxhost_testing qm_settings EXPORT QmCADLibTestingTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY host/testing/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/arxhost-testing FILES_MATCHING PATTERN "*.h")
target_include_directories(arxhost_testing PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/arxhost-testing>)
install(EXPORT QmCADLibTestingTargets NAMESPACE QmCADLib:: DESTINATION ${package_dir})

install(EXPORT QmCADLibTargets NAMESPACE QmCADLib:: DESTINATION ${package_dir})
configure_package_config_file(cmake/QmCADLibConfig.cmake.in ${CMAKE_BINARY_DIR}/QmCADLibConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/QmCADLibConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/QmCADLibConfig.cmake ${CMAKE_BINARY_DIR}/QmCADLibConfigVersion.cmake
  cmake/ArxModule.cmake cmake/ModuleVersion.cpp.in DESTINATION ${package_dir})
