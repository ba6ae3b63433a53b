# tn_add_test_executable(NAME SOURCES source... LIBRARIES library...)
#
# Builds a GoogleTest program that ctest runs as one test, since starting a process under Wine is slow. The results of
# its cases are left in results/NAME.xml below the build folder.

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
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "SOURCES;LIBRARIES")

    add_executable(${name} ${test_SOURCES})
    target_link_libraries(${name} PRIVATE ${test_LIBRARIES} TnCompilerSettings GTest::gtest_main)
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h>)

    add_test(NAME ${name}
        COMMAND ${TNGRAPHICS_TEST_LAUNCHER} $<TARGET_FILE:${name}> --gtest_output=xml:${name}.xml
        WORKING_DIRECTORY "${TNGRAPHICS_RESULTS_DIR}")
    set_tests_properties(${name} PROPERTIES TIMEOUT 1200)
endfunction()
