# orv_library(<name> SOURCES <file>... [USES <library>...])
# One static library for a product folder. USES names the libraries whose headers and code it needs.
function(orv_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC orv_options ${ARG_USES})
  orv_reproducible(${name})
endfunction()

# What nearly every test includes, compiled once for all test programs. A compiler cache does better with
# the plain sources.
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(precompile OFF)
else()
  set(precompile ON)
endif()
option(ORV_PRECOMPILE_TESTS "Precompile the headers that the tests share" ${precompile})

function(orv_test_options name)
  # Tests wait for compilers far longer than for themselves.
  target_compile_options(${name} PRIVATE $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-O1>)
  if(NOT ORV_PRECOMPILE_TESTS)
    return()
  endif()
  if(NOT TARGET orv_test_headers)
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/orv_test_headers.cpp CONTENT "// only its headers count\n")
    add_library(orv_test_headers STATIC ${CMAKE_BINARY_DIR}/orv_test_headers.cpp)
    target_link_libraries(orv_test_headers PRIVATE orv_options GTest::gtest GTest::gmock)
    target_precompile_headers(orv_test_headers PRIVATE ${CMAKE_SOURCE_DIR}/base/windows.h
      <gmock/gmock.h> <gtest/gtest.h> <functional> <map> <memory> <string> <thread> <vector>)
    target_compile_options(orv_test_headers PRIVATE
      $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-O1>)
  endif()
  target_precompile_headers(${name} REUSE_FROM orv_test_headers)
endfunction()

# Seconds after which a test program hangs, also on a machine that compiles meanwhile.
set(ORV_TEST_TIMEOUT 600)

# Where a test program runs: in the build tree's Wine prefix, or in a slot of `./dev test`.
function(orv_run_under_wine name)
  set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR ${CMAKE_SOURCE_DIR}/tools/under-wine)
endfunction()

# orv_test(<name> SOURCES <file>... USES <library>... [SECONDS <number>])
# One test program, run as one process. Its name is its folder below tests/, a word more where the folder has
# several, and "test", joined by "_": tests/system/flow has system_flow_test and system_flow_disk_test. SECONDS is how long a program of more than 20 seconds takes: those
# start first.
function(orv_test name)
  cmake_parse_arguments(ARG "" "SECONDS" "SOURCES;USES" ${ARGN})
  file(RELATIVE_PATH folder ${CMAKE_SOURCE_DIR}/tests ${CMAKE_CURRENT_SOURCE_DIR})
  string(REPLACE "/" "_" folder ${folder})
  if(NOT name MATCHES "^${folder}(_[a-z0-9]+)*_test$")
    message(FATAL_ERROR "the test program ${name} is not named after its folder: ${folder}_test")
  endif()
  if(NOT ARG_SECONDS)
    set(ARG_SECONDS 0)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE orv_options ${ARG_USES} GTest::gtest GTest::gmock)
  orv_test_options(${name})
  if(MINGW)
    target_link_options(${name} PRIVATE -static)
    orv_run_under_wine(${name})
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ORV_TEST_TIMEOUT} COST ${ARG_SECONDS}
    WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
endfunction()
