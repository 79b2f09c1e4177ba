# Finds Python 2.7 for embedding: headers, shared library, standard library.
#   KT_PYTHON2_ROOT   where it is installed, such as /usr/local; empty: what tools/python2.sh has made, else the system's
# Gives the target KtPython2::Python; KtPython2_STDLIB, the folder that holds os.py; KtPython2_ROOT, where all is.
set(KT_PYTHON2_ROOT "" CACHE PATH "Installed Python 2.7 to build the scripting with")

if(KT_PYTHON2_ROOT)
    set(roots "${KT_PYTHON2_ROOT}" "${KT_PYTHON2_ROOT}/usr")
else()
    set(roots "${PROJECT_SOURCE_DIR}/build/python2/prefix/usr" /usr/local /usr)
endif()

# Each is looked for anew: a prefix that was made after the last configuring, or another root, counts at once.
unset(KtPython2_INCLUDE_DIR)
foreach(root IN LISTS roots)
    foreach(what IN ITEMS INCLUDE_DIR LIBRARY STDLIB)
        unset(KtPython2_${what})
    endforeach()
    find_path(KtPython2_INCLUDE_DIR Python.h PATHS "${root}/include/python2.7" NO_DEFAULT_PATH NO_CACHE)
    find_library(KtPython2_LIBRARY NAMES libpython2.7.so
        PATHS "${root}/lib/${CMAKE_LIBRARY_ARCHITECTURE}" "${root}/lib" "${root}/lib64" NO_DEFAULT_PATH NO_CACHE)
    find_path(KtPython2_STDLIB os.py PATHS "${root}/lib/python2.7" "${root}/lib64/python2.7" NO_DEFAULT_PATH NO_CACHE)
    if(KtPython2_INCLUDE_DIR AND KtPython2_LIBRARY AND KtPython2_STDLIB)
        set(KtPython2_ROOT "${root}")
        break()
    endif()
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(KtPython2
    REQUIRED_VARS KtPython2_LIBRARY KtPython2_INCLUDE_DIR KtPython2_STDLIB)

if(KtPython2_FOUND AND NOT TARGET KtPython2::Python)
    get_filename_component(root "${KtPython2_INCLUDE_DIR}" DIRECTORY)
    add_library(KtPython2::Python SHARED IMPORTED)
    # Debian's pyconfig.h includes one that lies in a folder of the machine's kind beside it.
    set_target_properties(KtPython2::Python PROPERTIES
        IMPORTED_LOCATION "${KtPython2_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${KtPython2_INCLUDE_DIR};${root}")
endif()
