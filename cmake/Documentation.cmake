# The target `docs`: HTML pages made from the comments of the public headers, and the guides beside them.

find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    return()
endif()

set(TNGRAPHICS_DOCS_DIR "${PROJECT_BINARY_DIR}/docs" CACHE PATH "Where the target `docs` puts its pages")

get_target_property(public_headers TnGraphics HEADER_SET)
get_target_property(windows_headers TnGraphics TN_WINDOWS_HEADERS)
list(TRANSFORM windows_headers PREPEND "${PROJECT_SOURCE_DIR}/TnGraphics/")
list(APPEND public_headers ${windows_headers})
list(REMOVE_DUPLICATES public_headers)
list(JOIN public_headers "\" \"" doxygen_input)

set(guides Guarantees Sampling Storage Engines Testing Abi)
list(TRANSFORM guides PREPEND "${PROJECT_SOURCE_DIR}/docs/")
list(TRANSFORM guides APPEND .md)
list(JOIN guides "\" \"" doxygen_pages)

configure_file(docs/Doxyfile.in "${PROJECT_BINARY_DIR}/Doxyfile" @ONLY)

add_custom_target(docs
    COMMAND Doxygen::doxygen "${PROJECT_BINARY_DIR}/Doxyfile"
    COMMENT "Writing the documentation to ${TNGRAPHICS_DOCS_DIR}"
    VERBATIM)
