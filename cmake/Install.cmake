# krt550_install(TARGET DESTINATION dir): installs a program or library without its debug information, which goes into a file
# of its own under lib/debug, named after the build id. A debugger looks there by itself when the prefix is /usr;
# elsewhere: gdb -iex "set debug-file-directory PREFIX/lib/debug".
function(krt550_install target destination)
    install(TARGETS ${target} DESTINATION ${destination})
    install(CODE "
        execute_process(COMMAND ${CMAKE_COMMAND} -D OBJCOPY=${CMAKE_OBJCOPY} -D READELF=${CMAKE_READELF}
            -D \"PREFIX=\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\" -D FILE=${destination}/$<TARGET_FILE_NAME:${target}>
            -P ${PROJECT_SOURCE_DIR}/cmake/SplitDebug.cmake COMMAND_ERROR_IS_FATAL ANY)")
endfunction()
