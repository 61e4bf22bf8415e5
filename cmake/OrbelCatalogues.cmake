# The catalogues of the library's own texts, for hosts that do not speak English. They become part of the library, where
# the translation centre finds them under the name that the library registers.

find_package(Qt5LinguistTools 5.15 QUIET)

# orbel_add_catalogues(TARGET): compiles the catalogues into the target; without Qt's tools for that, nothing.
function(orbel_add_catalogues target)
    if(NOT TARGET Qt5::lrelease)
        message(STATUS "Without lrelease (Qt's linguist tools) the library speaks English only")
        return()
    endif()
    set(folder "${PROJECT_BINARY_DIR}/translations")
    set(resource "${folder}/qrc_catalogues.cpp")
    file(MAKE_DIRECTORY "${folder}")
    foreach(language de en)
        set(text "${PROJECT_SOURCE_DIR}/translations/orbelparser_${language}.ts")
        set(catalogue "${folder}/OrbelParser_${language}.qm")
        add_custom_command(OUTPUT "${catalogue}" DEPENDS "${text}"
            COMMAND Qt5::lrelease -silent "${text}" -qm "${catalogue}")
        list(APPEND catalogues "${catalogue}")
    endforeach()
    configure_file("${PROJECT_SOURCE_DIR}/translations/catalogues.qrc" "${folder}/catalogues.qrc" COPYONLY)
    add_custom_command(OUTPUT "${resource}" DEPENDS ${catalogues} "${folder}/catalogues.qrc"
        COMMAND Qt5::rcc --name orbelcatalogues --output "${resource}" "${folder}/catalogues.qrc")
    set_source_files_properties("${resource}" PROPERTIES 
        SKIP_AUTOGEN ON SKIP_PRECOMPILE_HEADERS ON SKIP_UNITY_BUILD_INCLUSION ON)
    target_sources(${target} PRIVATE "${resource}")
    target_compile_definitions(${target} PRIVATE ORBEL_HAS_CATALOGUES)
endfunction()
