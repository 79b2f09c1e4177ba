# Scripting: Python 2.7 and Boost.Python for it, where they are found. Sets KT_HAS_SCRIPTING and gives the targets
# KtPython2::Python and kt::BoostPython.
set(KT_SCRIPTING AUTO CACHE STRING "Build the script interpreter: ON, OFF, or AUTO for where Python 2.7 is found")
set_property(CACHE KT_SCRIPTING PROPERTY STRINGS AUTO ON OFF)
set(KT_BOOST_PYTHON_SOURCES "${PROJECT_SOURCE_DIR}/build/python2/boost/libs/python/src" CACHE PATH
    "Sources of Boost.Python, as tools/python2.sh fetches them")
# Where the interpreter's home stands in both trees: its standard library is in lib/python2.7 below.
set(KT_PYTHON_HOME_SUBDIR "kthost/python")

set(KT_HAS_SCRIPTING FALSE)
if(NOT KT_SCRIPTING OR KT_SCRIPTING STREQUAL "OFF")
    return()
endif()

find_package(KtPython2 MODULE QUIET)
if(NOT KtPython2_FOUND)
    set(missing "no Python 2.7 was found (KT_PYTHON2_ROOT points at one)")
elseif(NOT KTHOST_ROOT AND NOT EXISTS "${KT_BOOST_PYTHON_SOURCES}/module.cpp")
    set(missing "the sources of Boost.Python are not in ${KT_BOOST_PYTHON_SOURCES}")
elseif(KTHOST_ROOT AND NOT TARGET kt::BoostPython)
    set(missing "the host of KTHOST_ROOT has none")
else()
    set(KT_HAS_SCRIPTING TRUE)
endif()
if(NOT KT_HAS_SCRIPTING)
    if(KT_SCRIPTING STREQUAL "AUTO")
        message(STATUS "Building without scripting: ${missing}")
        return()
    endif()
    message(FATAL_ERROR "KT_SCRIPTING is ON, but ${missing}")
endif()
message(STATUS "Building with scripting: ${KtPython2_LIBRARY}")
if(KTHOST_ROOT)
    return()
endif()

# One shared library for the host and its plug-ins, since they share its registry of converters.
file(GLOB boost_python_sources
    "${KT_BOOST_PYTHON_SOURCES}/*.cpp"
    "${KT_BOOST_PYTHON_SOURCES}/converter/*.cpp"
    "${KT_BOOST_PYTHON_SOURCES}/object/*.cpp")
add_library(ktBoostPython SHARED ${boost_python_sources} "${PROJECT_SOURCE_DIR}/host/scripting/sharedTypes.cpp")
add_library(kt::BoostPython ALIAS ktBoostPython)
target_compile_features(ktBoostPython PUBLIC cxx_std_17)
target_compile_definitions(ktBoostPython
    PRIVATE BOOST_PYTHON_SOURCE
    # Its headers of this age tell of others that have moved since.
    PUBLIC BOOST_BIND_GLOBAL_PLACEHOLDERS BOOST_ALLOW_DEPRECATED_HEADERS)
# Not ours, so not by our rules; Python 2's own headers ask for the second.
target_compile_options(ktBoostPython PRIVATE -w -fno-strict-aliasing -g0)
target_link_libraries(ktBoostPython PUBLIC Boost::headers PRIVATE KtPython2::Python)
set_target_properties(ktBoostPython PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    EXPORT_NAME BoostPython
    UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8
    EXPORT_COMPILE_COMMANDS OFF
    INSTALL_RPATH "$ORIGIN")
install(TARGETS ktBoostPython EXPORT ktHostTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")

# The interpreter's home: a link in the build tree, a copy of what scripts need in the installed one.
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/lib/${KT_PYTHON_HOME_SUBDIR}/lib")
file(CREATE_LINK "${KtPython2_STDLIB}" "${CMAKE_BINARY_DIR}/lib/${KT_PYTHON_HOME_SUBDIR}/lib/python2.7" SYMBOLIC)
install(DIRECTORY "${KtPython2_STDLIB}/"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/${KT_PYTHON_HOME_SUBDIR}/lib/python2.7"
    REGEX "/(test|tests|site-packages|dist-packages|config|config-[^/]*|sitecustomize\\.pyc?)$" EXCLUDE)
file(REAL_PATH "${KtPython2_LIBRARY}" python_library)
get_filename_component(python_library_at "${python_library}" DIRECTORY)
file(GLOB python_library_files "${python_library_at}/libpython2.7.so.*")
install(FILES ${python_library_files} DESTINATION "${CMAKE_INSTALL_LIBDIR}")
