# Flags shared by every target of ours. No fast-math and no fused contraction: the same input gives
# the same bits on every machine.
add_library(skerrow_flags INTERFACE)
target_compile_options(skerrow_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off)
if(SKERROW_PRECOMPILE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # With this ccache keeps what is compiled on precompiled headers.
  target_compile_options(skerrow_flags INTERFACE -fpch-preprocess)
endif()
# GCC 12 sees overlapping copies in std::string where there are none (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(skerrow_flags INTERFACE -Wno-restrict)
endif()
# Warnings that a newer compiler than the one tried finds are shown and do not stop a user's build.
if(SKERROW_WERROR AND (NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" OR
                       CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13))
  target_compile_options(skerrow_flags INTERFACE -Werror)
endif()
if(SKERROW_SANITIZE)
  target_compile_options(skerrow_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(skerrow_flags INTERFACE -fsanitize=address,undefined)
endif()
find_program(SKERROW_MOLD mold)
if(SKERROW_MOLD)
  target_link_options(skerrow_flags INTERFACE -fuse-ld=mold)
endif()
find_program(SKERROW_CCACHE ccache)
if(SKERROW_CCACHE)
  # A checkout elsewhere finds the same objects; the sloppiness is what precompiled headers need.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_SLOPPINESS=pch_defines,time_macros
    ${SKERROW_CCACHE})
endif()

# skerrow_headers(NAME LIBRARIES <L>... HEADERS <H>...): headers that are read once for all the
# targets that skerrow_precompiled gives them to.
function(skerrow_headers name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES;HEADERS")
  file(WRITE ${CMAKE_BINARY_DIR}/${name}.cpp "")
  add_library(${name} STATIC ${CMAKE_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE skerrow_flags ${arg_LIBRARIES})
  target_precompile_headers(${name} PRIVATE
    <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <span> <string>
    <string_view> <utility> <vector> ${arg_HEADERS})
endfunction()

# skerrow_precompiled(HEADERS TARGET...)
function(skerrow_precompiled headers)
  if(NOT SKERROW_PRECOMPILE)
    return()
  endif()
  foreach(target IN LISTS ARGN)
    target_precompile_headers(${target} REUSE_FROM ${headers})
    # Bug 105651 again: in a precompiled header the library's own headers are not exempt.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      target_compile_options(${target} PRIVATE -Wno-stringop-overflow -Wno-array-bounds)
    endif()
  endforeach()
endfunction()

# skerrow_library(NAME FLOOR_BELOW...): the library of folder src/NAME. It links only the folders
# named, so that an include from a higher floor fails to compile or to link.
function(skerrow_library name)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  add_library(skerrow_${name} STATIC ${sources})
  target_include_directories(skerrow_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(skerrow_${name} PRIVATE skerrow_flags)
  foreach(below IN LISTS ARGN)
    target_link_libraries(skerrow_${name} PUBLIC skerrow_${below})
  endforeach()
endfunction()

# skerrow_moc(TARGET): runs Qt's compiler over the target's headers. A header that came to the list
# after the first build is not seen by CMake 3.25, which a missing time stamp makes look again.
function(skerrow_moc target)
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  get_target_property(sources ${target} SOURCES)
  if(NOT "${sources}" STREQUAL "${skerrow_${target}_sources}")
    file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp)
    set(skerrow_${target}_sources "${sources}" CACHE INTERNAL "what ${target} is made of")
  endif()
endfunction()
