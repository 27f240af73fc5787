# Compiles PROJECT with SOURCES (its topics, pictures, contents) into OUTPUT. The compiler writes into the folder it runs
# in, names its output itself and does not always say when it failed: so it runs in a folder of its own, and what it
# made is checked for every source.
cmake_path(GET PROJECT STEM project)
set(work ${OUTPUT}.work)
file(REMOVE_RECURSE ${work})
file(REMOVE ${OUTPUT})
file(MAKE_DIRECTORY ${work})
file(COPY ${PROJECT} ${SOURCES} DESTINATION ${work})

execute_process(COMMAND ${CHMCMD} ${project}.hhp WORKING_DIRECTORY ${work} RESULT_VARIABLE result
    OUTPUT_VARIABLE output ERROR_VARIABLE output)
file(GLOB compiled ${work}/*.chm)
list(LENGTH compiled count)
if(NOT result EQUAL 0 OR NOT count EQUAL 1)
    message(FATAL_ERROR "The help file ${project}.hhp does not compile:\n${output}")
endif()

execute_process(COMMAND ${CHMLS} list ${compiled} OUTPUT_VARIABLE contents ERROR_QUIET)
foreach(source IN LISTS SOURCES)
    cmake_path(GET source FILENAME name)
    string(FIND "${contents}\n" "/${name}\n" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "The compiled help file lacks ${name}: name it in ${project}.hhp.\n${output}")
    endif()
endforeach()

file(RENAME ${compiled} ${OUTPUT})
file(REMOVE_RECURSE ${work})
