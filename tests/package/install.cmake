# Installs into an empty folder, and sees to it that every header of an exported class is there.

file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${PREFIX}"
    OUTPUT_QUIET RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the installation failed")
endif()

file(GLOB headers "${SOURCE_DIR}/orbelparser/*.h" "${SOURCE_DIR}/orbelparser/widgets/*.h")
foreach(header IN LISTS headers)
    file(STRINGS "${header}" exported REGEX "^class ORBEL_EXPORT ")
    cmake_path(GET header FILENAME name)
    if(exported AND NOT EXISTS "${PREFIX}/${INCLUDE_DIR}/orbelparser/${name}")
        message(SEND_ERROR "${name} declares an exported class, and is not installed")
    endif()
endforeach()
