# The library: QmCADLib.arx, made of the folders named here. Each folder sees the interface headers of
# the host and the folders below it, nothing else.

function(qm_library_folder path)
  string(REPLACE "/" "_" name ${path})
  qm_folder(lib_${name} ${CMAKE_SOURCE_DIR}/${path} ${ARGN})
  target_include_directories(lib_${name} PRIVATE
    $<TARGET_PROPERTY:arxhost,INTERFACE_INCLUDE_DIRECTORIES>)
  target_compile_definitions(lib_${name} PRIVATE _AFXEXT)
  set_target_properties(lib_${name} PROPERTIES CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

qm_library_folder(geometry/dense)
# The kernels of the matrix are the same everywhere, bit for bit: nothing is fused unless it says so.
target_compile_options(lib_geometry_dense PRIVATE -ffp-contract=off)
# These run after a look at the processor only; the look itself takes one instruction more.
set_source_files_properties(${CMAKE_SOURCE_DIR}/geometry/dense/TileAvx2.cpp PROPERTIES
  COMPILE_OPTIONS "-mavx2;-mfma")
set_source_files_properties(${CMAKE_SOURCE_DIR}/geometry/dense/TileAvx512.cpp PROPERTIES
  COMPILE_OPTIONS -mavx512f)
set_source_files_properties(${CMAKE_SOURCE_DIR}/geometry/dense/Processor.cpp PROPERTIES COMPILE_OPTIONS -mxsave)
qm_library_folder(geometry)

qm_library_folder(text)
# Runs after a look at the processor only.
set_source_files_properties(${CMAKE_SOURCE_DIR}/text/Utf8Blocks.cpp PROPERTIES COMPILE_OPTIONS -mssse3)

qm_library_folder(database)
# The descriptors of run-time classes are inline members that other modules ask for by name.
set_source_files_properties(${CMAKE_SOURCE_DIR}/database/AsdkBlockOrderFilter.cpp
  ${CMAKE_SOURCE_DIR}/database/AsdkBlockOrderIndex.cpp ${CMAKE_SOURCE_DIR}/frame/CArxComLibNewApp.cpp
  PROPERTIES COMPILE_OPTIONS -fno-visibility-inlines-hidden)
qm_library_folder(objects)
find_package(pugixml REQUIRED)
qm_library_folder(frame USES lib_text lib_database LINKS pugixml::pugixml)
qm_library_folder(entity USES lib_frame lib_geometry lib_objects lib_database)

set(QM_LIBRARY_FOLDERS database entity frame geometry objects text)
list(TRANSFORM QM_LIBRARY_FOLDERS PREPEND lib_ OUTPUT_VARIABLE folder_targets)
list(TRANSFORM folder_targets REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE folder_objects)
arx_add_module(QmCADLib ${folder_objects} $<TARGET_OBJECTS:lib_geometry_dense> VERSION ${PROJECT_VERSION}.0)
add_library(QmCADLib::QmCADLib ALIAS QmCADLib)
# The build's own run path would be padded with empty entries, which mean the current folder.
set_target_properties(QmCADLib PROPERTIES BUILD_WITH_INSTALL_RPATH ON)
target_link_libraries(QmCADLib PRIVATE qm_settings pugixml::pugixml)
target_include_directories(QmCADLib PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>)
foreach(folder IN LISTS QM_LIBRARY_FOLDERS)
  target_include_directories(QmCADLib PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/${folder}>)
endforeach()
