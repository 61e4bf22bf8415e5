# The target `docs`: documents and public headers as one site in the build folder's docs/. A project that takes this one in
# may well have a target of that name itself.

if(NOT top_level)
    return()
endif()

find_program(ORBEL_DOXYGEN doxygen DOC "Makes the site of the documents")
mark_as_advanced(ORBEL_DOXYGEN)
if(NOT ORBEL_DOXYGEN)
    return()
endif()
set(ORBEL_SITE "${PROJECT_BINARY_DIR}/docs")
configure_file(docs/site/Doxyfile.in Doxyfile @ONLY)
add_custom_target(docs
    COMMAND "${ORBEL_DOXYGEN}" "${PROJECT_BINARY_DIR}/Doxyfile"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Making the site of the documents in ${ORBEL_SITE}"
    VERBATIM)
