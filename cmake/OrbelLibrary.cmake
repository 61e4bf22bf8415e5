# The libraries that hosts link: Orbel::Host, Orbel::Parser, Orbel::Check, Orbel::Session, and Orbel::TestSupport for
# their tests.
#
# Each is made of an object library orbel_NAME_objects, which tests link to reach inner classes; whoever links the
# objects of a library links those of the libraries below it, or these libraries. Who links the library itself sees its
# public headers alone, in the build as in the package: they are gathered by links in one folder of the build that looks
# like the folder of an installation.

# While the first number is 0 any second number may break what is built on it; docs/versions.md tells more.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(ORBEL_SOVERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
    set(ORBEL_COMPATIBILITY SameMinorVersion)
else()
    set(ORBEL_SOVERSION "${PROJECT_VERSION_MAJOR}")
    set(ORBEL_COMPATIBILITY SameMajorVersion)
endif()

set(ORBEL_PUBLIC_INCLUDES "${PROJECT_BINARY_DIR}/include")
file(REMOVE_RECURSE "${ORBEL_PUBLIC_INCLUDES}")

# orbel_library(NAME Component [FOLDER SUBFOLDER] HEADERS header...): makes the library orbel_name, with the alias
# Orbel::Name, of the objects orbel_name_objects. Its public headers lie in orbelparser/SUBFOLDER, flat.
function(orbel_library)
    cmake_parse_arguments(arg "" "NAME;FOLDER" "HEADERS" ${ARGN})
    string(TOLOWER "${arg_NAME}" name)
    set(target orbel_${name})
    set(folder orbelparser)
    if(arg_FOLDER)
        string(APPEND folder "/${arg_FOLDER}")
    endif()

    add_library(${target} $<TARGET_OBJECTS:${target}_objects>)
    add_library(Orbel::${arg_NAME} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME orbel${name}
        EXPORT_NAME ${arg_NAME}
        LINKER_LANGUAGE CXX
        VERSION ${PROJECT_VERSION}
        SOVERSION ${ORBEL_SOVERSION})
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_include_directories(${target} PUBLIC
        "$<BUILD_INTERFACE:${ORBEL_PUBLIC_INCLUDES}>"
        "$<BUILD_INTERFACE:${ORBEL_PUBLIC_INCLUDES}/${folder}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${folder}>")

    file(MAKE_DIRECTORY "${ORBEL_PUBLIC_INCLUDES}/${folder}")
    foreach(header IN LISTS arg_HEADERS)
        cmake_path(ABSOLUTE_PATH header)
        cmake_path(GET header FILENAME file)
        file(CREATE_LINK "${header}" "${ORBEL_PUBLIC_INCLUDES}/${folder}/${file}" COPY_ON_ERROR SYMBOLIC)
        list(APPEND headers "${header}")
    endforeach()
    set_target_properties(${target} PROPERTIES ORBEL_HEADERS "${headers}" ORBEL_HEADER_FOLDER "${folder}")
endfunction()

# orbel_see_inside(TARGET library...): the target, a program of this project, sees the private headers, too.
function(orbel_see_inside target)
    foreach(library IN LISTS ARGN)
        if(TARGET ${library}_objects)
            target_include_directories(${target}
                PUBLIC "$<TARGET_PROPERTY:${library}_objects,INTERFACE_INCLUDE_DIRECTORIES>")
        endif()
    endforeach()
endfunction()
