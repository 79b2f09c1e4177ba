# What all our targets share: language level, warnings, visibility, instrumentation, output folders.

# The build tree is laid out as the installed one, so that kthost finds its library and plug-ins the same way in both.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(KT_PLUGIN_SUBDIR "kthost/plugins")
set(KT_PLUGIN_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib/${KT_PLUGIN_SUBDIR}")
set(KT_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor)

# kt_configure_target(TARGET): the house rules for one target of ours.
function(kt_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
        EXPORT_COMPILE_COMMANDS ON)
    target_compile_options(${target} PRIVATE ${KT_WARNINGS} $<$<BOOL:${KT_WERROR}>:-Werror>)
    target_compile_definitions(${target} PRIVATE QT_DEPRECATED_WARNINGS)
    if(KT_SANITIZE)
        # The instrumented code makes the compiler suspect the standard library of reading what was not written.
        target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized
            -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(KT_BUILD_FUZZERS)
        target_compile_options(${target} PRIVATE
            -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(KT_SANITIZE OR KT_BUILD_FUZZERS)
        target_compile_definitions(${target} PRIVATE KT_LOOKS_FOR_LEAKS)
    endif()
    if(KT_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage -O0)
        target_link_options(${target} PRIVATE --coverage)
    endif()
endfunction()

# kt_add_library(NAME SOURCES...): a static library of the host; its headers are included from the top folder.
function(kt_add_library name)
    add_library(${name} STATIC ${ARGN})
    kt_configure_target(${name})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
endfunction()
