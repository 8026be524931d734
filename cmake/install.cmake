# What an installation holds, by components:
#   runtime         the library with all that it needs to run, and the licences of what comes from others
#   data            what the library reads at run time, and the schemas of it
#   development     headers, what programs are linked with, the packages for CMake and pkg-config
#   tool            the companion with its manual page and completion
#   documentation   the guides
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/fl_i18n)
install(TARGETS fl_i18n EXPORT fl_i18n-targets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development FILES_MATCHING PATTERN *.hpp)
install(EXPORT fl_i18n-targets NAMESPACE fl_i18n:: DESTINATION ${package_folder} COMPONENT development)
configure_package_config_file(cmake/fl_i18n-config.cmake.in fl_i18n-config.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(fl_i18n-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/fl_i18n-config.cmake ${PROJECT_BINARY_DIR}/fl_i18n-config-version.cmake
    DESTINATION ${package_folder} COMPONENT development)

# For pkg-config, by paths from the file's own place. A native program finds the library at run time where it is.
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
string(REGEX REPLACE "[^/]+" ".." pkgconfig_prefix ${pkgconfig_folder})
set(pkgconfig_run_path)
if(NOT WIN32)
    set(pkgconfig_run_path " -Wl,-rpath,\${libdir}")
endif()
configure_file(cmake/fl_i18n.pc.in fl_i18n.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/fl_i18n.pc DESTINATION ${pkgconfig_folder} COMPONENT development)

foreach(schema IN ITEMS catalog catalog_map lcdata)
    install(FILES schemas/${schema}.rnc schemas/${schema}.rng schemas/${schema}.xsd
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fl_i18n/schemas COMPONENT data)
endforeach()

# The installation runs wherever it is put.
install(FILES ${FL_I18N_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
install(FILES ${FL_I18N_RUNTIME_LIBRARIES} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
if(WIN32)
    # Most of the compiler's DLLs is for debugging them.
    install(CODE "
        if(CMAKE_INSTALL_DO_STRIP)
            file(GLOB dlls \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/lib*.dll)
            execute_process(COMMAND ${CMAKE_STRIP} \${dlls} COMMAND_ERROR_IS_FATAL ANY)
        endif()" COMPONENT runtime)
else()
    set_target_properties(fl_i18n PROPERTIES INSTALL_RPATH $ORIGIN)
endif()

if(FL_I18N_BUILD_TOOL)
    install(FILES docs/man/fl-i18n.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
    set(completions_folder ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES tools/completion/fl-i18n.bash DESTINATION ${completions_folder} RENAME fl-i18n COMPONENT tool)
endif()
set(document_folder ${CMAKE_INSTALL_DATADIR}/doc/fl_i18n)
install(FILES README.md SECURITY.md DESTINATION ${document_folder} COMPONENT documentation)
install(DIRECTORY docs/ DESTINATION ${document_folder}/docs COMPONENT documentation
    FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN man EXCLUDE)
install(FILES examples/README.md DESTINATION ${document_folder}/examples COMPONENT documentation)
include(cmake/licences.cmake)
