# The library: QmCADLib.arx, made of the folders named here. Each folder sees the interface headers of
# the host and the folders below it, nothing else.

function(qm_library_folder name)
  qm_folder(lib_${name} ${CMAKE_SOURCE_DIR}/${name} ${ARGN})
  target_include_directories(lib_${name} PRIVATE
    $<TARGET_PROPERTY:arxhost,INTERFACE_INCLUDE_DIRECTORIES>)
  target_compile_definitions(lib_${name} PRIVATE _AFXEXT)
  set_target_properties(lib_${name} PROPERTIES CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

qm_library_folder(text)
# Runs after a look at the processor only.
set_source_files_properties(${CMAKE_SOURCE_DIR}/text/Utf8Blocks.cpp PROPERTIES COMPILE_OPTIONS -mssse3)

set(QM_LIBRARY_FOLDERS text)
list(TRANSFORM QM_LIBRARY_FOLDERS PREPEND lib_ OUTPUT_VARIABLE folder_targets)
list(TRANSFORM folder_targets REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE folder_objects)
arx_add_module(QmCADLib ${folder_objects} VERSION ${PROJECT_VERSION}.0)
add_library(QmCADLib::QmCADLib ALIAS QmCADLib)
# The build's own run path would be padded with empty entries, which mean the current folder.
set_target_properties(QmCADLib PROPERTIES BUILD_WITH_INSTALL_RPATH ON)
target_link_libraries(QmCADLib PRIVATE qm_settings)
target_include_directories(QmCADLib PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>)
foreach(folder IN LISTS QM_LIBRARY_FOLDERS)
  target_include_directories(QmCADLib PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/${folder}>)
endforeach()
