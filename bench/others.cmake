# The start of the window. The probe is the window, the benchmark starts and times it.
find_package(SoQt REQUIRED)
add_executable(startupProbe startupProbe.cpp)
kt_configure_target(startupProbe)
set_target_properties(startupProbe PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bench")
target_link_libraries(startupProbe PRIVATE kthostApp SoQt::SoQt)

kt_add_bench(NAME startupBench SOURCES startupBench.cpp support/benchMain.cpp LIBRARIES Qt5::Core)
target_compile_definitions(startupBench PRIVATE
    KT_STARTUP_PROBE="$<TARGET_FILE:startupProbe>"
    KT_PLUGIN_FOLDER="$<TARGET_FILE_DIR:ktAnimation>")
add_dependencies(startupBench startupProbe ktAnimation)

# Driving animations through the built plug-in.
kt_add_bench(NAME driveBench SOURCES driveBench.cpp support/pluginMain.cpp LIBRARIES kt::Host Qt5::Widgets)
target_compile_definitions(driveBench PRIVATE KT_PLUGIN_FILE="$<TARGET_FILE:ktAnimation>")
add_dependencies(driveBench ktAnimation)

# The panel's list, through the built plug-in.
kt_add_bench(NAME listBench SOURCES listBench.cpp support/pluginMain.cpp LIBRARIES kt::Host Qt5::Widgets)
target_compile_definitions(listBench PRIVATE KT_PLUGIN_FILE="$<TARGET_FILE:ktAnimation>")
add_dependencies(listBench ktAnimation)

# Calls from Python: the plug-in's own objects, so that both sides of the ratio are in one program.
if(KT_HAS_SCRIPTING)
    kt_add_bench(NAME scriptBench SOURCES scriptBench.cpp
        LIBRARIES ktAnimationObjects kthostScripting kt::BoostPython KtPython2::Python)
    target_compile_definitions(scriptBench PRIVATE
        KT_PYTHON_HOME="${CMAKE_BINARY_DIR}/lib/${KT_PYTHON_HOME_SUBDIR}")
endif()

# The window's scene tree.
kt_add_bench(NAME treeBench SOURCES treeBench.cpp LIBRARIES kthostApp)

# Settings in project files, through the built plug-in.
kt_add_bench(NAME settingsBench SOURCES settingsBench.cpp support/pluginMain.cpp LIBRARIES kthostApp)
target_compile_definitions(settingsBench PRIVATE KT_PLUGIN_FILE="$<TARGET_FILE:ktAnimation>")
add_dependencies(settingsBench ktAnimation)
