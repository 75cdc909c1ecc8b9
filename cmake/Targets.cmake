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

# What nearly every source includes of the standard library is read once for all folders, as the program's are compiled and as
# the others are. Each source still includes what it uses: builds where this is off hold them to it.
set(tavo_common_headers
  <algorithm> <array> <chrono> <cstdint> <filesystem> <functional> <map> <memory> <optional> <span> <string> <string_view>
  <unordered_map> <utility> <variant> <vector>)
# The compiler takes headers that it read so for the project's own: its false alarms about the standard library's copies of
# strings come through. The build without Qt has them on, and reads each header anew.
set(tavo_common_headers_options
  $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread>)

# tavo_common_headers(NAME [OPTION ...]): a target whose common headers others use that are compiled by the same options.
function(tavo_common_headers name)
  set(source ${CMAKE_BINARY_DIR}/common_headers.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE tavo_options)
  target_compile_options(${name} PRIVATE ${ARGN})
  target_precompile_headers(${name} PRIVATE ${tavo_common_headers})
endfunction()

if(TAVO_COMMON_HEADERS)
  tavo_common_headers(tavo_program_headers -fno-exceptions)
  tavo_common_headers(tavo_host_headers)
endif()

# tavo_use_common_headers(NAME FROM | HEADER...): spares NAME the reading of the common headers: by those of the target FROM, or
# by its own with HEADERs beside them.
function(tavo_use_common_headers name)
  if(NOT TAVO_COMMON_HEADERS)
    return()
  endif()
  target_compile_options(${name} PRIVATE ${tavo_common_headers_options})
  if(TARGET ${ARGV1})
    target_precompile_headers(${name} REUSE_FROM ${ARGV1})
  else()
    target_precompile_headers(${name} PRIVATE ${tavo_common_headers} ${ARGN})
  endif()
endfunction()

# tavo_plain_library(NAME [SOURCES ...] [LINKS ...]): a static library of one folder that reads its headers itself, as one must
# whose libraries ask for compiler options of their own.
function(tavo_plain_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tavo_options ${ARG_LINKS})
endfunction()

# tavo_library(NAME ...): the same, with the common headers.
function(tavo_library name)
  tavo_plain_library(${name} ${ARGN})
  tavo_use_common_headers(${name} tavo_host_headers)
endfunction()

# The program and the framework throw nothing, and the compiler holds them to it.
function(tavo_program_library name)
  tavo_plain_library(${name} ${ARGN})
  target_compile_options(${name} PRIVATE -fno-exceptions)
  tavo_use_common_headers(${name} tavo_program_headers)
endfunction()

# What nearly every test includes is read once for all tests, and once more for those with Qt, whose code is compiled to be
# moved. Each source still includes what it uses: the clang build, where this is off, holds them to it.
set(tavo_test_headers
  <gmock/gmock.h> <gtest/gtest.h>
  <algorithm> <array> <chrono> <cstdint> <filesystem> <fstream> <functional> <map> <memory> <optional> <random> <string>
  <string_view> <utility> <vector>)
# What is tested is optimised as it is used; the tests themselves are run once for each time they are compiled.
set(tavo_test_options -pthread $<$<CONFIG:Release>:-O0>)

# tavo_test_headers(NAME [LIBRARY ...])
function(tavo_test_headers name)
  set(source ${CMAKE_BINARY_DIR}/common_headers_main.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "int main() {}\n")
  add_executable(${name} EXCLUDE_FROM_ALL ${source}) # compiled as the tests are
  target_link_libraries(${name} PRIVATE tavo_options GTest::gtest GTest::gmock ${ARGN})
  target_compile_options(${name} PRIVATE ${tavo_test_options})
  target_precompile_headers(${name} PRIVATE ${tavo_test_headers})
endfunction()

# tavo_precompile_for_tests(NAME LIBRARY...): by what the test links to.
function(tavo_precompile_for_tests name)
  set(kind plain)
  if("${ARGN}" MATCHES "_qt|Qt6")
    set(kind qt)
  endif()
  if(NOT TARGET tavo_plain_test_headers)
    tavo_test_headers(tavo_plain_test_headers)
    if(TAVO_QT)
      tavo_test_headers(tavo_qt_test_headers Qt6::Core)
    endif()
  endif()
  target_precompile_headers(${name} REUSE_FROM tavo_${kind}_test_headers)
endfunction()

# tavo_test(NAME [COMPUTES] [ENVIRONMENT NAME=VALUE] [SOURCES ...] [LINKS ...]): a GoogleTest program; each of its tests is one
# ctest test. One that COMPUTES much itself is optimised.
function(tavo_test name)
  cmake_parse_arguments(ARG "COMPUTES" "ENVIRONMENT" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tavo_options ${ARG_LINKS} GTest::gtest GTest::gmock GTest::gtest_main)
  if(ARG_COMPUTES)
    target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O1>)
    target_precompile_headers(${name} PRIVATE ${tavo_test_headers})
  else()
    target_compile_options(${name} PRIVATE ${tavo_test_options})
    tavo_precompile_for_tests(${name} ${ARG_LINKS})
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 600 ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()
