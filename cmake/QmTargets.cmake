# The settings that every target of ours shares, and the helper that makes a folder a target.

# What every client of the headers needs too.
add_library(qm_interface INTERFACE)
add_library(QmCADLib::qm_interface ALIAS qm_interface)
target_compile_features(qm_interface INTERFACE cxx_std_17)
target_compile_definitions(qm_interface INTERFACE UNICODE _UNICODE)

add_library(qm_settings INTERFACE)
target_link_libraries(qm_settings INTERFACE qm_interface)
target_compile_options(qm_settings INTERFACE -Wall -Wextra -Werror)
if(QM_SANITIZE)
  target_compile_options(qm_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(qm_settings INTERFACE -fsanitize=address,undefined)
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# qm_folder(NAME DIR [USES target...] [LINKS library...])
# Makes the sources directly in DIR the object library NAME. It sees its own folder, the public
# headers in DIR/include if there are any, and what the folders named under USES make public: an
# include that goes against the direction between folders does not compile. LINKS are private.
function(qm_folder name dir)
  cmake_parse_arguments(arg "" "" "USES;LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${dir}/*.cpp)
  if(NOT sources)
    message(FATAL_ERROR "no sources in ${dir}")
  endif()
  add_library(${name} OBJECT ${sources})
  target_include_directories(${name} PRIVATE ${dir})
  if(EXISTS ${dir}/include)
    target_include_directories(${name} PUBLIC ${dir}/include)
  else()
    target_include_directories(${name} PUBLIC ${dir})
  endif()
  target_link_libraries(${name} PUBLIC qm_settings PRIVATE ${arg_LINKS})
  foreach(used IN LISTS arg_USES)
    target_include_directories(${name} PUBLIC
      $<TARGET_PROPERTY:${used},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
endfunction()
