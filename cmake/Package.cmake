# What an installation holds, in components: runtime is the library; development its public headers, the CMake package,
# the pkg-config file, the guides and what shows its types in debuggers.

include(CMakePackageConfigHelpers)
# Debian keeps libraries by architecture wherever it looks for them; what is built on Debian is installed likewise.
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CROSSCOMPILING AND CMAKE_LIBRARY_ARCHITECTURE AND EXISTS /etc/debian_version
    AND NOT DEFINED CMAKE_INSTALL_LIBDIR)
    set(CMAKE_INSTALL_LIBDIR "lib/${CMAKE_LIBRARY_ARCHITECTURE}" CACHE PATH "Where libraries are installed")
endif()
include(GNUInstallDirs)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/TnGraphics")
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
set(debugging_dir "${CMAKE_INSTALL_DATADIR}/TnGraphics")
if(WIN32)
    set(guides_dir ".")
else()
    set(guides_dir "${CMAKE_INSTALL_DOCDIR}")
endif()

# Counts the breaks of the binary interface, whatever the version says: see docs/Abi.md.
set(TNGRAPHICS_ABI_VERSION 1)
set_target_properties(TnGraphics PROPERTIES SOVERSION "${TNGRAPHICS_ABI_VERSION}")

install(TARGETS TnGraphics
    EXPORT TnGraphicsTargets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS COMPONENT development
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT TnGraphicsTargets
    NAMESPACE TnGraphics::
    DESTINATION "${package_dir}"
    COMPONENT development)

configure_package_config_file(
    cmake/TnGraphicsConfig.cmake.in "${PROJECT_BINARY_DIR}/package/TnGraphicsConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/package/TnGraphicsConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(
    FILES
        "${PROJECT_BINARY_DIR}/package/TnGraphicsConfig.cmake"
        "${PROJECT_BINARY_DIR}/package/TnGraphicsConfigVersion.cmake"
    DESTINATION "${package_dir}"
    COMPONENT development)

# Paths in the pkg-config file are relative to the file itself, so that an installed tree can be moved.
set(pkgconfig_to_prefix "/prefix")
cmake_path(RELATIVE_PATH pkgconfig_to_prefix BASE_DIRECTORY "/prefix/${pkgconfig_dir}")
configure_file(cmake/TnGraphics.pc.in "${PROJECT_BINARY_DIR}/package/TnGraphics.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/TnGraphics.pc" DESTINATION "${pkgconfig_dir}" COMPONENT development)

install(FILES README.md CHANGELOG.md DESTINATION "${guides_dir}" COMPONENT development)
install(DIRECTORY docs DESTINATION "${guides_dir}" COMPONENT development
    FILES_MATCHING PATTERN "*.md" PATTERN "*.png")
install(DIRECTORY debugging/ DESTINATION "${debugging_dir}" COMPONENT development)
