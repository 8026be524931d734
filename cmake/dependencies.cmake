# The libraries that this one is built on, as imported targets:
#   ICU::uc ICU::i18n ICU::data, Boost::headers Boost::filesystem, EXPAT::EXPAT,
#   CLI11::CLI11 (the tool, the benchmarks), GTest::gtest GTest::gtest_main (the tests)
# FL_I18N_RUNTIME_DLLS lists the DLLs that a program for Windows needs beside it, FL_I18N_RUNTIME_LIBRARIES the shared
# libraries (with their links) that the native library needs beside it because the system does not have them.

find_package(ICU 72 REQUIRED COMPONENTS uc i18n data)
find_package(Boost 1.81 CONFIG REQUIRED COMPONENTS headers filesystem)
find_package(EXPAT 2.5 REQUIRED)

if(FL_I18N_BUILD_TESTS)
    find_package(GTest CONFIG REQUIRED)
endif()

if(FL_I18N_BUILD_TOOL OR FL_I18N_BUILD_BENCHMARKS)
    find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp REQUIRED)
    add_library(CLI11::CLI11 INTERFACE IMPORTED)
    target_include_directories(CLI11::CLI11 INTERFACE ${CLI11_INCLUDE_DIR})
endif()

set(FL_I18N_RUNTIME_DLLS)
if(WIN32)
    string(REGEX MATCH "^[0-9]+" icu_major ${ICU_VERSION})
    foreach(dll IN ITEMS icudt${icu_major} icuin${icu_major} icuuc${icu_major} libexpat-1)
        find_file(FL_I18N_DLL_${dll} ${dll}.dll PATH_SUFFIXES bin REQUIRED)
        list(APPEND FL_I18N_RUNTIME_DLLS ${FL_I18N_DLL_${dll}})
    endforeach()
    foreach(dll IN ITEMS libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}.dll
            OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        cmake_path(NORMAL_PATH path)
        list(APPEND FL_I18N_RUNTIME_DLLS ${path})
    endforeach()
    # Windows searches a program's own folder first: in the build tree, too, the DLLs are there.
    file(MAKE_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    foreach(path IN LISTS FL_I18N_RUNTIME_DLLS)
        cmake_path(GET path FILENAME name)
        file(COPY_FILE ${path} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name} ONLY_IF_DIFFERENT)
    endforeach()
endif()

set(FL_I18N_RUNTIME_LIBRARIES)
if(NOT WIN32)
    foreach(library IN ITEMS ICU::uc ICU::i18n ICU::data EXPAT::EXPAT)
        get_target_property(path ${library} LOCATION)
        if(NOT path MATCHES "^/(usr/)?lib")
            string(REGEX REPLACE "\\.so.*" ".so" path ${path})
            file(GLOB versions ${path}.*)
            list(APPEND FL_I18N_RUNTIME_LIBRARIES ${versions})
        endif()
    endforeach()
endif()
