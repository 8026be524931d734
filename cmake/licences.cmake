# The licences of what an installation holds of others. A text that this machine does not have is left out with a
# warning: such an installation is not for passing on.
function(install_licence name component text)
    if(NOT EXISTS ${text})
        message(WARNING "no licence text for ${name}: there is no ${text}")
        return()
    endif()
    install(FILES ${text} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/fl_i18n/licences RENAME ${name}.txt
        COMPONENT ${component})
endfunction()

# Boost and CLI11 are compiled in.
install_licence(boost runtime ${PROJECT_SOURCE_DIR}/cmake/licences/boost.txt)
if(FL_I18N_BUILD_TOOL)
    install_licence(cli11 tool /usr/share/doc/libcli11-dev/copyright)
endif()

if(FL_I18N_RUNTIME_DLLS OR FL_I18N_RUNTIME_LIBRARIES)
    list(GET ICU_INCLUDE_DIRS 0 folder)
    install_licence(icu runtime ${folder}/../share/icu/${ICU_VERSION}/LICENSE)
    # Expat's is the comment at the head of its header.
    file(READ ${EXPAT_INCLUDE_DIR}/expat.h text)
    string(FIND "${text}" "*/" end)
    math(EXPR length "${end} - 2")
    string(SUBSTRING "${text}" 2 ${length} text)
    file(WRITE ${PROJECT_BINARY_DIR}/licences/expat.txt "${text}")
    install_licence(expat runtime ${PROJECT_BINARY_DIR}/licences/expat.txt)
endif()
if(WIN32)
    install_licence(gcc-runtime runtime /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright)
    install_licence(gpl-3 runtime /usr/share/common-licenses/GPL-3)
    install_licence(mingw-w64-runtime runtime /usr/share/doc/mingw-w64-x86-64-dev/copyright)
endif()
