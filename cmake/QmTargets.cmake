# The settings that every target of ours shares, and the helper that makes a folder a target.

add_library(qm_settings INTERFACE)
target_compile_features(qm_settings INTERFACE cxx_std_17)
target_compile_definitions(qm_settings INTERFACE UNICODE _UNICODE)
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
