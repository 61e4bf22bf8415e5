# Removes what the last `cmake --install BUILD_DIR` has put down, and the folders of this project that are empty then.
# The manifests of single components are left alone: those that cpack writes name places of packages.

set(manifest "${BUILD_DIR}/install_manifest.txt")
if(NOT EXISTS "${manifest}")
    message(FATAL_ERROR "nothing was installed from ${BUILD_DIR}")
endif()
file(STRINGS "${manifest}" files)
foreach(file IN LISTS files)
    file(REMOVE "$ENV{DESTDIR}${file}")
    message(STATUS "Removed $ENV{DESTDIR}${file}")
    cmake_path(GET file PARENT_PATH folder)
    list(APPEND folders "$ENV{DESTDIR}${folder}")
endforeach()
file(REMOVE "${manifest}")

# From the innermost out.
list(REMOVE_DUPLICATES folders)
foreach(folder IN LISTS folders)
    while(IS_DIRECTORY "${folder}" AND folder MATCHES "/(lib)?[oO]rbel[pP]arser[^/]*(/|$)|/doc/orbel$")
        file(GLOB left "${folder}/*")
        if(left)
            break()
        endif()
        file(REMOVE_RECURSE "${folder}")
        cmake_path(GET folder PARENT_PATH folder)
    endwhile()
endforeach()
