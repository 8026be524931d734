# The data files that the library reads at run time, copied so that the build tree has them where an installed tree has.

set(FL_I18N_LOCALES en_US_POSIX de es fr ja ko pt_BR ru zh_CN zh_TW)

set(data_sources resources/lcdata.xml)
set(data_copies bin/lcdata.xml)
foreach(locale IN LISTS FL_I18N_LOCALES)
    list(APPEND data_sources resources/fl/${locale}/i18n.xml)
    list(APPEND data_copies resources/fl/${locale}/i18n.xml)
endforeach()

set(data_outputs)
set(copy_script ${PROJECT_SOURCE_DIR}/cmake/copy_data.cmake)
foreach(source copy IN ZIP_LISTS data_sources data_copies)
    add_custom_command(
        OUTPUT ${PROJECT_BINARY_DIR}/${copy}
        DEPENDS ${PROJECT_SOURCE_DIR}/${source} ${copy_script}
        COMMAND ${CMAKE_COMMAND} -D SOURCE=${PROJECT_SOURCE_DIR}/${source} -D COPY=${PROJECT_BINARY_DIR}/${copy}
            -P ${copy_script}
        VERBATIM)
    list(APPEND data_outputs ${PROJECT_BINARY_DIR}/${copy})
    cmake_path(GET copy PARENT_PATH folder)
    install(FILES ${PROJECT_BINARY_DIR}/${copy} DESTINATION ${folder} COMPONENT data)
endforeach()
add_custom_target(fl_i18n_data ALL DEPENDS ${data_outputs})
add_dependencies(fl_i18n fl_i18n_data)
