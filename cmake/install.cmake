# What an installation holds: the library with all that it needs to run, the headers and the package for CMake.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/fl_i18n)
install(TARGETS fl_i18n EXPORT fl_i18n-targets)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN *.hpp)
install(EXPORT fl_i18n-targets NAMESPACE fl_i18n:: DESTINATION ${package_folder})
configure_package_config_file(cmake/fl_i18n-config.cmake.in fl_i18n-config.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(fl_i18n-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/fl_i18n-config.cmake ${PROJECT_BINARY_DIR}/fl_i18n-config-version.cmake
    DESTINATION ${package_folder})
# The installation runs wherever it is put.
install(FILES ${FL_I18N_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${FL_I18N_RUNTIME_LIBRARIES} DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(NOT WIN32)
    set_target_properties(fl_i18n PROPERTIES INSTALL_RPATH $ORIGIN)
endif()
