# Installs the library, its headers and the package by which other projects find it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/nel_core)
set_target_properties(nel_core PROPERTIES EXPORT_NAME core)
install(TARGETS nel_core EXPORT nel_core FILE_SET HEADERS)
install(EXPORT nel_core NAMESPACE nel:: FILE nel_coreTargets.cmake DESTINATION ${package})

configure_package_config_file(cmake/nel_coreConfig.cmake.in ${PROJECT_BINARY_DIR}/nel_coreConfig.cmake
    INSTALL_DESTINATION ${package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/nel_coreConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/nel_coreConfig.cmake
    ${PROJECT_BINARY_DIR}/nel_coreConfigVersion.cmake
    cmake/nel_add_module.cmake
    DESTINATION ${package})
