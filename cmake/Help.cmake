# krt550_compile_help(OUTPUT file.chm PROJECT file.hhp SOURCES file...): rule that compiles a help file. The sources lie
# in the folder of the project file.
find_program(CHMCMD chmcmd)
find_program(CHMLS chmls)
if(NOT CHMCMD OR NOT CHMLS)
    message(FATAL_ERROR "chmcmd and chmls are needed to compile the help file: install the package fp-utils.")
endif()

function(krt550_compile_help)
    cmake_parse_arguments(ARG "" "OUTPUT;PROJECT" "SOURCES" ${ARGN})
    add_custom_command(
        OUTPUT ${ARG_OUTPUT}
        COMMAND ${CMAKE_COMMAND} -D CHMCMD=${CHMCMD} -D CHMLS=${CHMLS} -D PROJECT=${ARG_PROJECT} -D OUTPUT=${ARG_OUTPUT}
            "-DSOURCES=${ARG_SOURCES}" -P ${PROJECT_SOURCE_DIR}/cmake/CompileHelp.cmake
        DEPENDS ${ARG_PROJECT} ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/cmake/CompileHelp.cmake
        COMMENT "Compiling the help file ${ARG_OUTPUT}"
        VERBATIM)
endfunction()
