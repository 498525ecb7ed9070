# What find_package(VxModel) finds after an installation.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/VxModel")
configure_package_config_file(
    cmake/VxModelConfig.cmake.in "${PROJECT_BINARY_DIR}/VxModelConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VxModelConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)

install(EXPORT VxModelTargets NAMESPACE VxModel:: DESTINATION "${package_dir}")
install(FILES
    "${PROJECT_BINARY_DIR}/VxModelConfig.cmake"
    "${PROJECT_BINARY_DIR}/VxModelConfigVersion.cmake"
    cmake/FindxxHash.cmake
    DESTINATION "${package_dir}")
