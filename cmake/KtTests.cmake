# How a test of ours is made: one GoogleTest program a room, each of its tests a CTest test of its own.
include(GoogleTest)
find_package(GTest REQUIRED)
find_package(Qt5 5.15 REQUIRED COMPONENTS Test)

set(KT_SCENES_DIR "${PROJECT_SOURCE_DIR}/../shared/scenes")

# kt_configure_test_code(TARGET): compiled once and run once, so built for a quick build; not the code it tests.
function(kt_configure_test_code target)
    kt_configure_target(${target})
    target_compile_options(${target} PRIVATE -O0)
    if(KT_SANITIZE)
        # Looks for undefined behaviour in what is tested, not in the tests: there it would take most of the build.
        target_compile_options(${target} PRIVATE -fno-sanitize=undefined)
    endif()
    if(KT_QUICK_TEST_BUILD OR CMAKE_UNITY_BUILD)
        # A fixture of an unnamed namespace is then no longer of the main file.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${target} PRIVATE GTest::gmock Qt5::Test Qt5::Widgets)
endfunction()

# The headers that nearly every test reads, compiled once for all of them, and the tests of a room several at a
# time. Tests still name what they use: the preset "coverage" compiles each by itself.
if(KT_QUICK_TEST_BUILD)
    add_library(ktTestHeaders OBJECT "${CMAKE_CURRENT_LIST_DIR}/../tests/support/precompiled.cpp")
    kt_configure_test_code(ktTestHeaders)
    target_precompile_headers(ktTestHeaders PRIVATE <gmock/gmock.h> <gtest/gtest.h> <QString> <QTest>)
endif()

# kt_add_test(NAME name SOURCES ... [LIBRARIES ...] LABEL label [SKIP_MAIN])
# The main() of tests/support makes the one QApplication: on the caller's display for the label "gui", else off-screen.
# SKIP_MAIN: the sources bring a main() of their own.
function(kt_add_test)
    cmake_parse_arguments(arg "SKIP_MAIN" "NAME;LABEL" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${arg_NAME} ${arg_SOURCES})
    kt_configure_test_code(${arg_NAME})
    if(KT_QUICK_TEST_BUILD)
        target_precompile_headers(${arg_NAME} REUSE_FROM ktTestHeaders)
        set_target_properties(${arg_NAME} PROPERTIES UNITY_BUILD ON)
    endif()
    set_target_properties(${arg_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests" AUTOMOC ON)
    target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBRARIES})
    if(NOT arg_SKIP_MAIN)
        target_sources(${arg_NAME} PRIVATE "${PROJECT_SOURCE_DIR}/tests/support/main.cpp")
    endif()
    target_compile_definitions(${arg_NAME} PRIVATE
        KT_SCENES_DIR="${KT_SCENES_DIR}"
        KT_EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples"
        KT_PLUGIN_FILE="$<TARGET_FILE:ktAnimation>"
        KT_BUILD_DIR="${CMAKE_BINARY_DIR}"
        KT_TEST_ON_SCREEN=$<STREQUAL:${arg_LABEL},gui>)
    # The plug-in is loaded at run time, so nothing else makes the test wait for it.
    add_dependencies(${arg_NAME} ktAnimation)
    set(lock)
    if(arg_LABEL STREQUAL "gui")
        # A display has one keyboard focus: two programs at a time would take it from each other.
        set(lock RESOURCE_LOCK display)
    endif()
    gtest_discover_tests(${arg_NAME}
        TEST_PREFIX "${arg_NAME}."
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS "${arg_LABEL}" TIMEOUT 120 ${lock})
endfunction()
