# What `cmake --install` gives, in four parts: Runtime, Development, Tools, Documentation.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OrbelParser")
set(generated "${PROJECT_BINARY_DIR}/package")
file(RELATIVE_PATH pc_to_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")

# orbel_install_library(Component PKGCONFIG "name..."): library, headers, CMake targets and the pkg-config file, which
# names what it takes from other packages. PART is where the library itself goes, Runtime unless stated.
function(orbel_install_library component)
    cmake_parse_arguments(arg "" "TEXT;REQUIRES;REQUIRES_PRIVATE;PART" "" ${ARGN})
    if(NOT arg_PART)
        set(arg_PART Runtime)
    endif()
    string(TOLOWER "${component}" name)
    set(target orbel_${name})
    get_target_property(headers ${target} ORBEL_HEADERS)
    get_target_property(folder ${target} ORBEL_HEADER_FOLDER)

    # Libraries find each other wherever the tree is moved to.
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${target} EXPORT OrbelParser${component}
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${arg_PART} NAMELINK_COMPONENT Development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development)
    install(FILES ${headers} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${folder}" COMPONENT Development)
    install(EXPORT OrbelParser${component} NAMESPACE Orbel:: FILE OrbelParser${component}.cmake
        DESTINATION "${package_dir}" COMPONENT Development)

    set(pc_name orbel${name})
    set(pc_text "${arg_TEXT}")
    set(pc_requires "${arg_REQUIRES}")
    set(pc_requires_private "${arg_REQUIRES_PRIVATE}")
    set(pc_folder "${folder}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/orbel.pc.in" "${generated}/${pc_name}.pc" @ONLY)
    install(FILES "${generated}/${pc_name}.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)
endfunction()

set(own "= ${PROJECT_VERSION}")
if(ORBEL_HOST_TARGET)
    set(pc_host "")
else()
    set(pc_host "orbelhost ${own}")
    orbel_install_library(Host
        TEXT "value tree, value-bound controls and services under the forms"
        REQUIRES "Qt5Widgets >= 5.15")
endif()
orbel_install_library(Parser
    TEXT "${PROJECT_DESCRIPTION}"
    REQUIRES "${pc_host} Qt5Widgets >= 5.15 Qt5Script >= 5.15"
    REQUIRES_PRIVATE "Qt5ScriptTools >= 5.15 Qt5Svg >= 5.15")
orbel_install_library(Check
    TEXT "finds the mistakes in form definitions"
    REQUIRES "Qt5Core >= 5.15"
    REQUIRES_PRIVATE "orbelparser ${own}")
orbel_install_library(Session
    TEXT "one form in a host: opening, device, changes, storage, reload"
    REQUIRES "orbelparser ${own} orbelcheck ${own}")
if(TARGET orbel_testsupport)
    # Nobody who only runs hosts needs it, and QtTest with it.
    orbel_install_library(TestSupport PART Development
        TEXT "for the tests of hosts: a form that is opened, operated and asked"
        REQUIRES "orbelsession ${own} Qt5Test >= 5.15")
endif()

configure_package_config_file(cmake/OrbelParserConfig.cmake.in "${generated}/OrbelParserConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${generated}/OrbelParserConfigVersion.cmake"
    COMPATIBILITY ${ORBEL_COMPATIBILITY})
install(FILES "${generated}/OrbelParserConfig.cmake" "${generated}/OrbelParserConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT Development)

install(FILES check/orbel.xsd DESTINATION "${CMAKE_INSTALL_DATADIR}/orbelparser" COMPONENT Development)
install(DIRECTORY examples/forms examples/scripts examples/templates examples/host examples/receiver examples/formtest
    DESTINATION "${CMAKE_INSTALL_DATADIR}/orbelparser/examples" COMPONENT Documentation)

if(TARGET orbel_command)
    file(RELATIVE_PATH bin_to_lib "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(orbel_command PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
    install(DIRECTORY editors DESTINATION "${CMAKE_INSTALL_DATADIR}/orbelparser" COMPONENT Tools)
    install(TARGETS orbel_command RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Tools)
endif()
