# One INTERFACE target carries the warnings, the hardening and the sanitizers; every target of ours links it.
add_library(krt550_options INTERFACE)
target_compile_options(krt550_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
target_compile_definitions(krt550_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS)
target_include_directories(krt550_options INTERFACE ${PROJECT_SOURCE_DIR})

if(KRT550_WERROR)
    target_compile_options(krt550_options INTERFACE -Werror)
endif()

# What makes an overrun end the program instead of changing its way, in builds that people use. Fortified calls need the
# optimiser; the sanitizers bring checks of their own.
if(NOT KRT550_SANITIZE)
    set(used $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
    target_compile_options(krt550_options INTERFACE
        $<${used}:-fstack-protector-strong> $<${used}:-U_FORTIFY_SOURCE> $<${used}:-D_FORTIFY_SOURCE=2>)
    target_link_options(krt550_options INTERFACE $<${used}:-Wl,-z,relro,-z,now>)
endif()

if(KRT550_SANITIZE)
    target_compile_options(krt550_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(krt550_options INTERFACE -fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang") # what it puts before a coroutine cannot be assembled
        target_compile_options(krt550_options INTERFACE -fno-sanitize=function)
    endif()
endif()

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime CCACHE_NOHASHDIR=1
        CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} ${CCACHE})
    # ccache can reuse a precompiled header only when the compiler is told to check it by content.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-fpch-preprocess)
    endif()
endif()

# Reading the headers takes most of a file's time: read once for several, the whole takes less than half.
set(CMAKE_UNITY_BUILD ${KRT550_UNITY})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 8)
# Of all debug information what a report of a crash needs: functions and lines. The debug preset has the variables, too.
string(REPLACE "-g " "-g1 " CMAKE_CXX_FLAGS_RELWITHDEBINFO "${CMAKE_CXX_FLAGS_RELWITHDEBINFO}")
