# The target `docs`: HTML pages made from the comments of the public headers, with pictures that the library draws, and
# the guides beside them. The target `gallery` draws the pictures alone.

set(TNGRAPHICS_DOCS_DIR "${PROJECT_BINARY_DIR}/docs" CACHE PATH "Where the target `docs` puts its pages")

if(WIN32)
    return()
endif()
find_package(PNG QUIET)
if(NOT PNG_FOUND)
    return()
endif()
if(TNGRAPHICS_BUILD_EXAMPLES)
    add_subdirectory("${PROJECT_SOURCE_DIR}/examples/gallery" "${PROJECT_BINARY_DIR}/examples/gallery")
else()
    add_subdirectory("${PROJECT_SOURCE_DIR}/examples/gallery" "${PROJECT_BINARY_DIR}/examples/gallery" EXCLUDE_FROM_ALL)
endif()

find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    return()
endif()

get_target_property(public_headers TnGraphics HEADER_SET)
get_target_property(windows_headers TnGraphics TN_WINDOWS_HEADERS)
list(TRANSFORM windows_headers PREPEND "${PROJECT_SOURCE_DIR}/TnGraphics/")
list(APPEND public_headers ${windows_headers})
list(REMOVE_DUPLICATES public_headers)
list(JOIN public_headers "\" \"" doxygen_input)

set(guides Reference Gallery Guarantees Sampling Storage Engines Testing Abi)
list(TRANSFORM guides PREPEND "${PROJECT_SOURCE_DIR}/docs/")
list(TRANSFORM guides APPEND .md)
list(JOIN guides "\" \"" doxygen_pages)

configure_file(docs/Doxyfile.in "${PROJECT_BINARY_DIR}/Doxyfile" @ONLY)

add_custom_target(docs
    COMMAND Doxygen::doxygen "${PROJECT_BINARY_DIR}/Doxyfile"
    COMMENT "Writing the documentation to ${TNGRAPHICS_DOCS_DIR}"
    VERBATIM)
add_dependencies(docs gallery)
