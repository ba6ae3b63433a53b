# What `cpack` makes of an installation: a zip for Windows, a pair of Debian packages for Linux.

set(CPACK_PACKAGE_VENDOR "TnGraphics")
set(CPACK_PACKAGE_CONTACT "The TnGraphics maintainers <maintainers@tngraphics.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
    if(TARGET viewer)
        install(TARGETS viewer RUNTIME COMPONENT viewer OPTIONAL)
    endif()
    set(CPACK_GENERATOR ZIP)
else()
    set(library_package "libtngraphics${TNGRAPHICS_ABI_VERSION}")
    set(CPACK_GENERATOR DEB)
    set(CPACK_DEB_COMPONENT_INSTALL ON)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_COMPONENTS_ALL runtime development)

    set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${library_package}")
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
    set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
    set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared library, for programs that use it.")

    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtngraphics-dev)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")
    set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
        "Headers, CMake package and pkg-config file, for building programs that use it.")
endif()

include(CPack)
