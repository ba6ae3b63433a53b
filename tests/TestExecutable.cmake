# tn_add_test_executable(NAME SOURCES source... LIBRARIES library... [SHARDS n])
#
# Builds a GoogleTest program NAME_tests that ctest runs as one test, since starting a process under Wine is slow, or as
# n tests with a part of the cases each, so that a long program keeps more than one processor busy. The results of the
# cases are left in results/NAME_tests.xml below the build folder, or in NAME_1_tests.xml and so on.

if(WIN32)
    set(TNGRAPHICS_GOOGLETEST_SOURCE_DIR /usr/src/googletest CACHE PATH "The sources of GoogleTest")
    set(BUILD_GMOCK OFF)
    set(INSTALL_GTEST OFF)
    add_subdirectory("${TNGRAPHICS_GOOGLETEST_SOURCE_DIR}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
else()
    find_package(GTest REQUIRED)
endif()

set(TNGRAPHICS_TEST_LAUNCHER ${CMAKE_CROSSCOMPILING_EMULATOR} CACHE STRING
    "The program, with its first arguments, that runs the test programs")

set(TNGRAPHICS_RESULTS_DIR "${PROJECT_BINARY_DIR}/results")
file(MAKE_DIRECTORY "${TNGRAPHICS_RESULTS_DIR}")

function(tn_add_test_executable name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "SHARDS" "SOURCES;LIBRARIES")

    add_executable(${name} ${test_SOURCES})
    target_link_libraries(${name} PRIVATE ${test_LIBRARIES} TnCompilerSettings GTest::gtest_main)
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h>)

    if(NOT test_SHARDS)
        tn_add_test_run(${name} ${name})
        return()
    endif()
    string(REGEX REPLACE "_tests$" "" stem "${name}")
    foreach(shard RANGE 1 ${test_SHARDS})
        math(EXPR index "${shard} - 1")
        tn_add_test_run(${stem}_${shard}_tests ${name})
        set_tests_properties(${stem}_${shard}_tests PROPERTIES
            ENVIRONMENT "GTEST_TOTAL_SHARDS=${test_SHARDS};GTEST_SHARD_INDEX=${index}")
    endforeach()
endfunction()

function(tn_add_test_run name program)
    add_test(NAME ${name}
        COMMAND ${TNGRAPHICS_TEST_LAUNCHER} $<TARGET_FILE:${program}> --gtest_output=xml:${name}.xml
        WORKING_DIRECTORY "${TNGRAPHICS_RESULTS_DIR}")
    set_tests_properties(${name} PROPERTIES TIMEOUT 1200)
endfunction()
