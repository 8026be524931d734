# Runs the commands of a transcript, its lines that begin with "$ ", and fails unless all of them print what it says.
# Called with -D TRANSCRIPT=<file> -D PROGRAMS=<directory> [-D SUFFIX=.exe] [-D EMULATOR=<program>] in the directory
# of the commands.
file(READ ${TRANSCRIPT} expected)
cmake_path(GET TRANSCRIPT FILENAME name)
string(REGEX MATCHALL "(^|\n)\\$ [^\n]*" commands "${expected}")
set(actual)
foreach(command IN LISTS commands)
    string(REGEX REPLACE "^\n?\\$ " "" command "${command}")
    string(APPEND actual "$ ${command}\n")
    separate_arguments(words UNIX_COMMAND "${command}")
    list(POP_FRONT words program)
    # A file, not a pipe, so that both streams keep their order and nobody waits for what else Wine has started.
    set(output_file ${CMAKE_CURRENT_BINARY_DIR}/output_${name})
    execute_process(COMMAND ${EMULATOR} ${PROGRAMS}/${program}${SUFFIX} ${words}
        OUTPUT_FILE ${output_file} ERROR_FILE ${output_file} RESULT_VARIABLE status)
    file(READ ${output_file} output)
    # The lines of a text end as the system has it.
    string(REPLACE "\r" "" output "${output}")
    string(APPEND actual "${output}")
    if(NOT status STREQUAL "0")
        string(APPEND actual "(status ${status})\n")
    endif()
endforeach()
file(WRITE actual_${name} "${actual}")
if(NOT actual STREQUAL expected)
    execute_process(COMMAND diff -u ${TRANSCRIPT} actual_${name})
    message(FATAL_ERROR "the output is another than ${name} says; it is in actual_${name}")
endif()
