# krt550_precompiled_header(NAME HEADER LINK...): a header compiled once, for every target that takes it over with
# target_precompile_headers(TARGET REUSE_FROM NAME). It may be taken over by targets that define more than LINK does.
function(krt550_precompiled_header name header)
    set(empty ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp) # a target needs a source
    file(CONFIGURE OUTPUT ${empty} CONTENT "")
    add_library(${name} OBJECT ${empty})
    target_link_libraries(${name} PRIVATE krt550_options ${ARGN})
    target_precompile_headers(${name} PRIVATE ${header})
endfunction()
