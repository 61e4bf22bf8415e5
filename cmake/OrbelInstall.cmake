# What `cmake --install` gives: public headers, both libraries, the command, a CMake package and a pkg-config file.

include(CMakePackageConfigHelpers)

# The public headers: those of the exported classes, and what these include. They lie flat, and so includes of one
# another by bare name hold in the package as in the source.
set(public_headers
    applymode.h
    bounddelegate.h
    controlclasses.inc
    face.h
    floatgrouplayout.h
    floatscrollarea.h
    formlife.h
    latin1.h
    loadinterface.h
    orbeldelegate.h
    orbelenum.h
    orbelenumvalue.h
    orbelexport.h
    orbelformular.h
    orbelformularmanager.h
    orbelparser.h
    orbelscript.h
    orbelsheet.h
    orbelwidget.h
    sheetplace.h
    propertykey.h
    rowlabel.h
    propertynames.h
    widgetindex.h
    widgets/orbelcombobox.h
    widgets/orbelfrequencyrangeedit.h)
list(TRANSFORM public_headers PREPEND "${PROJECT_SOURCE_DIR}/orbelparser/")
install(FILES ${public_headers} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/orbelparser")

install(FILES
    "${PROJECT_SOURCE_DIR}/check/orbelcheck.h"
    "${PROJECT_SOURCE_DIR}/check/findings/checkexport.h"
    "${PROJECT_SOURCE_DIR}/check/findings/finding.h"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/orbelparser")
install(FILES "${PROJECT_SOURCE_DIR}/check/orbel.xsd" DESTINATION "${CMAKE_INSTALL_DATADIR}/orbelparser")

set(installed_targets orbelparser orbelcheck)
if(NOT ORBEL_HOST_TARGET)
    list(APPEND installed_targets orbelhost)
    install(DIRECTORY host/valuetree/ host/controls/ host/services/
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/orbelparser/host"
        FILES_MATCHING PATTERN "*.h")
endif()

# Libraries and command find each other wherever the tree is moved to.
file(RELATIVE_PATH bin_to_lib "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
set_target_properties(${installed_targets} PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(orbel PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
install(TARGETS ${installed_targets} EXPORT OrbelParserTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(TARGETS orbel RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OrbelParser")
install(EXPORT OrbelParserTargets NAMESPACE Orbel:: DESTINATION "${package_dir}")
configure_package_config_file(cmake/OrbelParserConfig.cmake.in
    "${PROJECT_BINARY_DIR}/package/OrbelParserConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/OrbelParserConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/package/OrbelParserConfig.cmake"
    "${PROJECT_BINARY_DIR}/package/OrbelParserConfigVersion.cmake"
    DESTINATION "${package_dir}")

file(RELATIVE_PATH pc_to_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
set(pc_host_library "-lorbelhost")
if(ORBEL_HOST_TARGET)
    set(pc_host_library "")
endif()
configure_file(cmake/orbelparser.pc.in "${PROJECT_BINARY_DIR}/package/orbelparser.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/orbelparser.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
