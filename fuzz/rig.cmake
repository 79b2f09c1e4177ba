# The built plug-in for fuzzers, and for the tests that feed them once more.
include_guard(GLOBAL)

add_library(ktFuzzRig STATIC
    "${CMAKE_CURRENT_LIST_DIR}/AnyValue.cpp"
    "${CMAKE_CURRENT_LIST_DIR}/PluginRig.cpp"
    "${PROJECT_SOURCE_DIR}/tests/support/Scene.cpp")
kt_configure_target(ktFuzzRig)
target_include_directories(ktFuzzRig PUBLIC "${PROJECT_SOURCE_DIR}")
target_compile_definitions(ktFuzzRig PRIVATE KT_PLUGIN_FILE="$<TARGET_FILE:ktAnimation>")
target_link_libraries(ktFuzzRig PUBLIC kt::Host ${CMAKE_DL_LIBS})
add_dependencies(ktFuzzRig ktAnimation) # loaded at run time
