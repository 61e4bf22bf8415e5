# What only an installed command has (manual pages, completion, its place on the desktop), the target
# orbel_uninstall, and the Debian packages of `cpack -G DEB`.

if(TARGET orbel_command AND NOT ORBEL_SANITIZE)
    set(manual "${PROJECT_BINARY_DIR}/manual")
    file(GLOB manual_tools CONFIGURE_DEPENDS packaging/*.awk packaging/*.sh)
    add_custom_command(OUTPUT "${manual}/help.txt"
        COMMAND packaging/manual.sh "$<TARGET_FILE:orbel_command>" "${PROJECT_VERSION}" "${manual}"
        DEPENDS orbel_command ${manual_tools}
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
    add_custom_target(orbel_manual ALL DEPENDS "${manual}/help.txt")

    set(completion "${manual}/completion")
    install(DIRECTORY "${manual}/man1" DESTINATION "${CMAKE_INSTALL_MANDIR}" COMPONENT Tools)
    install(FILES "${completion}/bash" RENAME orbel
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT Tools)
    install(FILES "${completion}/zsh" RENAME _orbel
        DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions" COMPONENT Tools)
    install(FILES "${completion}/fish" RENAME orbel.fish
        DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT Tools)
    install(FILES packaging/orbel.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT Tools)
    install(FILES packaging/orbel-mime.xml RENAME orbel.xml
        DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" COMPONENT Tools)
    install(FILES packaging/orbel.svg
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" COMPONENT Tools)
endif()

# No licence has been chosen yet, as every package says.
set(docs "${CMAKE_INSTALL_DATADIR}/doc")
install(FILES packaging/copyright DESTINATION "${docs}/liborbelparser${ORBEL_SOVERSION}" COMPONENT Runtime)
install(FILES packaging/copyright DESTINATION "${docs}/liborbelparser-dev" COMPONENT Development)
install(FILES packaging/copyright DESTINATION "${docs}/orbel" COMPONENT Tools)
install(FILES packaging/copyright DESTINATION "${docs}/orbelparser-doc" COMPONENT Documentation)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION "${docs}/orbelparser-doc" COMPONENT Documentation)
install(DIRECTORY docs DESTINATION "${docs}/orbelparser-doc" COMPONENT Documentation PATTERN site EXCLUDE)

if(NOT top_level)
    return()
endif()

add_custom_target(orbel_uninstall
    COMMAND "${CMAKE_COMMAND}" "-DBUILD_DIR=${PROJECT_BINARY_DIR}"
        -P "${PROJECT_SOURCE_DIR}/cmake/OrbelUninstall.cmake" VERBATIM)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orbelparser)
set(CPACK_PACKAGE_VENDOR "OrbelParser")
set(CPACK_PACKAGE_CONTACT "OrbelParser maintainers <maintainers@orbelparser.invalid>" CACHE STRING
    "Who answers for the packages, as NAME <ADDRESS>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Runtime Development Tools Documentation)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)

set(runtime "liborbelparser${ORBEL_SOVERSION}")
set(same "(= ${PROJECT_VERSION})")
set(qt "qtbase5-dev (>= 5.15), qtscript5-dev (>= 5.15)")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${runtime}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# The icons are drawn by a plug-in of Qt, which no library names.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS libqt5svg5)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The libraries that hosts link.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborbelparser-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} ${same}, ${qt}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers, CMake package, pkg-config files and the XML schema.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME orbel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime} ${same}")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "The command orbel: checks, shows, draws and documents form definitions.")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME orbelparser-doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SHLIBDEPS OFF)
set(CPACK_COMPONENT_DOCUMENTATION_DESCRIPTION "Documents, example forms and the example host.")
include(CPack)
