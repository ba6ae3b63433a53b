# What an installation holds: the library, its public headers, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/TnGraphics")
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(TARGETS TnGraphics
    EXPORT TnGraphicsTargets
    FILE_SET HEADERS
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(EXPORT TnGraphicsTargets NAMESPACE TnGraphics:: DESTINATION "${package_dir}")

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
    DESTINATION "${package_dir}")

# Paths in the pkg-config file are relative to the file itself, so that an installed tree can be moved.
set(pkgconfig_to_prefix "/prefix")
cmake_path(RELATIVE_PATH pkgconfig_to_prefix BASE_DIRECTORY "/prefix/${pkgconfig_dir}")
configure_file(cmake/TnGraphics.pc.in "${PROJECT_BINARY_DIR}/package/TnGraphics.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/TnGraphics.pc" DESTINATION "${pkgconfig_dir}")
