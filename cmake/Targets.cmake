# How every target of the project is compiled.

add_library(tavo_options INTERFACE)
target_include_directories(tavo_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(tavo_options INTERFACE -Wall -Wextra -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Version 12 takes the standard library's own string concatenation for an overlapping copy.
  target_compile_options(tavo_options INTERFACE -Wno-restrict)
endif()
if(TAVO_WERROR)
  target_compile_options(tavo_options INTERFACE -Werror)
endif()
if(TAVO_SANITIZE)
  target_compile_options(tavo_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(tavo_options INTERFACE -fsanitize=address,undefined)
endif()
if(TAVO_FUZZ)
  target_compile_options(tavo_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# tavo_library(NAME [SOURCES ...] [LINKS ...]): a static library of one folder.
function(tavo_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tavo_options ${ARG_LINKS})
endfunction()

# The program and the framework throw nothing, and the compiler holds them to it.
function(tavo_program_library name)
  tavo_library(${name} ${ARGN})
  target_compile_options(${name} PRIVATE -fno-exceptions)
endfunction()

# tavo_precompile_for_tests(NAME SOURCE...): reads what nearly every test includes once for the whole target. Each source
# still includes what it uses: the clang build, where this is off, holds them to it.
function(tavo_precompile_for_tests name)
  list(LENGTH ARGN sources)
  if(sources GREATER 3)
    target_precompile_headers(${name} PRIVATE
      <gmock/gmock.h> <gtest/gtest.h>
      <algorithm> <array> <chrono> <cstdint> <filesystem> <fstream> <functional> <map> <memory> <optional> <random> <string>
      <string_view> <utility> <vector>)
  endif()
endfunction()

# tavo_test(NAME [ENVIRONMENT NAME=VALUE] [SOURCES ...] [LINKS ...]): a GoogleTest program; each of its tests is one ctest test.
function(tavo_test name)
  cmake_parse_arguments(ARG "" "ENVIRONMENT" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tavo_options ${ARG_LINKS} GTest::gtest GTest::gmock GTest::gtest_main)
  # What is tested is optimised as it is used; the tests themselves are run once for each time they are compiled.
  target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
  tavo_precompile_for_tests(${name} ${ARG_SOURCES})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 600 ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()
