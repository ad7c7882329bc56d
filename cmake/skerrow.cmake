# Flags shared by every target of ours. No fast-math and no fused contraction: the same input gives
# the same bits on every machine.
add_library(skerrow_flags INTERFACE)
target_compile_options(skerrow_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off)
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
  set(CMAKE_CXX_COMPILER_LAUNCHER ${SKERROW_CCACHE})
endif()

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
