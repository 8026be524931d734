# Packages, made by cpack from a build: a zip for Windows, and Debian packages below /opt/fl_i18n with links to it.
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_VENDOR fl_i18n)
set(FL_I18N_PACKAGE_CONTACT "fl_i18n maintainers <maintainers@fl-i18n.invalid>" CACHE STRING
    "Name and address of who answers for the packages")
set(CPACK_PACKAGE_CONTACT ${FL_I18N_PACKAGE_CONTACT})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_SYSTEM_NAME windows-x86_64)
    include(CPack)
    return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /opt/${PROJECT_NAME})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

# The library's own dependencies are in the package, where dpkg-shlibdeps does not look.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
foreach(library IN LISTS FL_I18N_RUNTIME_LIBRARIES)
    cmake_path(GET library PARENT_PATH folder)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
endforeach()
list(REMOVE_DUPLICATES CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS)

# What is below the prefix is found from where the system looks; only packages have these links.
set(opt ../..${CPACK_PACKAGING_INSTALL_PREFIX})
function(install_link component link target)
    set(source ${PROJECT_BINARY_DIR}/links${link})
    cmake_path(GET source PARENT_PATH source_folder)
    file(MAKE_DIRECTORY ${source_folder})
    file(CREATE_LINK ${target} ${source} SYMBOLIC)
    cmake_path(GET link PARENT_PATH folder)
    install(FILES ${source} DESTINATION ${folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()
install_link(tool_links /usr/bin/fl-i18n ${opt}/${CMAKE_INSTALL_BINDIR}/fl-i18n)
install_link(tool_links /usr/share/man/man1/fl-i18n.1 ../../${opt}/${CMAKE_INSTALL_MANDIR}/man1/fl-i18n.1)
install_link(tool_links /usr/share/bash-completion/completions/fl-i18n ../../${opt}/${completions_folder}/fl-i18n)

# CMake searches /opt. pkg-config takes its paths from where it finds a file, of which a link would be the place.
set(pkgconfig_prefix ../../${opt})
configure_file(cmake/fl_i18n.pc.in links/fl_i18n.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/links/fl_i18n.pc DESTINATION /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/pkgconfig
    COMPONENT development_links EXCLUDE_FROM_ALL)

set(CPACK_COMPONENTS_ALL runtime data development development_links documentation tool tool_links)
set(CPACK_COMPONENT_RUNTIME_GROUP library)
set(CPACK_COMPONENT_DATA_GROUP library)
set(CPACK_COMPONENT_DEVELOPMENT_GROUP headers)
set(CPACK_COMPONENT_DEVELOPMENT_LINKS_GROUP headers)
set(CPACK_COMPONENT_DOCUMENTATION_GROUP headers)
set(CPACK_COMPONENT_TOOL_GROUP companion)
set(CPACK_COMPONENT_TOOL_LINKS_GROUP companion)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libfl-i18n${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "The shared library with its data and what it runs on.")

set(same_library "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_HEADERS_PACKAGE_NAME libfl-i18n-dev)
set(CPACK_DEBIAN_HEADERS_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_HEADERS_PACKAGE_DEPENDS
    "${same_library}, libboost1.81-dev | libboost-dev (>= 1.81), libicu-dev, libexpat1-dev")
set(CPACK_COMPONENT_HEADERS_DESCRIPTION "Headers, and packages for CMake and pkg-config.")

set(CPACK_DEBIAN_COMPANION_PACKAGE_NAME fl-i18n)
set(CPACK_DEBIAN_COMPANION_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_COMPANION_PACKAGE_DEPENDS "${same_library}")
set(CPACK_COMPONENT_COMPANION_DESCRIPTION "The command-line companion.")

include(CPack)
