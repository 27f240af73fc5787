cmake_minimum_required(VERSION 3.25)

# Moves the debug information of PREFIX/FILE into PREFIX/lib/debug/.build-id and leaves a link to it.
execute_process(COMMAND ${READELF} --notes ${PREFIX}/${FILE} OUTPUT_VARIABLE notes COMMAND_ERROR_IS_FATAL ANY)
if(NOT notes MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
    message(FATAL_ERROR "${FILE} has no build id: it must be linked with --build-id.")
endif()
set(debug ${PREFIX}/lib/debug/.build-id/${CMAKE_MATCH_1}/${CMAKE_MATCH_2}.debug)
cmake_path(GET debug PARENT_PATH folder)
file(MAKE_DIRECTORY ${folder})
execute_process(COMMAND ${OBJCOPY} --only-keep-debug ${PREFIX}/${FILE} ${debug} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${OBJCOPY} --strip-unneeded --remove-section=.gnu_debuglink --add-gnu-debuglink=${debug} ${PREFIX}/${FILE}
    COMMAND_ERROR_IS_FATAL ANY)
file(CHMOD ${debug} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
